#include "interchange/gdal.h"

#include <dlfcn.h>

#include <stdexcept>

namespace zu {
namespace {

std::runtime_error failure() {
  char const* const reason = dlerror();
  return std::runtime_error(reason == nullptr ? "cannot load " ZU_GDAL_LIBRARY : reason);
}

template <class Function>
void find(void* library, char const* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (function == nullptr) throw failure();
}

gdal_functions load() {
  // Local names: the host may have another GDAL. Nothing ever unloads the library.
  void* const library = dlopen(ZU_GDAL_LIBRARY, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) throw failure();
  gdal_functions found{};
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage, bugprone-macro-parentheses)
#define ZU_GDAL_FIND(name) find(library, #name, found.name);
  ZU_GDAL_FUNCTIONS(ZU_GDAL_FIND)
#undef ZU_GDAL_FIND
  return found;
}

}  // namespace

gdal_functions const& gdal() {
  static gdal_functions const loaded = load();
  return loaded;
}

}  // namespace zu
