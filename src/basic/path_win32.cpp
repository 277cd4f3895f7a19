#include <windows.h>

#include "basic/path.h"

namespace zu::path {

namespace {

bool is_slash(wchar_t c) noexcept { return c == L'/' || c == L'\\'; }

bool has_drive(std::wstring_view path) noexcept { return path.size() > 1 && path[1] == L':'; }

}  // namespace

bool is_separator(wchar_t c) noexcept { return is_slash(c) || c == L':'; }

// The standard library of some compilers does not know network shares.
bool is_absolute(std::wstring_view path) noexcept {
  if (path.size() < 2) return false;
  return has_drive(path) ? path.size() > 2 && is_slash(path[2])
                         : is_slash(path[0]) && is_slash(path[1]);
}

std::wstring join(std::wstring_view folder, std::wstring_view name) {
  bool const has_root = has_drive(name) || (!name.empty() && is_slash(name[0]));
  if (folder.empty() || has_root) return std::wstring(name);
  std::wstring result(folder);
  if (!is_separator(result.back())) result += L'\\';
  return result.append(name);
}

std::wstring make_full(std::wstring_view path) {
  std::wstring const text(path);
  std::wstring result(32768, L'\0');
  DWORD const length =
      GetFullPathNameW(text.c_str(), static_cast<DWORD>(result.size()), result.data(), nullptr);
  result.resize(length < result.size() ? length : 0);
  return result;
}

std::filesystem::path to_native(std::wstring_view path) {
  return path.find(L'\0') == std::wstring_view::npos ? path : std::wstring_view();
}

std::wstring from_native(std::filesystem::path const& path) { return path.native(); }

}  // namespace zu::path
