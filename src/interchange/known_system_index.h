// Finds a definition among the known systems without reading them all.
#pragma once

#include "interchange/known_systems.h"
#include "proj4/proj4_str.h"

namespace zu {

// The first confirmed row with an equal definition, by Tzu_proj4_str::equal; null when
// there is none. `definition` is decomposed already.
known_system const* find_known_system(Tzu_proj4_str& definition);

}  // namespace zu
