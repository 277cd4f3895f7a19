// Texts that a user pastes into the dialog. Does not use the form toolkit.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "pj_edit/edit_rules.h"

namespace zu {

// Reads the seven numbers of a datum shift as documents and definitions write them: "23.57,
// -140.95, ...", with commas, semicolons or blanks between them, with or without "+towgs84=".
// Three numbers are a shift without rotations. Nothing for any other text.
std::optional<std::array<double, 7>> read_shift(std::wstring_view text);

// Gives the editor a coordinate system in any notation: a definition, the id of a known system
// or a zone, a code, WKT, PROJJSON, a URN or a name. It may also be a datum shift alone when
// the datum is "_Custom". Returns a sentence for the user, or none. When the text cannot be
// taken nothing changes and `taken` is false.
struct paste_result {
  bool taken;
  std::wstring note;
};
paste_result paste_definition(Tzu_pj_editor& editor, std::wstring const& text);

}  // namespace zu
