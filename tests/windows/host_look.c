/* How the form looks, and that the host's own windows look as before. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

#include "host_support.h"

static HWND host;

/* ---- resolution */

static void script_see_awareness(HWND form) {
  CHECK(AreDpiAwarenessContextsEqual(GetWindowDpiAwarenessContext(form),
                                     GetWindowDpiAwarenessContext(host)));
  CHECK_NUMBER(GetDpiForWindow(form), GetDpiForWindow(host));
  press(form, apply_button);
}

void awareness_of_the_resolution_is_the_hosts(void) {
  DPI_AWARENESS_CONTEXT const contexts[] = {
      GetThreadDpiAwarenessContext(), DPI_AWARENESS_CONTEXT_UNAWARE,
      DPI_AWARENESS_CONTEXT_SYSTEM_AWARE, DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE};
  for (size_t i = 0; i < sizeof contexts / sizeof contexts[0]; ++i) {
    if (i > 0) CHECK(SetThreadDpiAwarenessContext(contexts[i]) != NULL);
    host = open_host();
    UINT const dpi = GetDpiForSystem();
    (void)run_form(host, MOSCOW_TM("37.5"), script_see_awareness);
    CHECK(AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(), contexts[i]));
    CHECK(AreDpiAwarenessContextsEqual(GetWindowDpiAwarenessContext(host), contexts[i]));
    CHECK_NUMBER(GetDpiForSystem(), dpi);
  }
}

typedef struct {
  HWND form;
  RECT area;
  int outside;
} child_places;

static BOOL CALLBACK on_child(HWND window, LPARAM context) {
  child_places* const places = (child_places*)context;
  if (!IsWindowVisible(window)) return TRUE;
  RECT place;
  RECT common;
  GetWindowRect(window, &place);
  MapWindowPoints(NULL, places->form, (POINT*)&place, 2);
  IntersectRect(&common, &place, &places->area);
  places->outside += !EqualRect(&common, &place);
  return TRUE;
}

static void script_measure(HWND form) {
  int const dpi = (int)GetDpiForWindow(form);
  CHECK_NUMBER(dpi, GetDpiForWindow(host));
  RECT area;
  GetClientRect(form, &area);
  (void)printf("%d dots per inch: %ld x %ld\n", dpi, area.right, area.bottom);
  RECT whole;
  GetWindowRect(form, &whole);
  CHECK(whole.right - whole.left >= MulDiv(600, dpi, 96));
  CHECK(whole.bottom - whole.top >= MulDiv(360, dpi, 96));

  HWND const apply = find_child(form, L"Button", button_caption(apply_button));
  LOGFONTW font = {0};
  CHECK(GetObjectW((HFONT)SendMessageW(apply, WM_GETFONT, 0, 0), sizeof font, &font) != 0);
  NONCLIENTMETRICSW system = {.cbSize = sizeof system};
  CHECK(SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0, (UINT)dpi));
  CHECK(abs(font.lfHeight - system.lfMessageFont.lfHeight) <= 1);

  child_places places = {form, area, 0};
  EnumChildWindows(form, on_child, (LPARAM)&places);
  CHECK_NUMBER(places.outside, 0);
  press(form, cancel_button);
}

void form_has_the_size_of_the_resolution(void) {
  /* Refused where a host is so anyway. */
  (void)SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  CHECK_NUMBER(GetAwarenessFromDpiAwarenessContext(GetThreadDpiAwarenessContext()),
               DPI_AWARENESS_PER_MONITOR_AWARE);
  host = open_host();
  /* Whoever starts this says which resolution it has set. */
  char const* const expected = getenv("ZU_TEST_DPI");
  if (expected != NULL) CHECK_NUMBER(GetDpiForWindow(host), strtol(expected, NULL, 10));
  (void)run_form(host, MOSCOW_TM("37.5"), script_measure);
}

/* ---- the controls' version */

static ULONG_PTR procedure_of(HWND window) { return GetClassLongPtrW(window, GCLP_WNDPROC); }

static HMODULE module_of(ULONG_PTR address) {
  HMODULE module = NULL;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      (wchar_t const*)address, &module);
  return module;
}

static BOOL is_current_controls(ULONG_PTR procedure) {
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(module_of(procedure), path, MAX_PATH);
  (void)printf("buttons of %ls\n", path);
  _wcslwr(path);
  return wcsstr(path, L"microsoft.windows.common-controls_6595b64144ccf1df_6.") != NULL;
}

static void script_look(HWND form) {
  HWND const apply = find_child(form, L"Button", button_caption(apply_button));
  CHECK(is_current_controls(procedure_of(apply)));
  press(form, apply_button);
}

void form_has_the_current_look(void) {
  host = open_host();
  ULONG_PTR const before = procedure_of(GetDlgItem(host, 3));
  HANDLE context_before = NULL;
  HANDLE context_after = NULL;
  CHECK(GetCurrentActCtx(&context_before));
  /* This program asks for no version and has the old one. */
  CHECK(!is_current_controls(before));
  for (int i = 0; i < 2; ++i) (void)run_form(host, MOSCOW_TM("37.5"), script_look);
  CHECK(GetCurrentActCtx(&context_after));
  CHECK(context_after == context_before);
  HWND const later = open_host();
  CHECK(procedure_of(GetDlgItem(later, 3)) == before);
  CHECK(procedure_of(GetDlgItem(host, 3)) == before);
}
