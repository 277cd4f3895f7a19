#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <array>
#include <climits>
#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <string>
#include <system_error>

#include "basic/code_page.h"
#include "basic/module.h"

namespace zu::module {
namespace {

// Paths of modules by stem; empty for a module that is not loaded. Valid until a module
// is loaded or unloaded. A process may have hundreds of modules, and each text that
// goes to a host looks for one.
struct memory {
  unsigned long long loads = 0;
  unsigned long long unloads = 0;
  std::map<std::string, std::string, std::less<>> paths;
};

struct search {
  std::string_view stem;
  memory* remembered;
  // Zero-terminated.
  std::array<char, PATH_MAX> path{};

  void take(std::string_view found) noexcept {
    if (found.size() < path.size()) *std::ranges::copy(found, path.begin()).out = '\0';
  }
};

int visit(dl_phdr_info* info, std::size_t /*size*/, void* context) noexcept {
  auto& wanted = *static_cast<search*>(context);
  memory& known = *wanted.remembered;
  if (known.loads != info->dlpi_adds || known.unloads != info->dlpi_subs)
    known = {info->dlpi_adds, info->dlpi_subs, {}};
  if (auto const found = known.paths.find(wanted.stem); found != known.paths.end()) {
    wanted.take(found->second);
    return 1;
  }
  std::string_view name = info->dlpi_name;
  name.remove_prefix(name.rfind('/') + 1);
  if (name.starts_with("lib") && !wanted.stem.starts_with("lib")) name.remove_prefix(3);
  if (!name.starts_with(wanted.stem) || !name.substr(wanted.stem.size()).starts_with(".so"))
    return 0;
  wanted.take(info->dlpi_name);
  return 1;
}

}  // namespace

std::wstring own_path() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void const*>(&own_path), &info) == 0) return {};
  // A program that the shell found through PATH has no folder in its name.
  std::error_code ignored;
  bool const has_folder = std::string_view(info.dli_fname).find('/') != std::string_view::npos;
  auto const path = has_folder ? std::filesystem::absolute(info.dli_fname, ignored)
                               : std::filesystem::read_symlink("/proc/self/exe", ignored);
  return code_page::to_wide(code_page::system, path.native());
}

function find_loaded(std::string_view stem, char const* symbol) noexcept {
  // Hosts load their modules by path and often without a soname, so this compares the
  // file names of the loaded objects.
  static thread_local memory remembered;
  search wanted{stem, &remembered};
  dl_iterate_phdr(visit, &wanted);
  try {
    remembered.paths.try_emplace(std::string(stem), wanted.path.data());
  } catch (std::bad_alloc const&) {
    // The next call looks through all modules again.
  }
  if (wanted.path.front() == '\0') return nullptr;
  void* const handle = dlopen(wanted.path.data(), RTLD_LAZY | RTLD_NOLOAD);
  if (handle == nullptr) return nullptr;
  void* const address = dlsym(handle, symbol);
  dlclose(handle);
  return reinterpret_cast<function>(address);
}

}  // namespace zu::module
