// Holds a file for Tfile_holder: its event, its mutex, how to share, the file.

#include <windows.h>

#include <cstdlib>
#include <string>

#include "file_holder_win32.h"

int wmain(int argc, wchar_t** argv) {
  if (argc != 5) return 1;
  auto const object = [argv](int at) {
    return reinterpret_cast<HANDLE>(std::wcstoull(argv[at], nullptr, 10));
  };
  using core_test::Tfile_holder;
  auto const how = std::wcstol(argv[3], nullptr, 10);
  DWORD const access = how == Tfile_holder::reading ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  DWORD const others = how == Tfile_holder::alone     ? 0
                       : how == Tfile_holder::writing ? FILE_SHARE_READ | FILE_SHARE_WRITE
                                                      : FILE_SHARE_READ;
  HANDLE const file =
      CreateFileW(argv[4], access, others, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  SetEvent(object(1));
  WaitForSingleObject(object(2), INFINITE);
  CloseHandle(file);
  return 0;
}
