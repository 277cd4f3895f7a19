#include <dlfcn.h>
#include <link.h>

#include <string>

#include "basic/module.h"

namespace zu::module {
namespace {

struct search {
  std::string_view stem;
  std::string path;
};

int visit(dl_phdr_info* info, std::size_t /*size*/, void* context) {
  auto& wanted = *static_cast<search*>(context);
  std::string_view name = info->dlpi_name;
  name.remove_prefix(name.rfind('/') + 1);
  if (name.starts_with("lib") && !wanted.stem.starts_with("lib")) name.remove_prefix(3);
  if (!name.starts_with(wanted.stem) || !name.substr(wanted.stem.size()).starts_with(".so"))
    return 0;
  wanted.path = info->dlpi_name;
  return 1;
}

}  // namespace

function find_loaded(std::string_view stem, char const* symbol) {
  // Hosts load their modules by path and often without a soname, so the loaded
  // objects are looked through by file name.
  search wanted{stem, {}};
  if (dl_iterate_phdr(visit, &wanted) == 0) return nullptr;
  void* const handle = dlopen(wanted.path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  if (handle == nullptr) return nullptr;
  void* const address = dlsym(handle, symbol);
  dlclose(handle);
  return reinterpret_cast<function>(address);
}

}  // namespace zu::module
