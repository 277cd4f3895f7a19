// What a user pastes into the dialog. Free of the form toolkit.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "pj_edit/edit_rules.h"

namespace zu {

// Seven numbers of a datum shift as they stand in papers and definitions, "23.57,
// -140.95, ...", between commas, semicolons or blanks, with or without "+towgs84=".
// Three are a shift without rotations. Nothing for any other text.
std::optional<std::array<double, 7>> read_shift(std::wstring_view text);

// Takes a coordinate system in any notation into the editor: a definition, an id of a
// known system or a zone, a code, WKT, PROJJSON, a URN, a name; or a datum shift alone,
// where the datum is the user's own. Returns a sentence for the user, or nothing; where
// the text cannot be taken nothing changes, and `taken` is false.
struct paste_result {
  bool taken;
  std::wstring note;
};
paste_result paste_definition(Tzu_pj_editor& editor, std::wstring const& text);

}  // namespace zu
