#include "host_controls_win32.h"

#include <stdio.h>
#include <wchar.h>

enum { list_size = 64 * 1024, text_size = 1024 };

typedef struct {
  HWND host;
  wchar_t text[list_size];
  size_t length;
} list;

static void add_line(list* self, wchar_t const* kind, HWND window, wchar_t const* state) {
  RECT place;
  wchar_t text[text_size] = L"";
  GetWindowRect(window, &place);
  /* This thread's own window: its text is asked for, whatever it is. */
  SendMessageW(window, WM_GETTEXT, text_size, (LPARAM)text);
  for (wchar_t* letter = text; *letter != 0; ++letter) {
    if (*letter < L' ') *letter = L' ';
  }
  wchar_t line[text_size + 100];
  int const length =
      swprintf(line, text_size + 100, L"%ls\t%ld\t%ld\t%ls\t%ls\n", kind,
               (place.left + place.right) / 2, (place.top + place.bottom) / 2, state, text);
  if (length <= 0 || self->length + (size_t)length >= list_size) return;
  wmemcpy(self->text + self->length, line, (size_t)length);
  self->length += (size_t)length;
}

static BOOL CALLBACK add_control(HWND window, LPARAM context) {
  list* const self = (list*)context;
  if (!IsWindowVisible(window)) return TRUE;
  wchar_t kind[32] = L"";
  GetClassNameW(window, kind, 32);
  LONG_PTR const style = GetWindowLongPtrW(window, GWL_STYLE);
  BOOL on = IsWindowEnabled(window);
  if (_wcsicmp(kind, L"Button") == 0 && (style & BS_TYPEMASK) != BS_GROUPBOX) {
    add_line(self, L"button", window, on ? L"on" : L"off");
  } else if (_wcsicmp(kind, L"Edit") == 0) {
    on = on && (style & ES_READONLY) == 0;
    add_line(self, L"edit", window, on ? L"on" : L"off");
  }
  return TRUE;
}

static BOOL CALLBACK add_window(HWND window, LPARAM context) {
  list* const self = (list*)context;
  if (window == self->host || !IsWindowVisible(window) || GetWindowTextLengthW(window) == 0) {
    return TRUE;
  }
  add_line(self, L"window", window, L"");
  EnumChildWindows(window, add_control, context);
  return TRUE;
}

static BOOL write_file(wchar_t const* file, char const* text, DWORD size) {
  HANDLE const handle =
      CreateFileW(file, GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, NULL);
  if (handle == INVALID_HANDLE_VALUE) return FALSE;
  DWORD written = 0;
  BOOL const good = WriteFile(handle, text, size, &written, NULL) && written == size;
  return CloseHandle(handle) && good;
}

BOOL host_controls_write(HWND host, wchar_t const* file) {
  static list lines;
  static char text[3 * list_size];
  lines.host = host;
  lines.length = 0;
  EnumThreadWindows(GetCurrentThreadId(), add_window, (LPARAM)&lines);
  int const size = WideCharToMultiByte(CP_UTF8, 0, lines.text, (int)lines.length, text,
                                       (int)sizeof text, NULL, NULL);
  wchar_t made[MAX_PATH];
  if (swprintf(made, MAX_PATH, L"%ls.new", file) <= 0) return FALSE;
  /* A reader never sees half a list. */
  return write_file(made, text, (DWORD)size) && MoveFileExW(made, file, MOVEFILE_REPLACE_EXISTING);
}
