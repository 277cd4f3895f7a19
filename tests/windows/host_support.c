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

void test_check_text(char const* actual, char const* expected, char const* file, int line,
                     char const* what) {
  test_check(actual != NULL && strcmp(actual, expected) == 0, file, line,
             "%s is\n  \"%s\", expected\n  \"%s\"", what, actual == NULL ? "(null)" : actual,
             expected);
}

/* ---- the library */

HMODULE library;
wchar_t const* library_name = L"zu_pj_edit.dll";

void library_path(wchar_t path[MAX_PATH], wchar_t const* name) {
  DWORD const length = GetModuleFileNameW(NULL, path, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) ExitProcess(3);
  wchar_t* const program = wcsrchr(path, L'\\');
  if (program == NULL) ExitProcess(3);
  (void)swprintf(program + 1, MAX_PATH - (size_t)(program + 1 - path), L"%ls", name);
}

typedef char const* (*execute_function)(zu_pj_edit_window owner, char const* definition,
                                        unsigned char* changed);

static execute_function find_function(void) {
  wchar_t path[MAX_PATH];
  library_path(path, library_name);
  if (library == NULL) library = LoadLibraryW(path);
  FARPROC const found = GetProcAddress(library, "zu_proj4_form_execute");
  if (found == NULL) {
    (void)printf("no function in %ls: error %lu\n", path, GetLastError());
    ExitProcess(3);
  }
  return (execute_function)(void (*)(void))found;
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

static void give_up(char const* what) {
  (void)printf("waited too long for %s\n", what);
  (void)fflush(stdout);
  /* Other threads may be blocked. */
  TerminateProcess(GetCurrentProcess(), 1);
}

void wait_for(char const* what, BOOL (*condition)(void* context), void* context) {
  ULONGLONG const start = GetTickCount64();
  while (!condition(context)) {
    if (GetTickCount64() - start > patience_ms) {
      give_up(what);
    }
    Sleep(2);
  }
}

/* For a child by its class and text, or for a dialog by its owner. */
typedef struct {
  wchar_t const* kind;
  wchar_t const* text;
  HWND owner;
  HWND found;
} window_search;

static BOOL CALLBACK on_child(HWND window, LPARAM context) {
  window_search* const search = (window_search*)context;
  wchar_t kind[64] = L"";
  wchar_t text[256] = L"";
  GetClassNameW(window, kind, 64);
  if (_wcsicmp(kind, search->kind) != 0 || !IsWindowVisible(window)) return TRUE;
  DWORD_PTR length = 0;
  if (SendMessageTimeoutW(window, WM_GETTEXT, 256, (LPARAM)text, SMTO_NORMAL, patience_ms,
                          &length) == 0 &&
      GetLastError() == ERROR_TIMEOUT) {
    give_up("an answer from the thread of the form");
  }
  if (search->text != NULL && wcscmp(text, search->text) != 0) return TRUE;
  search->found = window;
  return FALSE;
}

HWND find_child(HWND form, wchar_t const* kind, wchar_t const* text) {
  window_search search = {.kind = kind, .text = text};
  EnumChildWindows(form, on_child, (LPARAM)&search);
  return search.found;
}

HWND find_button(HWND form, button which) {
  static wchar_t const* const captions[][2] = {
      {L"Apply", L"\u041f\u0440\u0438\u043c\u0435\u043d\u0438\u0442\u044c"},
      {L"Cancel", L"\u041e\u0442\u043c\u0435\u043d\u0438\u0442\u044c"},
      {L"Load", L"\u0417\u0430\u0433\u0440\u0443\u0437\u0438\u0442\u044c"}};
  BOOL const russian = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_RUSSIAN;
  return find_child(form, L"Button", captions[which][russian ? 1 : 0]);
}

DWORD host_process;

/* Message boxes have no such button. */
static BOOL CALLBACK on_window(HWND window, LPARAM context) {
  window_search* const search = (window_search*)context;
  DWORD process = 0;
  wchar_t kind[64] = L"";
  GetWindowThreadProcessId(window, &process);
  GetClassNameW(window, kind, 64);
  if (process != (host_process == 0 ? GetCurrentProcessId() : host_process) ||
      !IsWindowVisible(window) || !IsWindowEnabled(window) || wcscmp(kind, L"#32770") != 0) {
    return TRUE;
  }
  BOOL const fits = search->owner == NULL ? find_button(window, apply_button) != NULL
                                          : GetWindow(window, GW_OWNER) == search->owner;
  if (fits) search->found = window;
  return !fits;
}

HWND find_dialog(HWND owner) {
  window_search search = {.owner = owner};
  EnumWindows(on_window, (LPARAM)&search);
  return search.found;
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
  DWORD_PTR result = 0;
  CHECK(edit != NULL);
  if (SendMessageTimeoutW(edit, WM_SETTEXT, 0, (LPARAM)typed, SMTO_NORMAL, patience_ms, &result) ==
      0) {
    give_up("an edit to take its text");
  }
}

void script_apply(HWND form) { press(form, apply_button); }
void script_cancel(HWND form) { press(form, cancel_button); }
void script_type(HWND form) {
  type_text(form, L"37.5", L"38.25");
  press(form, apply_button);
}

typedef struct {
  script body;
  LONG volatile returned;
} user;

static BOOL has_returned(void* context) { return ((user*)context)->returned != 0; }

static DWORD WINAPI play(void* context) {
  user* const self = context;
  HWND const form = wait_for_dialog(NULL);
  self->body(form);
  wait_until_closed(form);
  wait_for("the end of the call", has_returned, self);
  return 0;
}

/* Handles messages that the other thread sends. Posted ones stay for the test. */
static void join(HANDLE thread) {
  MSG message;
  while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_SENDMESSAGE) != WAIT_OBJECT_0) {
    PeekMessageW(&message, NULL, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
  CloseHandle(thread);
}

outcome run_form(HWND owner, char const* definition, script body) {
  execute_function const execute = find_function();
  user player = {body, 0};
  unsigned char changed = 7;
  HANDLE const thread = CreateThread(NULL, 0, play, &player, 0, NULL);
  outcome result = {.address = execute(owner, definition, &changed)};
  InterlockedExchange(&player.returned, 1);
  join(thread);
  CHECK(result.address != NULL);
  CHECK(changed <= 1);
  (void)snprintf(result.text, sizeof result.text, "%s", result.address);
  result.changed = changed;
  return result;
}

void test_check_outcome(outcome result, char const* text, int changed, char const* file, int line) {
  test_check_text(result.text, text, file, line, "the result");
  test_check(result.changed == changed, file, line, "the flag is %d", changed);
}
