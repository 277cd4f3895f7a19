#include <windows.h>

#include "suite/host.h"

namespace zu::host {

std::wstring program_path() {
  std::wstring path(32768, L'\0');
  DWORD const length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  path.resize(length < path.size() ? length : 0);
  return path;
}

bool is_language_russian() { return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_RUSSIAN; }

}  // namespace zu::host
