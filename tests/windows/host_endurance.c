/* What a hundred calls leave behind. */
#include <stdio.h>

#include "host_support.h"

/* Wine tells none of the three counts that Windows has. There a new handle takes
   the lowest place that is free but for those given back: when more are made
   than were ever given back, the highest place tells how many there are
   besides. */

enum { made = 6000 };

static size_t count_handles(void) {
  DWORD told = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &told) && told != 0) return told;
  static HANDLE events[made];
  size_t highest = 0;
  for (int i = 0; i < made; ++i) {
    events[i] = CreateEventW(NULL, FALSE, FALSE, NULL);
    CHECK(events[i] != NULL);
    size_t const place = (size_t)events[i] / 4;
    if (place > highest) highest = place;
  }
  for (int i = 0; i < made; ++i) CloseHandle(events[i]);
  return highest - made;
}

/* Windows, menus, icons and hooks share the places. */
static size_t count_user_objects(void) {
  DWORD const told = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
  if (told != 0) return told;
  static HMENU menus[made];
  size_t highest = 0;
  for (int i = 0; i < made; ++i) {
    menus[i] = CreateMenu();
    CHECK(menus[i] != NULL);
    size_t const place = (LOWORD((ULONG_PTR)menus[i]) - 0x20U) / 2;
    if (place > highest) highest = place;
  }
  for (int i = 0; i < made; ++i) DestroyMenu(menus[i]);
  return highest + 1 - made;
}

/* The table of these lies where that of Windows once did. */
static size_t count_gdi_objects(void) {
  DWORD const told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  if (told != 0) return told;
  enum { entries = 0x10000, entry_size = 24, type_offset = 14, table_offset = 0xF8 };
  typedef char const*(WINAPI * function)(void);
  function const process_block =
      (function)(void (*)(void))GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb");
  unsigned char const* const table = *(unsigned char const* const*)(process_block() + table_offset);
  CHECK(table != NULL);
  if (table == NULL) return 0;
  size_t count = 0;
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

HOST_CASE(hundred_calls_leave_nothing_behind) {
  /* Caches of the system's fill up by a few; one in ten calls is more. Of
     bytes that is some hundred a call in heaps, and twelve thousand in all. */
  static struct {
    char const* what;
    size_t (*count)(void);
    size_t slack;
    size_t first;
  } counts[] = {{"handles", count_handles, 8, 0},
                {"GDI objects", count_gdi_objects, 8, 0},
                {"user objects", count_user_objects, 8, 0},
                {"bytes in heaps", count_heap_bytes, 8 * 1024 - 1, 0},
                {"bytes of memory", count_private_bytes, 1000 * 1024 - 1, 0}};
  HWND const host = open_host();
  for (int i = 1; i <= 100; ++i) {
    CHECK_FORM(host, MOSCOW, i % 2 == 0 ? script_apply : script_cancel, MOSCOW, i % 2 == 0);
    if (test_failures() != 0) return;
    if (i != 20 && i != 100) continue;
    pump();
    for (size_t of = 0; of < sizeof counts / sizeof counts[0]; ++of) {
      size_t const now = counts[of].count();
      if (i == 20) counts[of].first = now;
      (void)printf("%4d calls: %lu %s\n", i, (unsigned long)now, counts[of].what);
      test_check(i < 100 || now <= counts[of].first + counts[of].slack, __FILE__, __LINE__,
                 "no more %s than %lu", counts[of].what, (unsigned long)counts[of].first);
    }
    (void)fflush(stdout);
  }
}
