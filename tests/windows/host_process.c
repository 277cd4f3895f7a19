/* The library in the host's process: loading, freeing, several processes. */
#include <stdio.h>
#include <string.h>
#include <wchar.h>

#include "host_support.h"

void library_unloads_without_a_call(void) {
  wchar_t path[MAX_PATH];
  library_path(path, MAX_PATH, L"zu_pj_edit.dll");
  for (int i = 0; i < 3; ++i) {
    HMODULE const module = LoadLibraryW(path);
    CHECK(module != NULL);
    CHECK(GetProcAddress(module, "zu_proj4_form_execute") != NULL);
    CHECK(FreeLibrary(module));
    CHECK(GetModuleHandleW(L"zu_pj_edit.dll") == NULL);
  }
}

void library_may_be_freed_and_loaded_again(void) {
  HWND const host = open_host();
  for (int i = 0; i < 3; ++i) {
    CHECK_NUMBER(run_form(host, MOSCOW_TM("37.5"), script_apply).changed, 1);
    CHECK(FreeLibrary(the_library()->module));
    the_library()->module = NULL;
    /* Whatever of the library's still gets messages has to be there. */
    PostMessageW(host, WM_NULL, 0, 0);
    pump();
    SendMessageW(HWND_BROADCAST, WM_NULL, 0, 0);
  }
  CHECK_NUMBER(run_form(host, MOSCOW_TM("37.5"), script_cancel).changed, 0);
}

/* ---- two hosts at once */

static HANDLE named_event(char const* name, char const* part) {
  char whole[128];
  (void)snprintf(whole, sizeof whole, "%s_%s", name, part);
  return CreateEventA(NULL, TRUE, FALSE, whole);
}

static HANDLE is_open;
static HANDLE may_go;

static void script_hold(HWND form) {
  SetEvent(is_open);
  CHECK(WaitForSingleObject(may_go, patience_ms) == WAIT_OBJECT_0);
  type_text(form, L"37.5", L"38.25");
  press(form, apply_button);
}

int hold_form(char const* name);
int hold_form(char const* name) {
  is_open = named_event(name, "open");
  may_go = named_event(name, "go");
  CHECK_TEXT(run_form(open_host(), MOSCOW_TM("37.5"), script_hold).text, MOSCOW_TM("38.25"));
  return test_failures() == 0 ? 0 : 1;
}

void library_serves_two_hosts_at_once(void) {
  enum { count = 2 };
  HANDLE open[count];
  HANDLE go[count];
  HANDLE processes[count];
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(NULL, program, MAX_PATH);
  for (int i = 0; i < count; ++i) {
    char name[64];
    wchar_t command[2 * MAX_PATH];
    (void)snprintf(name, sizeof name, "zu_host_%lu_%d", GetCurrentProcessId(), i);
    open[i] = named_event(name, "open");
    go[i] = named_event(name, "go");
    (void)swprintf(command, sizeof command / sizeof *command, L"\"%ls\" --hold %hs", program, name);
    STARTUPINFOW start = {.cb = sizeof start};
    PROCESS_INFORMATION process = {0};
    CHECK(CreateProcessW(program, command, NULL, NULL, TRUE, 0, NULL, NULL, &start, &process));
    CloseHandle(process.hThread);
    processes[i] = process.hProcess;
  }
  CHECK(WaitForMultipleObjects(count, open, TRUE, patience_ms) == WAIT_OBJECT_0);
  for (int i = 0; i < count; ++i) SetEvent(go[i]);
  CHECK(WaitForMultipleObjects(count, processes, TRUE, patience_ms) == WAIT_OBJECT_0);
  for (int i = 0; i < count; ++i) {
    DWORD status = 1;
    CHECK(GetExitCodeProcess(processes[i], &status));
    CHECK_NUMBER(status, 0);
    CloseHandle(processes[i]);
    CloseHandle(open[i]);
    CloseHandle(go[i]);
  }
}

void library_bears_its_version(void) {
  wchar_t path[MAX_PATH];
  library_path(path, MAX_PATH, L"zu_pj_edit.dll");
  static char data[4096];
  DWORD none = 0;
  DWORD const size = GetFileVersionInfoSizeW(path, &none);
  CHECK(size > 0 && size <= sizeof data);
  CHECK(GetFileVersionInfoW(path, 0, sizeof data, data));
  VS_FIXEDFILEINFO* numbers = NULL;
  wchar_t* text = NULL;
  UINT length = 0;
  CHECK(VerQueryValueW(data, L"\\", (void**)&numbers, &length));
  if (numbers != NULL) {
    DWORD const high = ZU_PJ_EDIT_VERSION_MAJOR << 16 | ZU_PJ_EDIT_VERSION_MINOR;
    DWORD const low = ZU_PJ_EDIT_VERSION_PATCH << 16;
    CHECK_NUMBER(numbers->dwFileVersionMS, high);
    CHECK_NUMBER(numbers->dwFileVersionLS, low);
    CHECK_NUMBER(numbers->dwProductVersionMS, high);
    CHECK_NUMBER(numbers->dwProductVersionLS, low);
  }
  static wchar_t const* const names[] = {L"\\StringFileInfo\\040904b0\\FileVersion",
                                         L"\\StringFileInfo\\040904b0\\ProductVersion"};
  for (int i = 0; i < 2; ++i) {
    CHECK(VerQueryValueW(data, names[i], (void**)&text, &length));
    char narrow[64] = "";
    if (text != NULL) (void)snprintf(narrow, sizeof narrow, "%ls", text);
    CHECK_TEXT(narrow, ZU_PJ_EDIT_VERSION);
  }
}
