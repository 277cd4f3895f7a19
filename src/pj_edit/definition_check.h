// What happens to a definition when it is read, given to PROJ, edited in the dialog and saved.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pj_edit/edit_rules.h"

namespace zu {

enum class check_kind { reading, operation, limits, dialog, prj_file };

struct check_finding {
  check_kind kind;
  std::wstring sentence;         // for a user, in the interface language
  std::optional<double> metres;  // how far points move at most, where that is known
};

// All findings about a definition (in the system's code page), in the order of the kinds.
// Empty for a definition that nothing changes. `given` is the text of the user in any notation
// (UTF-8): PROJ gets that text, because its area of use may be known. Takes some hundredths of
// a second.
std::vector<check_finding> check_definition(std::string const& definition, std::string const& given,
                                            Tzu_pj_editor& editor);

}  // namespace zu
