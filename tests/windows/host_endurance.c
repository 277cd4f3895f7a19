/* What a hundred calls leave behind. */
#include <windows.h>
/* After the system's header. */
#include <stdio.h>
#include <tlhelp32.h>

#include "host_support.h"

/* Windows, menus, icons and hooks share the places of user objects. */
typedef enum { handles, user_objects, gdi_objects } object;

static void* make_object(object which) {
  if (which == handles) return CreateEventW(NULL, FALSE, FALSE, NULL);
  if (which == user_objects) return CreateMenu();
  return CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
}

static BOOL end_object(object which, void* handle) {
  if (which == handles) return CloseHandle(handle);
  if (which == user_objects) return DestroyMenu(handle);
  return DeleteObject(handle);
}

/* Wine does not tell how many handles and objects a process has. A new one gets the lowest
   free place. So after many new ones, the highest place minus their number is the number of
   the others. */
static size_t count_objects(object which) {
  enum { made = 6000 };
  static size_t const distances[] = {4, 2, 1};
  static void* objects[made];
  size_t highest = 0;
  for (int i = 0; i < made; ++i) {
    objects[i] = make_object(which);
    CHECK(objects[i] != NULL);
    size_t const place = LOWORD(objects[i]) / distances[which];
    if (place > highest) highest = place;
  }
  for (int i = 0; i < made; ++i) CHECK(end_object(which, objects[i]));
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

static size_t count_threads(void) {
  HANDLE const snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 entry = {.dwSize = sizeof entry};
  size_t count = 0;
  for (BOOL good = Thread32First(snapshot, &entry); good; good = Thread32Next(snapshot, &entry)) {
    count += entry.th32OwnerProcessID == GetCurrentProcessId();
  }
  CloseHandle(snapshot);
  CHECK(count > 0);
  return count;
}

enum { kinds = 5 };
static char const* const names[kinds] = {"handles", "user objects", "GDI objects", "bytes in heaps",
                                         "threads"};
/* The system's caches may grow a little. A leak in every tenth call is more than that. */
static size_t const slack[kinds] = {7, 7, 7, 8 * 1024 - 1, 7};

static void count_all(size_t* counts) {
  counts[0] = count_objects(handles);
  counts[1] = count_objects(user_objects);
  counts[2] = count_objects(gdi_objects);
  counts[3] = count_heap_bytes();
  counts[4] = count_threads();
}

HOST_CASE(hundred_calls_leave_nothing_behind) {
  size_t before[kinds] = {0};
  size_t after[kinds] = {0};
  HWND const host = open_host();
  for (int i = 1; i <= 100; ++i) {
    CHECK_FORM(host, MOSCOW, i % 2 == 0 ? script_apply : script_cancel, MOSCOW, i % 2 == 0);
    if (test_failures() != 0) return;
    if (i != 20 && i != 100) continue;
    pump();
    count_all(i == 20 ? before : after);
  }
  for (int i = 0; i < kinds; ++i) {
    (void)printf("%s: %lu, later %lu\n", names[i], (unsigned long)before[i],
                 (unsigned long)after[i]);
    CHECK(after[i] <= before[i] + slack[i]);
  }
}
