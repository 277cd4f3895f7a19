#include "host_support.h"

#include <stdarg.h>
#include <stdio.h>
#include <string.h>
#include <wchar.h>

/* ---- checks */

static LONG volatile failures = 0;

int test_failures(void) { return (int)failures; }

void test_check(int good, char const* file, int line, char const* format, ...) {
  if (good) return;
  InterlockedIncrement(&failures);
  char text[4096];
  va_list arguments; /* NOLINT(cppcoreguidelines-init-variables): va_start does it */
  va_start(arguments, format);
  (void)vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  (void)printf("%s:%d: not so: %s\n", file, line, text);
  (void)fflush(stdout);
}

/* ---- a host's window */

message_hook host_hook;

static LRESULT CALLBACK on_message(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (host_hook != NULL && host_hook(window, message)) return 0;
  return DefWindowProcW(window, message, first, second);
}

HWND open_host(void) {
  static wchar_t const name[] = L"zu_host_test";
  WNDCLASSW const kind = {.lpfnWndProc = on_message,
                          .hInstance = GetModuleHandleW(NULL),
                          .hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1),
                          .lpszClassName = name};
  /* This fails for the second window, which does not matter. */
  (void)RegisterClassW(&kind);
  HWND const window = CreateWindowExW(0, name, L"host", WS_OVERLAPPEDWINDOW, 50, 50, 400, 300, NULL,
                                      NULL, kind.hInstance, NULL);
  for (int i = 0; i < 3; ++i) {
    (void)CreateWindowExW(0, i == 2 ? L"Button" : L"Edit", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                          10, 10 + 40 * i, 200, 30, window, (HMENU)(INT_PTR)(i + 1), kind.hInstance,
                          NULL);
  }
  ShowWindow(window, SW_SHOWNORMAL);
  SetForegroundWindow(window);
  pump();
  CHECK(IsWindowVisible(window));
  return window;
}

void pump(void) {
  MSG message;
  while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

/* ---- the user */

enum { patience_ms = 15000 };

void wait_for(char const* what, BOOL (*condition)(void* context), void* context) {
  ULONGLONG const start = GetTickCount64();
  while (!condition(context)) {
    if (GetTickCount64() - start > patience_ms) {
      (void)printf("waited too long for %s\n", what);
      (void)fflush(stdout);
      /* Other threads may be blocked. */
      TerminateProcess(GetCurrentProcess(), 1);
    }
    Sleep(2);
  }
}

HWND find_child(HWND form, wchar_t const* kind, wchar_t const* text) {
  HWND found = NULL;
  for (HWND child = GetWindow(form, GW_CHILD); child != NULL && found == NULL;
       child = GetWindow(child, GW_HWNDNEXT)) {
    wchar_t its_kind[64] = L"";
    wchar_t its_text[256] = L"";
    GetClassNameW(child, its_kind, 64);
    BOOL fits = _wcsicmp(its_kind, kind) == 0 && IsWindowVisible(child);
    if (fits && text != NULL) {
      SendMessageW(child, WM_GETTEXT, 256, (LPARAM)its_text);
      fits = wcscmp(its_text, text) == 0;
    }
    found = fits ? child : find_child(child, kind, text);
  }
  return found;
}

HWND find_button(HWND form, button which) {
  static wchar_t const* const captions[][2] = {
      {L"Apply", L"\u041f\u0440\u0438\u043c\u0435\u043d\u0438\u0442\u044c"},
      {L"Cancel", L"\u041e\u0442\u043c\u0435\u043d\u0438\u0442\u044c"},
      {L"Load", L"\u0417\u0430\u0433\u0440\u0443\u0437\u0438\u0442\u044c"}};
  BOOL const russian = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_RUSSIAN;
  return find_child(form, L"Button", captions[which][russian ? 1 : 0]);
}

HWND find_dialog(HWND owner) {
  HWND window = NULL;
  while ((window = FindWindowExW(NULL, window, L"#32770", NULL)) != NULL) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) continue;
    if (owner != NULL && GetWindow(window, GW_OWNER) == owner) break;
    /* Message boxes have no such button. */
    if (owner == NULL && find_button(window, apply_button) != NULL) break;
  }
  return window;
}

static BOOL is_dialog_open(void* context) { return find_dialog(*(HWND*)context) != NULL; }

HWND wait_for_dialog(HWND owner) {
  wait_for(owner == NULL ? "the form" : "a dialog over the form", is_dialog_open, &owner);
  return find_dialog(owner);
}

static BOOL is_closed(void* context) { return !IsWindowVisible(*(HWND*)context); }

void wait_until_closed(HWND form) { wait_for("the end of a dialog", is_closed, &form); }

void press(HWND form, button which) {
  HWND const control = find_button(form, which);
  CHECK(control != NULL);
  PostMessageW(control, BM_CLICK, 0, 0);
}

void type_text(HWND form, wchar_t const* shown, wchar_t const* typed) {
  HWND const edit = find_child(form, L"Edit", shown);
  CHECK(edit != NULL);
  SendMessageW(edit, WM_SETTEXT, 0, (LPARAM)typed);
}

void script_apply(HWND form) { press(form, apply_button); }
void script_cancel(HWND form) { press(form, cancel_button); }

/* ---- the library */

wchar_t const* library_name = L"zu_pj_edit.dll";

static script played;
static LONG volatile returned;

static BOOL has_returned(void* context) { return *(LONG volatile*)context != 0; }

static DWORD WINAPI play(void* context) {
  HWND const form = wait_for_dialog(NULL);
  played(form);
  wait_until_closed(form);
  wait_for("the end of the call", has_returned, context);
  return 0;
}

typedef char const* (*execute_function)(zu_pj_edit_window owner, char const* definition,
                                        unsigned char* changed);

char const* test_form(HWND owner, char const* definition, script body, char const* text,
                      int changed, char const* file, int line) {
  FARPROC const found = GetProcAddress(LoadLibraryW(library_name), "zu_proj4_form_execute");
  if (found == NULL) {
    (void)printf("no function in %ls: error %lu\n", library_name, GetLastError());
    ExitProcess(3);
  }
  unsigned char flag = 7;
  played = body;
  returned = 0;
  HANDLE const thread = CreateThread(NULL, 0, play, (void*)&returned, 0, NULL);
  execute_function const execute = (execute_function)(void (*)(void))found;
  char const* const result = execute(owner, definition, &flag);
  InterlockedExchange(&returned, 1);
  /* Handles messages that the other thread sends. Posted ones stay for the test. */
  MSG message;
  while (WaitForSingleObject(thread, 1) != WAIT_OBJECT_0) {
    PeekMessageW(&message, NULL, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
  CloseHandle(thread);
  test_check(result != NULL && strcmp(result, text) == 0, file, line,
             "the result is\n  \"%s\", expected\n  \"%s\"", result == NULL ? "(null)" : result,
             text);
  test_check(flag == changed, file, line, "the flag is %d", flag);
  return result;
}
