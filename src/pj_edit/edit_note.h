// The dialog's note: what its user has to be told beside what the panels show. Free of
// the form toolkit.
#pragma once

#include <string>
#include <vector>

#include "catalogue/pj_dbf.h"
#include "pj_edit/edit_rules.h"

namespace zu {

// Of a catalogue that is not there or not whole; empty of a good one.
std::wstring tell_catalogue(std::vector<std::wstring> const& missing_folders,
                            std::vector<catalogue_fault> const& faults);

// What Apply returns in place of a datum shift that the definition does not give;
// empty when nothing.
std::wstring tell_addition(Tzu_pj_editor const& editor);

// The whole note, a line each of the file that was loaded or saved last, of the
// catalogue, of the definition and of what is added to it. What is empty has no line.
std::wstring compose_note(std::wstring const& file, std::wstring const& catalogue,
                          Tzu_pj_editor const& editor);

}  // namespace zu
