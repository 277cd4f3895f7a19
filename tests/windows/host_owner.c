/* The host's windows while the form is open, and after. */
#include <stdio.h>
#include <string.h>
#include <wchar.h>

#include "host_support.h"

enum { message_act = WM_APP + 1 };

static HWND host;
static HWND other;

/* ---- the order of things at the end of the form */

enum { host_disabled = 'd', host_enabled = 'e', form_hidden = 'h' };
static char events[64];
static HWND watched_form;

static void note(char event) {
  size_t const length = strlen(events);
  /* A form that hides says so more than once. */
  if (length + 1 < sizeof events && (length == 0 || events[length - 1] != event)) {
    events[length] = event;
    events[length + 1] = 0;
  }
}

static LRESULT CALLBACK on_sent(int code, WPARAM own, LPARAM context) {
  CWPSTRUCT const* const sent = (CWPSTRUCT const*)context;
  if (code == HC_ACTION) {
    if (sent->hwnd == host && sent->message == WM_ENABLE) {
      note(sent->wParam ? host_enabled : host_disabled);
    }
    BOOL const hides = (sent->message == WM_SHOWWINDOW && !sent->wParam) ||
                       (sent->message == WM_WINDOWPOSCHANGING &&
                        (((WINDOWPOS const*)sent->lParam)->flags & SWP_HIDEWINDOW) != 0);
    if (watched_form != NULL && sent->hwnd == watched_form && hides) note(form_hidden);
  }
  return CallNextHookEx(NULL, code, own, context);
}

static void script_watch(HWND form) {
  watched_form = form;
  CHECK(!IsWindowEnabled(host));
  press(form, apply_button);
}

void owner_takes_input_again_before_the_form_hides(void) {
  host = open_host();
  HHOOK const hook = SetWindowsHookExW(WH_CALLWNDPROC, on_sent, NULL, GetCurrentThreadId());
  (void)run_form(host, MOSCOW_TM("37.5"), script_watch);
  UnhookWindowsHookEx(hook);
  char const expected[] = {host_disabled, host_enabled, form_hidden, 0};
  CHECK_TEXT(events, expected);
  CHECK(IsWindowEnabled(host));
  CHECK(GetActiveWindow() == host);
  CHECK(GetForegroundWindow() == host);
}

void owner_that_took_no_input_never_does(void) {
  host = open_host();
  EnableWindow(host, FALSE);
  HHOOK const hook = SetWindowsHookExW(WH_CALLWNDPROC, on_sent, NULL, GetCurrentThreadId());
  (void)run_form(host, MOSCOW_TM("37.5"), script_apply);
  UnhookWindowsHookEx(hook);
  CHECK_TEXT(events, "");
  CHECK(!IsWindowEnabled(host));
}

void owner_gets_the_focus_back(void) {
  host = open_host();
  for (int id = 1; id <= 3; ++id) {
    HWND const control = GetDlgItem(host, id);
    SetFocus(control);
    CHECK(GetFocus() == control);
    (void)run_form(host, MOSCOW_TM("37.5"), id == 2 ? script_apply : script_cancel);
    pump();
    CHECK(GetFocus() == control);
  }
}

/* ---- which window owns the form */

static HWND seen_owner;

static void script_see_owner(HWND form) {
  seen_owner = GetWindow(form, GW_OWNER);
  press(form, cancel_button);
}

void owner_is_the_hosts_top_level_window(void) {
  host = open_host();
  (void)run_form(host, NULL, script_see_owner);
  CHECK(seen_owner == host);
  /* A control's handle will do. */
  (void)run_form(GetDlgItem(host, 2), NULL, script_see_owner);
  CHECK(seen_owner == host);
  CHECK(IsWindowEnabled(host) && IsWindowEnabled(GetDlgItem(host, 2)));
}

void owner_may_be_no_window(void) {
  HWND const gone = open_host();
  DestroyWindow(gone);
  HWND const handles[] = {NULL, gone, (HWND)(INT_PTR)0x12345, (HWND)(INT_PTR)-1,
                          GetDesktopWindow()};
  for (size_t i = 0; i < sizeof handles / sizeof handles[0]; ++i) {
    CHECK_TEXT(run_form(handles[i], PULKOVO_ZONE_7, script_see_owner).text, PULKOVO_ZONE_7);
    CHECK(seen_owner == NULL || seen_owner == GetDesktopWindow());
  }
  CHECK(IsWindowEnabled(GetDesktopWindow()));
}

/* ---- an owner that goes */

static BOOL destroy_at_request(HWND window, UINT message) {
  if (window != host || message != message_act) return FALSE;
  DestroyWindow(window);
  return TRUE;
}

static void script_destroy_owner(HWND form) {
  type_text(form, L"37.5", L"38.25");
  PostMessageW(host, message_act, 0, 0);
}

static void script_destroy_owner_under_message(HWND form) {
  type_text(form, L"55.5", L"91");
  press(form, apply_button);
  (void)wait_for_message(form);
  PostMessageW(host, message_act, 0, 0);
}

static void check_destroyed_owner(script body) {
  for (int i = 0; i < 3; ++i) {
    host = open_host();
    host_hook = destroy_at_request;
    CHECK_OUTCOME(run_form(host, MOSCOW_TM("37.5"), body), MOSCOW_TM("37.5"), 0);
    CHECK(!IsWindow(host));
    CHECK(find_form() == NULL);
  }
  /* Nothing is left of it. */
  host = open_host();
  host_hook = NULL;
  CHECK_NUMBER(run_form(host, MOSCOW_TM("37.5"), script_apply).changed, 1);
  CHECK(IsWindowEnabled(host));
}

void owner_may_be_destroyed_meanwhile(void) { check_destroyed_owner(script_destroy_owner); }

void owner_may_be_destroyed_under_a_message(void) {
  check_destroyed_owner(script_destroy_owner_under_message);
}

/* ---- the host's other windows */

static void script_see_others(HWND form) {
  CHECK(!IsWindowEnabled(host));
  CHECK(!IsWindowEnabled(other));
  press(form, apply_button);
}

void other_windows_take_no_input_meanwhile(void) {
  host = open_host();
  other = open_host();
  HWND const disabled = open_host();
  EnableWindow(disabled, FALSE);
  /* With an owner among them and without one. */
  HWND const owners[] = {host, NULL};
  for (int i = 0; i < 2; ++i) {
    (void)run_form(owners[i], MOSCOW_TM("37.5"), script_see_others);
    CHECK(IsWindowEnabled(host));
    CHECK(IsWindowEnabled(other));
    CHECK(!IsWindowEnabled(disabled));
  }
}
