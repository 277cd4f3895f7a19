#include <windows.h>

#include <algorithm>
#include <array>
#include <string>

#include "basic/module.h"

namespace zu::module {

std::wstring own_path() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&own_path), &module);
  std::wstring path(32768, L'\0');
  DWORD const length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  path.resize(length < path.size() ? length : 0);
  return path;
}

function find_loaded(std::string_view stem, char const* symbol) noexcept {
  constexpr std::wstring_view extension = L".dll";
  std::array<wchar_t, MAX_PATH> name{};
  if (stem.size() + extension.size() >= name.size()) return nullptr;
  std::ranges::copy(extension, std::ranges::copy(stem, name.begin()).out);
  HMODULE const handle = GetModuleHandleW(name.data());
  if (handle == nullptr) return nullptr;
  return reinterpret_cast<function>(GetProcAddress(handle, symbol));
}

}  // namespace zu::module
