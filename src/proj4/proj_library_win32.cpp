#include "proj4/proj_library.h"

namespace zu::proj_library {

// It is a part of this library, and would look in the current folder, which may be
// that of a stranger's files.
bool is_installed() noexcept { return false; }

}  // namespace zu::proj_library
