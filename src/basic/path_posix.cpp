#include "basic/code_page.h"
#include "basic/path.h"

namespace zu::path {

bool is_separator(wchar_t c) noexcept { return c == L'/'; }

bool is_absolute(std::wstring_view path) noexcept { return path.starts_with(L'/'); }

std::wstring join(std::wstring_view folder, std::wstring_view name) {
  if (folder.empty() || is_absolute(name)) return std::wstring(name);
  std::wstring result(folder);
  if (!is_separator(result.back())) result += L'/';
  return result.append(name);
}

std::wstring make_full(std::wstring_view path) {
  if (path.empty() || is_absolute(path)) return std::wstring(path);
  std::error_code error;
  auto const current = std::filesystem::current_path(error);
  return error ? std::wstring() : join(from_native(current), path);
}

std::filesystem::path to_native(std::wstring_view path) {
  std::string bytes = code_page::to_multi_byte(code_page::system, path);
  if (path.find(L'\0') != std::wstring_view::npos ||
      code_page::to_wide(code_page::system, bytes) != path)
    bytes.clear();
  return bytes;
}

std::wstring from_native(std::filesystem::path const& path) {
  return code_page::to_wide(code_page::system, path.native());
}

}  // namespace zu::path
