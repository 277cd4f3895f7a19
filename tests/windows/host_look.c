/* The look of the form. The host's own windows keep theirs. */
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

#include "host_support.h"

static HWND host;

/* ---- resolution */

static void script_see_awareness(HWND form) {
  CHECK(AreDpiAwarenessContextsEqual(GetWindowDpiAwarenessContext(form),
                                     GetWindowDpiAwarenessContext(host)));
  CHECK(GetDpiForWindow(form) == GetDpiForWindow(host));
  press(form, apply_button);
}

HOST_CASE(awareness_of_the_resolution_is_the_hosts) {
  DPI_AWARENESS_CONTEXT const contexts[] = {
      GetThreadDpiAwarenessContext(), DPI_AWARENESS_CONTEXT_UNAWARE,
      DPI_AWARENESS_CONTEXT_SYSTEM_AWARE, DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE};
  for (size_t i = 0; i < sizeof contexts / sizeof contexts[0]; ++i) {
    if (i > 0) CHECK(SetThreadDpiAwarenessContext(contexts[i]) != NULL);
    host = open_host();
    UINT const dpi = GetDpiForSystem();
    CHECK_FORM(host, MOSCOW, script_see_awareness, MOSCOW, 1);
    CHECK(AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(), contexts[i]));
    CHECK(AreDpiAwarenessContextsEqual(GetWindowDpiAwarenessContext(host), contexts[i]));
    CHECK(GetDpiForSystem() == dpi);
  }
}

static BOOL CALLBACK add_child(HWND window, LPARAM context) {
  RECT* const area = (RECT*)context;
  RECT place;
  if (IsWindowVisible(window) && GetWindowRect(window, &place)) UnionRect(area, area, &place);
  return TRUE;
}

static void script_measure(HWND form) {
  UINT const dpi = GetDpiForWindow(form);
  CHECK(dpi == GetDpiForWindow(host));
  RECT whole;
  GetWindowRect(form, &whole);
  /* The design's size and the result line (29). The system's font may need more room. */
  CHECK(abs((int)(whole.right - whole.left) - MulDiv(600, (int)dpi, 96)) <= (dpi == 96 ? 0 : 20));
  CHECK(abs((int)(whole.bottom - whole.top) - MulDiv(360 + 29, (int)dpi, 96)) <=
        (dpi == 96 ? 0 : 20));
  RECT owner;
  GetWindowRect(host, &owner);
  CHECK(abs(whole.left + whole.right - owner.left - owner.right) <= 2);
  CHECK(abs(whole.top + whole.bottom - owner.top - owner.bottom) <= 2);

  HWND const apply = find_button(form, apply_button);
  LOGFONTW font = {0};
  CHECK(GetObjectW((HFONT)SendMessageW(apply, WM_GETFONT, 0, 0), sizeof font, &font) != 0);
  NONCLIENTMETRICSW system = {.cbSize = sizeof system};
  CHECK(SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0, dpi));
  CHECK(abs(font.lfHeight - system.lfMessageFont.lfHeight) <= 1);

  RECT area;
  GetClientRect(form, &area);
  MapWindowPoints(form, NULL, (POINT*)&area, 2);
  RECT with_children = area;
  EnumChildWindows(form, add_child, (LPARAM)&with_children);
  CHECK(EqualRect(&with_children, &area));
  press(form, cancel_button);
}

HOST_CASE(form_has_the_size_of_the_resolution) {
  /* Wine refuses this if the host has it already. */
  (void)SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  CHECK(GetAwarenessFromDpiAwarenessContext(GetThreadDpiAwarenessContext()) ==
        DPI_AWARENESS_PER_MONITOR_AWARE);
  host = open_host();
  /* The form has room over the middle. */
  MoveWindow(host, 400, 300, 500, 400, TRUE);
  /* The caller may tell the expected resolution. */
  char const* const expected = getenv("ZU_TEST_DPI");
  if (expected != NULL) CHECK(GetDpiForWindow(host) == strtoul(expected, NULL, 10));
  CHECK_FORM(host, MOSCOW, script_measure, MOSCOW, 0);
}

/* ---- the controls' version */

static BOOL is_current(HWND control) {
  HMODULE module = NULL;
  wchar_t path[MAX_PATH] = L"";
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      (wchar_t const*)GetClassLongPtrW(control, GCLP_WNDPROC), &module);
  GetModuleFileNameW(module, path, MAX_PATH);
  _wcslwr(path);
  return wcsstr(path, L"microsoft.windows.common-controls_6595b64144ccf1df_6.") != NULL;
}

static void script_look(HWND form) {
  CHECK(is_current(find_button(form, apply_button)));
  press(form, apply_button);
}

HOST_CASE(form_has_the_current_look) {
  HANDLE before = NULL;
  HANDLE after = NULL;
  CHECK(GetCurrentActCtx(&before));
  for (int i = 0; i < 3; ++i) {
    host = open_host();
    /* This program has no manifest and so the old controls, also after a form. */
    CHECK(!is_current(GetDlgItem(host, 3)));
    CHECK_FORM(host, MOSCOW, script_look, MOSCOW, 1);
  }
  CHECK(GetCurrentActCtx(&after) && after == before);
}
