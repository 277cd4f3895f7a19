#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "basic/path.h"
#include "suite/host.h"

namespace zu::host {

std::wstring program_path() {
  std::error_code error;
  auto const path = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::wstring() : path::from_native(path);
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
