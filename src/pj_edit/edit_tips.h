// The texts of the dialog's tooltips. Does not use the form toolkit.
#pragma once

#include <cstddef>
#include <string>

#include "pj_edit/edit_rules.h"

namespace zu {

// Key, unit and limits: "lon_0, degrees, -180 to 180".
std::wstring tell_number(Tzu_pj_editor const& editor, proj_number which);

// Key and unit of one of the seven numbers of the datum, and why it cannot be edited.
std::wstring tell_shift(Tzu_pj_editor const& editor, std::size_t index);

// Why the ellipsoid cannot be chosen; empty when it can.
std::wstring tell_ellipse(Tzu_pj_editor const& editor);

// The numbers that a zone fixes: a line "caption value" each for the meridian, the scale and
// the false easting. Empty when no zone is chosen.
std::wstring tell_zone(Tzu_pj_editor const& editor);

}  // namespace zu
