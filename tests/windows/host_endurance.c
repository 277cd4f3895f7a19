/* What a thousand calls leave behind. */
#include <stdio.h>
#include <string.h>
#include <windows.h>

#include "host_support.h"

typedef struct {
  int handles;
  int gdi;
  int user;
  int windows;
  size_t heaps;
  size_t memory;
} usage;

/* Wine tells none of the three counts that Windows has. There a new handle takes
   the lowest place that is free but for those given back: when more are made
   than were ever given back, the highest place tells how many there are
   besides. */

static int count_handles(void) {
  DWORD told = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &told) && told != 0) return (int)told;
  enum { made = 1000 };
  static HANDLE events[made];
  int highest = 0;
  for (int i = 0; i < made; ++i) {
    events[i] = CreateEventW(NULL, FALSE, FALSE, NULL);
    CHECK(events[i] != NULL);
    int const place = (int)((ULONG_PTR)events[i] / 4);
    if (place > highest) highest = place;
  }
  for (int i = 0; i < made; ++i) CloseHandle(events[i]);
  return highest - made;
}

/* Windows, menus, icons and hooks share the places. */
static int count_user_objects(void) {
  DWORD const told = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
  if (told != 0) return (int)told;
  enum { made = 6000 };
  static HMENU menus[made];
  int highest = 0;
  for (int i = 0; i < made; ++i) {
    menus[i] = CreateMenu();
    CHECK(menus[i] != NULL);
    int const place = (LOWORD((ULONG_PTR)menus[i]) - 0x20) / 2;
    if (place > highest) highest = place;
  }
  for (int i = 0; i < made; ++i) DestroyMenu(menus[i]);
  return highest + 1 - made;
}

/* The table of these lies where that of Windows once did. */
static int count_gdi_objects(void) {
  DWORD const told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  if (told != 0) return (int)told;
  enum { entries = 0x10000, entry_size = 24, type_offset = 14, table_offset = 0xF8 };
  typedef char const*(WINAPI * function)(void);
  function const process_block =
      (function)(void (*)(void))GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
  unsigned char const* const table = *(unsigned char const* const*)(process_block() + table_offset);
  CHECK(table != NULL);
  if (table == NULL) return 0;
  int count = 0;
  for (int i = 0; i < entries; ++i) count += table[i * entry_size + type_offset] != 0;
  return count;
}

/* What is allocated in the heaps that modules have made, such as the language
   run-time's. The process's first one is the system's: Wine's labels with a font
   leave 24 bytes there each, 600 a call. */
static size_t count_heap_bytes(void) {
  HANDLE heaps[64];
  DWORD const count = GetProcessHeaps(64, heaps);
  CHECK(count > 0 && count <= 64);
  size_t bytes = 0;
  for (DWORD i = 0; i < count && i < 64; ++i) {
    if (heaps[i] == GetProcessHeap()) continue;
    PROCESS_HEAP_ENTRY entry = {.lpData = NULL};
    HeapLock(heaps[i]);
    while (HeapWalk(heaps[i], &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    }
    HeapUnlock(heaps[i]);
  }
  CHECK(bytes > 0);
  return bytes;
}

/* What this process alone has of the memory. */
static size_t count_private_bytes(void) {
  MEMORY_BASIC_INFORMATION region;
  size_t bytes = 0;
  for (char const* at = NULL; VirtualQuery(at, &region, sizeof region) != 0;
       at = (char const*)region.BaseAddress + region.RegionSize) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += region.RegionSize;
  }
  CHECK(bytes > 0);
  return bytes;
}

static BOOL CALLBACK count_window(HWND window, LPARAM context) {
  (void)window;
  ++*(int*)context;
  return TRUE;
}

static usage measure(int calls) {
  pump();
  usage result = {.handles = count_handles(),
                  .gdi = count_gdi_objects(),
                  .user = count_user_objects(),
                  .heaps = count_heap_bytes(),
                  .memory = count_private_bytes()};
  EnumThreadWindows(GetCurrentThreadId(), count_window, (LPARAM)&result.windows);
  (void)printf(
      "%4d calls: %d handles, %d GDI objects, %d user objects, %d windows, %lu KiB in heaps, %lu "
      "KiB of memory\n",
      calls, result.handles, result.gdi, result.user, result.windows,
      (unsigned long)(result.heaps / 1024), (unsigned long)(result.memory / 1024));
  (void)fflush(stdout);
  return result;
}

void thousand_calls_leave_nothing_behind(void) {
  HWND const host = open_host();
  usage first = {0};
  usage last = {0};
  for (int i = 1; i <= 1000; ++i) {
    CHECK_OUTCOME(run_form(host, MOSCOW_TM("37.5"), i % 2 == 0 ? script_apply : script_cancel),
                  MOSCOW_TM("37.5"), i % 2 == 0);
    if (test_failures() != 0) return;
    if (i == 20) first = measure(i);
    if (i == 100 || i == 500 || i == 1000) last = measure(i);
  }
  /* Caches of the system's fill up by a few; one in a hundred calls is more. */
  CHECK(last.handles < first.handles + 9);
  CHECK(last.gdi < first.gdi + 9);
  CHECK(last.user < first.user + 9);
  CHECK(last.windows <= first.windows);
  /* Less than a few dozen bytes a call, and than two kilobytes. */
  CHECK(last.heaps < first.heaps + 32ULL * 1024);
  CHECK(last.memory < first.memory + 2000ULL * 1024);
}
