// The dialog's note: everything that the user has to know and the panels do not show. Does not
// use the form toolkit.
#pragma once

#include <string>
#include <vector>

#include "catalogue/pj_dbf.h"
#include "pj_edit/edit_rules.h"

namespace zu {

// The sentence about a catalogue that is missing or incomplete; empty for a good one.
std::wstring tell_catalogue(std::vector<std::wstring> const& missing_folders,
                            std::vector<catalogue_fault> const& faults);

// The sentence about a datum shift that Apply adds to a definition without one; empty when it
// adds none.
std::wstring tell_addition(Tzu_pj_editor const& editor);

// The whole note: a line each about the last file, the catalogue, the definition and the added
// shift. An empty text gives no line.
std::wstring compose_note(std::wstring const& file, std::wstring const& catalogue,
                          Tzu_pj_editor const& editor);

}  // namespace zu
