/* A foreign host in plain C. It loads the library at run time and uses the dialog only by
   window messages.

   usage: host_test CASE */
#include <stdio.h>
#include <stdlib.h>

#include "host_support.h"

int main(int count, char** arguments) {
  FARPROC const body = count == 2 ? GetProcAddress(GetModuleHandleW(NULL), arguments[1]) : NULL;
  if (body == NULL) {
    (void)printf("host_test: error: no such case\n");
    return 2;
  }
  /* The caller may tell the expected code page. */
  char const* const page = getenv("ZU_TEST_PAGE");
  if (page != NULL) CHECK(GetACP() == strtoul(page, NULL, 10));
  ((void (*)(void))body)();
  return test_failures() == 0 ? 0 : 1;
}
