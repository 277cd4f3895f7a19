#include "basic/path.h"

namespace zu::path {
namespace {

std::size_t after_last_separator(std::wstring_view path) noexcept {
  std::size_t at = path.size();
  while (at > 0 && !is_separator(path[at - 1])) --at;
  return at;
}

}  // namespace

std::wstring_view folder_of(std::wstring_view path) noexcept {
  return path.substr(0, after_last_separator(path));
}

std::wstring_view file_name_of(std::wstring_view path) noexcept {
  return path.substr(after_last_separator(path));
}

std::wstring_view stem_of(std::wstring_view path) noexcept {
  auto const name = file_name_of(path);
  return name.substr(0, name.rfind(L'.'));
}

std::wstring_view extension_of(std::wstring_view path) noexcept {
  auto const name = file_name_of(path);
  return name.substr(stem_of(name).size());
}

std::wstring replace_extension(std::wstring_view path, std::wstring_view extension) {
  std::wstring result(path.substr(0, path.size() - extension_of(path).size()));
  return result.append(extension);
}

}  // namespace zu::path
