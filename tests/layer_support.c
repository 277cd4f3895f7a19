#include "layer_support.h"

#include <stdio.h>
#include <string.h>
#include <wchar.h>

static int failures = 0;

void layer_check(int holds, char const* what, char const* file, int line) {
  if (holds) return;
  ++failures;
  (void)fprintf(stderr, "%s:%d: %s\n", file, line, what);
}

int layer_result(void) { return failures == 0 ? 0 : 1; }

int layer_same(char const* left, char const* right) {
  return left != NULL && right != NULL && strcmp(left, right) == 0;
}

int layer_same_wide(wchar_t const* left, wchar_t const* right) {
  return left != NULL && right != NULL && wcscmp(left, right) == 0;
}

enum { capacity = 4096 };

typedef struct {
  int count;
  int has_narrow;
  int has_wide;
  char narrow[capacity];
  wchar_t wide[capacity];
} receiver;

static receiver received;

static void receive_narrow(char const* text, void* context) {
  receiver* const to = context;
  CHECK(strlen(text) < capacity);
  (void)snprintf(to->narrow, capacity, "%s", text);
  to->has_narrow = 1;
  ++to->count;
}

static void receive_wide(wchar_t const* text, void* context) {
  receiver* const to = context;
  CHECK(wcslen(text) < capacity);
  wcsncpy(to->wide, text, capacity - 1);
  to->has_wide = 1;
  ++to->count;
}

Izu_string_adp* layer_adapter(void) {
  static Izu_string_adp* adapter = NULL;
  if (adapter == NULL) adapter = zu_string_adp_create(&receive_narrow, &receive_wide, &received);
  memset(&received, 0, sizeof received);
  return adapter;
}

char const* layer_received_narrow(void) { return received.has_narrow ? received.narrow : NULL; }
wchar_t const* layer_received_wide(void) { return received.has_wide ? received.wide : NULL; }
int layer_received_count(void) { return received.count; }
