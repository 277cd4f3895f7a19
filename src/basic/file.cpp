#include "basic/file.h"

namespace zu::file {
namespace {

std::size_t after_last_separator(std::wstring_view path) noexcept {
  std::size_t at = path.size();
  while (at > 0 && !is_separator(path[at - 1])) --at;
  return at;
}

}  // namespace

std::wstring replace_extension(std::wstring_view name, std::wstring_view extension) {
  auto const start = after_last_separator(name);
  auto const point = name.substr(start).rfind(L'.');
  std::wstring result(point == std::wstring_view::npos ? name : name.substr(0, start + point));
  return result.append(extension);
}

std::wstring_view folder_of(std::wstring_view path) noexcept {
  return path.substr(0, after_last_separator(path));
}

}  // namespace zu::file
