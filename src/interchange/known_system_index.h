// Finds a definition among the known systems without parsing them all.
#pragma once

#include "interchange/known_systems.h"
#include "proj4/proj4_str.h"

namespace zu {

// The first confirmed row whose definition equals a parsed one; null when none
// does. Equal means Tzu_proj4_str::equal.
known_system const* find_known_system(Tzu_proj4_str& definition);

}  // namespace zu
