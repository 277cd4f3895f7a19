#include "interchange/gdal.h"

namespace zu {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage, bugprone-macro-parentheses)
#define ZU_GDAL_ADDRESS(name) &::name,
constexpr gdal_functions linked{ZU_GDAL_FUNCTIONS(ZU_GDAL_ADDRESS)};
#undef ZU_GDAL_ADDRESS

}  // namespace

gdal_functions const& gdal() { return linked; }

}  // namespace zu
