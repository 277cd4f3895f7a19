#include "proj4/proj_library.h"

namespace zu::proj_library {

bool is_installed() noexcept { return true; }

}  // namespace zu::proj_library
