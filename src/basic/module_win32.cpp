#include <windows.h>

#include <string>

#include "basic/module.h"

namespace zu::module {

function find_loaded(std::string_view stem, char const* symbol) {
  std::wstring const name = std::wstring(stem.begin(), stem.end()) + L".dll";
  HMODULE const handle = GetModuleHandleW(name.c_str());
  if (handle == nullptr) return nullptr;
  return reinterpret_cast<function>(GetProcAddress(handle, symbol));
}

}  // namespace zu::module
