/* Loading and freeing the library, its threads and its version. */
#include <windows.h>
/* After the system's header. */
#include <tlhelp32.h>

#include "host_support.h"

HOST_CASE(library_unloads_without_a_call) {
  wchar_t path[MAX_PATH];
  library_path(path, library_name);
  for (int i = 0; i < 3; ++i) {
    HMODULE const module = LoadLibraryW(path);
    CHECK(GetProcAddress(module, "zu_proj4_form_execute") != NULL);
    CHECK(FreeLibrary(module));
    CHECK(GetModuleHandleW(library_name) == NULL);
  }
}

HOST_CASE(library_may_be_freed_and_loaded_again) {
  HWND const host = open_host();
  for (int i = 0; i < 3; ++i) {
    CHECK_FORM(host, MOSCOW, script_apply, MOSCOW, 1);
    CHECK(FreeLibrary(library));
    library = NULL;
    /* Code of the library that still gets messages must be in memory. */
    PostMessageW(host, WM_NULL, 0, 0);
    pump();
    SendMessageW(HWND_BROADCAST, WM_NULL, 0, 0);
  }
  CHECK_FORM(host, MOSCOW, script_cancel, MOSCOW, 0);
}

static int count_threads(void) {
  HANDLE const snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 entry = {.dwSize = sizeof entry};
  int count = 0;
  for (BOOL good = Thread32First(snapshot, &entry); good; good = Thread32Next(snapshot, &entry)) {
    count += entry.th32OwnerProcessID == GetCurrentProcessId();
  }
  CloseHandle(snapshot);
  return count;
}

/* The system counts a thread that has ended for a moment longer. */
static BOOL are_threads_gone(void* context) { return count_threads() <= *(int*)context; }

HOST_CASE(host_keeps_its_threads) {
  HWND const host = open_host();
  int before = count_threads();
  CHECK(before >= 1);
  for (int i = 0; i < 3; ++i) {
    (void)run_form(host, MOSCOW, script_apply);
    wait_for("the end of the threads", are_threads_gone, &before);
  }
}

HOST_CASE(library_bears_its_version) {
  static char data[4096];
  wchar_t path[MAX_PATH];
  library_path(path, library_name);
  CHECK(GetFileVersionInfoW(path, 0, sizeof data, data));
  VS_FIXEDFILEINFO* numbers = NULL;
  UINT length = 0;
  CHECK(VerQueryValueW(data, L"\\", (void**)&numbers, &length));
  if (numbers == NULL) return;
  CHECK(HIWORD(numbers->dwFileVersionMS) == ZU_PJ_EDIT_VERSION_MAJOR);
  CHECK(LOWORD(numbers->dwFileVersionMS) == ZU_PJ_EDIT_VERSION_MINOR);
  CHECK(HIWORD(numbers->dwFileVersionLS) == ZU_PJ_EDIT_VERSION_PATCH);
}
