/* What a hundred calls leave behind. */
#include <stdio.h>

#include "host_support.h"

/* Wine does not tell how many handles and objects a process has. A new one gets the lowest
   free place. So after many new ones, the highest place minus their number is the number of
   the others. */
enum { made = 6000 };

static size_t count_handles(void) {
  static HANDLE events[made];
  size_t highest = 0;
  for (int i = 0; i < made; ++i) {
    events[i] = CreateEventW(NULL, FALSE, FALSE, NULL);
    CHECK(events[i] != NULL);
    if ((size_t)events[i] / 4 > highest) highest = (size_t)events[i] / 4;
  }
  for (int i = 0; i < made; ++i) CloseHandle(events[i]);
  return highest - made;
}

/* Windows, menus, icons and hooks share the places. */
static size_t count_user_objects(void) {
  static HMENU menus[made];
  size_t highest = 0;
  for (int i = 0; i < made; ++i) {
    menus[i] = CreateMenu();
    CHECK(menus[i] != NULL);
    if (LOWORD(menus[i]) / 2U > highest) highest = LOWORD(menus[i]) / 2U;
  }
  for (int i = 0; i < made; ++i) DestroyMenu(menus[i]);
  return highest - made;
}

static size_t count_gdi_objects(void) {
  static HPEN pens[made];
  size_t highest = 0;
  for (int i = 0; i < made; ++i) {
    pens[i] = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    CHECK(pens[i] != NULL);
    if (LOWORD(pens[i]) > highest) highest = LOWORD(pens[i]);
  }
  for (int i = 0; i < made; ++i) DeleteObject(pens[i]);
  return highest - made;
}

/* The bytes in the heaps that modules have made, such as the C run-time library. Wine itself
   leaves some in the first heap of the process. */
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

/* The private memory of this process. */
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
  /* The system's caches may grow a little. A leak in every tenth call is more than that. */
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
