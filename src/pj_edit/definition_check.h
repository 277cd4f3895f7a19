// What becomes of a definition: on being read, by PROJ, in the dialog, in a file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pj_edit/edit_rules.h"

namespace zu {

enum class check_kind { reading, operation, limits, dialog, prj_file };

struct check_finding {
  check_kind kind;
  std::wstring sentence;         // for a user, in the interface's language
  std::optional<double> metres;  // how far points move at most, where that is known
};

// Everything there is to say of a definition (the system's code page), in the order of
// the kinds; empty for one that goes everywhere unchanged. `given` is what the user
// wrote, in any notation (UTF-8): PROJ is given that, and knows its area of use. Takes
// some hundredths of a second.
std::vector<check_finding> check_definition(std::string const& definition, std::string const& given,
                                            Tzu_pj_editor& editor);

}  // namespace zu
