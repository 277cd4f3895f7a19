#include "basic/session.h"

#include <io.h>
#include <windows.h>

#include <array>

namespace zu::session {

std::wstring user_name() {
  // The longest name of an account has 256 characters, and a zero follows.
  std::array<wchar_t, 257> name{};
  auto size = static_cast<DWORD>(name.size());
  return GetUserNameW(name.data(), &size) != 0 ? name.data() : L"";
}

std::wstring computer_name() {
  std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
  auto size = static_cast<DWORD>(name.size());
  return GetComputerNameW(name.data(), &size) != 0 ? name.data() : L"";
}

// To the C run-time library every device is a terminal, even the null device.
bool is_terminal(std::FILE* stream) noexcept {
  DWORD mode = 0;
  return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream))), &mode) != 0;
}

std::wstring decimal_separator() {
  // At most four characters, including the zero at the end.
  std::array<wchar_t, 4> text{};
  int const length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, text.data(),
                                     static_cast<int>(text.size()));
  return length == 0 ? L"." : text.data();
}

}  // namespace zu::session
