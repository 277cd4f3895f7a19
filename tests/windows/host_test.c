/* The library as a foreign host sees it: loaded at run time by a program in
   plain C and worked through window messages alone.

   usage: host_test          every case, each in a process of its own
          host_test CASE     one case
          host_test --hold NAME
                             opens the form, tells so by the event NAME_open, and
                             applies it at the event NAME_go */
#include <stdio.h>
#include <string.h>
#include <wchar.h>

#include "host_support.h"

#define ZU_CASE(name) void name(void);
#include "host_cases.h"
#undef ZU_CASE

int hold_form(char const* name);

typedef struct {
  char const* name;
  void (*body)(void);
} test_case;

static test_case const cases[] = {
#define ZU_CASE(name) {#name, name},
#include "host_cases.h"
#undef ZU_CASE
};
enum { case_count = sizeof cases / sizeof cases[0] };

static int run_here(test_case const* which) {
  which->body();
  int const good = test_failures() == 0;
  (void)printf("%s: %s\n%d passed, %d failed\n", which->name, good ? "passed" : "failed", good,
               !good);
  (void)fflush(stdout);
  return good ? 0 : 1;
}

static int run_apart(test_case const* which) {
  wchar_t program[MAX_PATH];
  wchar_t command[2 * MAX_PATH];
  GetModuleFileNameW(NULL, program, MAX_PATH);
  (void)swprintf(command, sizeof command / sizeof *command, L"\"%ls\" %hs", program, which->name);
  STARTUPINFOW start = {.cb = sizeof start};
  PROCESS_INFORMATION process;
  DWORD status = 1;
  if (!CreateProcessW(program, command, NULL, NULL, TRUE, 0, NULL, NULL, &start, &process)) {
    (void)printf("%s: failed, no process: error %lu\n", which->name, GetLastError());
    return 1;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  /* A case that crashed has not said so. */
  if (status > 1) (void)printf("%s: failed, exit code 0x%lx\n", which->name, status);
  return status == 0 ? 0 : 1;
}

int main(int count, char** arguments) {
  if (count == 3 && strcmp(arguments[1], "--hold") == 0) return hold_form(arguments[2]);
  int failed = 0;
  for (int i = 0; i < case_count; ++i) {
    if (count == 1) {
      failed += run_apart(&cases[i]);
    } else if (count == 2 && strcmp(arguments[1], cases[i].name) == 0) {
      return run_here(&cases[i]);
    }
  }
  if (count != 1) {
    (void)printf("host_test: error: no such case\n");
    return 2;
  }
  (void)printf("%d passed, %d failed\n", case_count - failed, failed);
  return failed == 0 ? 0 : 1;
}
