/* Hosts with floating-point traps. Pascal sets such traps. */
#include <immintrin.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

#include "host_support.h"

static void script_type_parallel(HWND form) {
  type_text(form, L"70", L"71");
  press(form, apply_button);
}

/* ---- in C */

static HWND host;
static double volatile number;

static BOOL divide(HWND window, UINT message) {
  (void)window;
  if (message != WM_APP) return FALSE;
  number = 0;
  number = 1 / number;
  return TRUE;
}

static void script_divide(HWND form) {
  PostMessageW(host, WM_APP, 0, 0);
  script_type(form);
}

typedef struct {
  unsigned sse;
  unsigned short x87;
} float_control;

static float_control get_control(void) {
  float_control control = {_mm_getcsr(), 0};
  __asm__ volatile("fnstcw %0" : "=m"(control.x87)); /* NOLINT(hicpp-no-assembler) */
  return control;
}

/* Sets traps for invalid operations, divisions by zero and overflows, and rounds down. */
static void set_traps(void) {
  float_control control = get_control();
  control.x87 = (unsigned short)((control.x87 & ~0x0DU) | 0x400U);
  __asm__ volatile("fldcw %0" : : "m"(control.x87)); /* NOLINT(hicpp-no-assembler) */
  _mm_setcsr((control.sse & ~0x680U) | 0x2000U);
}

static LONG volatile divisions;

static LONG CALLBACK on_exception(EXCEPTION_POINTERS* exception) {
  if (exception->ExceptionRecord->ExceptionCode != EXCEPTION_FLT_DIVIDE_BY_ZERO) {
    return EXCEPTION_CONTINUE_SEARCH;
  }
  InterlockedIncrement(&divisions);
  /* The processor repeats the division without a trap. */
  exception->ContextRecord->MxCsr |= 0x1F80U;
  exception->ContextRecord->FltSave.MxCsr |= 0x1F80U;
  return EXCEPTION_CONTINUE_EXECUTION;
}

HOST_CASE(traps_stay_the_hosts) {
  static struct {
    char const* definition;
    script body;
    char const* text;
  } const calls[] = {{SPHERE, script_apply, SPHERE_APPLIED},
                     {POLAR, script_type_parallel, POLAR_TYPED},
                     {MOSCOW, script_divide, MOSCOW_TYPED}};
  host = open_host();
  host_hook = divide;
  set_traps();
  float_control const before = get_control();
  for (size_t i = 0; i < sizeof calls / sizeof calls[0]; ++i) {
    CHECK_FORM(host, calls[i].definition, calls[i].body, calls[i].text, 1);
    float_control const after = get_control();
    CHECK(after.sse == before.sse && after.x87 == before.x87);
  }
  AddVectoredExceptionHandler(1, on_exception);
  SendMessageW(host, WM_APP, 0, 0);
  CHECK(divisions == 1);
}

/* ---- in Pascal, in another process */

// The timer of the Pascal host runs every 50 ms.
enum { ticking_ms = 500 };

HOST_CASE(traps_of_pascal_stay_its_own) {
  static script const scripts[] = {script_type_parallel, script_cancel, script_apply};
  wchar_t command[1024];
  wchar_t path[MAX_PATH];
  char output[1024] = "";
  DWORD length = 0;
  DWORD part = 0;
  DWORD status = 1;
  HANDLE pipe[2] = {NULL};
  SECURITY_ATTRIBUTES inherited = {.nLength = sizeof inherited, .bInheritHandle = TRUE};
  CHECK(CreatePipe(&pipe[0], &pipe[1], &inherited, 0));
  STARTUPINFOW start = {.cb = sizeof start,
                        .dwFlags = STARTF_USESTDHANDLES,
                        .hStdOutput = pipe[1],
                        .hStdError = pipe[1]};
  PROCESS_INFORMATION process = {.hProcess = NULL};
  library_path(path, L"zu_sample_pascal.exe");
  (void)swprintf(command, 1024, L"\"%ls\" --times 3 \"" POLAR "\"", path);
  CHECK(CreateProcessW(path, command, NULL, NULL, TRUE, 0, NULL, NULL, &start, &process));
  CloseHandle(pipe[1]);
  host_process = process.dwProcessId;
  for (size_t i = 0; i < sizeof scripts / sizeof scripts[0]; ++i) {
    HWND const form = wait_for_dialog(NULL);
    Sleep(ticking_ms);
    scripts[i](form);
    wait_until_closed(form);
  }
  CHECK(WaitForSingleObject(process.hProcess, patience_ms) == WAIT_OBJECT_0);
  CHECK(GetExitCodeProcess(process.hProcess, &status) && status == 0);
  while (length < sizeof output - 1 &&
         ReadFile(pipe[0], output + length, sizeof output - 1 - length, &part, NULL)) {
    length += part;
  }
  char const* rest = output;
  for (size_t i = 0; i < sizeof scripts / sizeof scripts[0]; ++i) {
    char const* const result = i == 1 ? "after: " POLAR_TYPED "\r\nchanged: 0\r\nticks: "
                                      : "after: " POLAR_TYPED "\r\nchanged: 1\r\nticks: ";
    CHECK((rest = strstr(rest, result)) != NULL);
    rest += strlen(result);
    CHECK(strtol(rest, NULL, 10) > 0);
  }
  CHECK(strstr(output, "mask") == NULL);
  CHECK(strstr(rest, "EZeroDivide\r\nEDivByZero\r\n") != NULL);
}
