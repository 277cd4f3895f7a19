#include "proj4/proj_library.h"

namespace zu::proj_library {

// PROJ is a part of this library. It would look in the current folder, and that may be a
// folder with the files of a stranger.
bool is_installed() noexcept { return false; }

}  // namespace zu::proj_library
