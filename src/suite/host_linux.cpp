#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "basic/code_page.h"
#include "suite/host.h"

namespace zu::host {

std::wstring program_path() {
  std::string path(4096, '\0');
  auto const length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0 || static_cast<std::size_t>(length) >= path.size()) return {};
  path.resize(static_cast<std::size_t>(length));
  return code_page::to_wide(code_page::system, path);
}

bool is_language_russian() {
  for (char const* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    char const* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe)
    if (value == nullptr || *value == '\0') continue;
    std::string_view const name = value;
    return name == "ru" || name.starts_with("ru_") || name.starts_with("ru.");
  }
  return false;
}

}  // namespace zu::host
