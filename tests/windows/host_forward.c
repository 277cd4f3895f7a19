/* The wide entry point and the host's editor module. */
#include <stdio.h>
#include <string.h>
#include <wchar.h>

#include "editor_module.h"
#include "host_guard.h"
#include "host_support.h"

#define FIRST ((void*)0x0123456789ABCDEF)
#define SECOND ((void*)0xFEDCBA9876543210)

static HMODULE load_module(wchar_t const* folder) {
  wchar_t name[64];
  wchar_t path[MAX_PATH];
  (void)swprintf(name, 64, L"%ls\\zuk_scene2d_editor_bdl.dll", folder);
  library_path(path, MAX_PATH, name);
  HMODULE const module = LoadLibraryW(path);
  CHECK(module != NULL);
  return module;
}

static editor_record const* record_of(HMODULE module) {
  editor_record_function const function =
      (editor_record_function)(void (*)(void))GetProcAddress(module, "editor_module_record");
  CHECK(function != NULL);
  return function == NULL ? NULL : function();
}

void forward_without_the_module_gives_null(void) {
  HWND const host = open_host();
  CHECK(the_library()->execute_w(host, FIRST, SECOND) == NULL);
  CHECK(the_library()->execute_w(NULL, NULL, NULL) == NULL);
  /* It loads none either, though there is one to be found. */
  wchar_t folder[MAX_PATH];
  library_path(folder, MAX_PATH, L"editor_module");
  CHECK(SetDllDirectoryW(folder));
  CHECK(the_library()->execute_w(host, FIRST, SECOND) == NULL);
  CHECK(GetModuleHandleW(L"zuk_scene2d_editor_bdl.dll") == NULL);
}

void forward_hands_over_what_it_got(void) {
  HWND const host = open_host();
  HMODULE const module = load_module(L"editor_module");
  editor_record const* const record = record_of(module);
  HWND const owners[] = {host, NULL};
  for (int i = 0; i < 2; ++i) {
    CHECK(the_library()->execute_w(owners[i], FIRST, SECOND) == (void*)EDITOR_RESULT);
    CHECK_NUMBER(record->calls, i + 1);
    CHECK(record->window == NULL);
    CHECK(record->first == FIRST);
    CHECK(record->second == SECOND);
  }
  CHECK(IsWindowEnabled(host));
  FreeLibrary(module);
  CHECK(the_library()->execute_w(host, FIRST, SECOND) == NULL);
}

void forward_without_the_function_gives_null(void) {
  HMODULE const module = load_module(L"editor_module_bare");
  CHECK(the_library()->execute_w(NULL, FIRST, SECOND) == NULL);
  CHECK_NUMBER(record_of(module)->calls, 0);
  FreeLibrary(module);
}

static void call_raising(void* owner) {
  (void)the_library()->execute_w(owner, FIRST, (void*)editor_raises_code);
}

static void call_quiet(void* owner) { (void)the_library()->execute_w(owner, FIRST, SECOND); }

void forward_lets_system_exceptions_through(void) {
  HWND const host = open_host();
  HMODULE const module = load_module(L"editor_module");
  for (int i = 1; i <= 3; ++i) {
    CHECK_NUMBER(call_guarded(call_raising, host), EDITOR_CODE);
    CHECK_NUMBER(record_of(module)->calls, 2 * i - 1);
    CHECK_NUMBER(call_guarded(call_quiet, host), 0);
  }
  CHECK(IsWindowEnabled(host));
  CHECK_NUMBER(run_form(host, MOSCOW_TM("37.5"), script_apply).changed, 1);
  FreeLibrary(module);
}
