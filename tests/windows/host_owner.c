/* The host's windows while the form is open, and after. */
#include "host_support.h"

static HWND host;
static HWND other;

/* ---- the end of the form */

static HWND watched_form;
/* Whether the host's window took input when the form was hidden; -1 before. */
static BOOL enabled_at_hiding;

static LRESULT CALLBACK on_sent(int code, WPARAM own, LPARAM context) {
  CWPSTRUCT const* const sent = (CWPSTRUCT const*)context;
  if (code == HC_ACTION && sent->hwnd == watched_form && sent->message == WM_WINDOWPOSCHANGING &&
      (((WINDOWPOS const*)sent->lParam)->flags & SWP_HIDEWINDOW) != 0 && enabled_at_hiding < 0) {
    enabled_at_hiding = IsWindowEnabled(host);
  }
  return CallNextHookEx(NULL, code, own, context);
}

static void script_watch(HWND form) {
  watched_form = form;
  CHECK(!IsWindowEnabled(host));
  press(form, apply_button);
}

static void check_owner(BOOL enabled) {
  host = open_host();
  EnableWindow(host, enabled);
  enabled_at_hiding = -1;
  HHOOK const hook = SetWindowsHookExW(WH_CALLWNDPROC, on_sent, NULL, GetCurrentThreadId());
  (void)run_form(host, MOSCOW, script_watch);
  UnhookWindowsHookEx(hook);
  CHECK(enabled_at_hiding == enabled);
  CHECK(IsWindowEnabled(host) == enabled);
  CHECK((GetActiveWindow() == host) == enabled);
  CHECK((GetForegroundWindow() == host) == enabled);
}

HOST_CASE(owner_takes_input_again_before_the_form_hides) { check_owner(TRUE); }

HOST_CASE(owner_that_took_no_input_never_does) { check_owner(FALSE); }

HOST_CASE(owner_gets_the_focus_back) {
  host = open_host();
  for (int id = 1; id <= 3; ++id) {
    HWND const control = GetDlgItem(host, id);
    SetFocus(control);
    CHECK(GetFocus() == control);
    (void)run_form(host, MOSCOW, id == 2 ? script_apply : script_cancel);
    pump();
    CHECK(GetFocus() == control);
  }
}

/* ---- the form's owner */

static HWND seen_owner;

static void script_see_owner(HWND form) {
  seen_owner = GetWindow(form, GW_OWNER);
  CHECK(!IsWindowEnabled(host));
  CHECK(!IsWindowEnabled(other));
  press(form, cancel_button);
}

HOST_CASE(owner_is_the_hosts_top_level_window) {
  HWND const gone = open_host();
  DestroyWindow(gone);
  host = open_host();
  other = open_host();
  HWND const disabled = open_host();
  EnableWindow(disabled, FALSE);
  /* A control stands for its window. An invalid handle gives no owner. */
  struct {
    HWND given;
    HWND owner;
  } const owners[] = {{host, host},
                      {GetDlgItem(host, 2), host},
                      {NULL, NULL},
                      {gone, NULL},
                      {(HWND)(INT_PTR)0x12345, NULL},
                      {(HWND)(INT_PTR)-1, NULL},
                      {GetDesktopWindow(), NULL}};
  for (size_t i = 0; i < sizeof owners / sizeof owners[0]; ++i) {
    CHECK_FORM(owners[i].given, PULKOVO_ZONE_7, script_see_owner, PULKOVO_ZONE_7, 0);
    if (seen_owner == GetDesktopWindow()) seen_owner = NULL;
    test_check(seen_owner == owners[i].owner, __FILE__, __LINE__, "owner of window %d", (int)i);
    CHECK(IsWindowEnabled(host) && IsWindowEnabled(GetDlgItem(host, 2)));
    CHECK(IsWindowEnabled(other));
    CHECK(!IsWindowEnabled(disabled));
  }
  CHECK(IsWindowEnabled(GetDesktopWindow()));
}
