#include "basic/session.h"

#include <io.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace zu::session {
namespace {

// Shells from the world of POSIX draw their terminal themselves. They give a program pipes
// with names such as "\msys-1888ae32e00d56aa-pty0-to-master".
bool is_terminal_pipe(HANDLE handle) noexcept {
  if (GetFileType(handle) != FILE_TYPE_PIPE) return false;
  constexpr std::size_t longest = 256;
  struct {
    FILE_NAME_INFO head;
    std::array<wchar_t, longest> rest;
  } info{};
  if (GetFileInformationByHandleEx(handle, FileNameInfo, &info, sizeof info) == 0) return false;
  std::wstring_view const name(info.head.FileName, info.head.FileNameLength / sizeof(wchar_t));
  return (name.starts_with(L"\\msys-") || name.starts_with(L"\\cygwin-")) &&
         name.find(L"-pty") != std::wstring_view::npos;
}

}  // namespace

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
  auto* const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0 || is_terminal_pipe(handle);
}

std::wstring decimal_separator() {
  // At most four characters, including the zero at the end.
  std::array<wchar_t, 4> text{};
  int const length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, text.data(),
                                     static_cast<int>(text.size()));
  return length == 0 ? L"." : text.data();
}

}  // namespace zu::session
