#include "interchange/gdal.h"

namespace zu {

gdal_functions const& gdal() {
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage, bugprone-macro-parentheses)
#define ZU_GDAL_ADDRESS(name) &::name,
  static constexpr gdal_functions linked{ZU_GDAL_FUNCTIONS(ZU_GDAL_ADDRESS)};
#undef ZU_GDAL_ADDRESS
  return linked;
}

}  // namespace zu
