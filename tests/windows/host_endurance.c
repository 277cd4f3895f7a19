/* What a hundred calls leave behind. */
#include <stdio.h>

#include "host_support.h"

/* Windows tells these three counts. Wine tells none: they are 0 there. */
static size_t count_handles(void) {
  DWORD count = 0;
  return GetProcessHandleCount(GetCurrentProcess(), &count) ? count : 0;
}

static size_t count_user_objects(void) {
  return GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
}

static size_t count_gdi_objects(void) {
  return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
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
