#include "basic/session.h"

#include <io.h>
#include <windows.h>

#include <array>

namespace zu::session {

std::wstring user_name() {
  // The longest name that an account can have, and the zero behind it.
  std::array<wchar_t, 257> name{};
  auto size = static_cast<DWORD>(name.size());
  return GetUserNameW(name.data(), &size) != 0 ? name.data() : L"";
}

std::wstring computer_name() {
  std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
  auto size = static_cast<DWORD>(name.size());
  return GetComputerNameW(name.data(), &size) != 0 ? name.data() : L"";
}

// The C run-time takes every device for a terminal, the null device too.
bool is_terminal(std::FILE* stream) noexcept {
  DWORD mode = 0;
  return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))), &mode) != 0;
}

std::wstring decimal_separator() {
  // Four characters at most, with the zero behind them.
  std::array<wchar_t, 4> text{};
  int const length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, text.data(),
                                     static_cast<int>(text.size()));
  return length == 0 ? L"." : text.data();
}

}  // namespace zu::session
