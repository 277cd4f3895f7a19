/* Loading and freeing the library. */
#include "host_support.h"

HOST_CASE(library_may_be_freed_and_loaded_again) {
  for (int i = 0; i < 3; ++i) {
    CHECK(FreeLibrary(LoadLibraryW(library_name)));
    CHECK(GetModuleHandleW(library_name) == NULL);
  }
  HWND const host = open_host();
  for (int i = 0; i < 3; ++i) {
    CHECK_FORM(host, MOSCOW, script_apply, MOSCOW, 1);
    CHECK(FreeLibrary(GetModuleHandleW(library_name)));
    /* Code of the library that still gets messages must be in memory. */
    PostMessageW(host, WM_NULL, 0, 0);
    pump();
    SendMessageW(HWND_BROADCAST, WM_NULL, 0, 0);
  }
  CHECK_FORM(host, MOSCOW, script_cancel, MOSCOW, 0);
}
