/* The host's windows while the form is open, and after. */
#include "host_support.h"

static HWND host;
static HWND other;

HOST_CASE(owner_gets_the_focus_back) {
  host = open_host();
  for (int id = 1; id <= 3; ++id) {
    HWND const control = GetDlgItem(host, id);
    SetFocus(control);
    CHECK(GetFocus() == control);
    CHECK_FORM(host, MOSCOW, id == 2 ? script_apply : script_cancel, MOSCOW, id == 2);
    pump();
    CHECK(GetFocus() == control);
  }
}

static HWND seen_owner;

static void script_see_owner(HWND form) {
  seen_owner = GetWindow(form, GW_OWNER);
  CHECK(!IsWindowEnabled(host));
  CHECK(!IsWindowEnabled(other));
  press(form, cancel_button);
}

HOST_CASE(owner_is_the_hosts_top_level_window) {
  host = open_host();
  other = open_host();
  HWND const disabled = open_host();
  EnableWindow(disabled, FALSE);
  /* A control stands for its window. test_vcl has handles of no window. */
  HWND const owners[][2] = {{GetDlgItem(host, 2), host}, {NULL, NULL}, {GetDesktopWindow(), NULL}};
  for (int i = 0; i < 3; ++i) {
    CHECK_FORM(owners[i][0], MOSCOW, script_see_owner, MOSCOW, 0);
    if (seen_owner == GetDesktopWindow()) seen_owner = NULL;
    test_check(seen_owner == owners[i][1], __FILE__, __LINE__, "owner of window %d", i);
    CHECK(IsWindowEnabled(host) && IsWindowEnabled(GetDlgItem(host, 2)));
    CHECK(IsWindowEnabled(other));
    CHECK(!IsWindowEnabled(disabled));
  }
  CHECK(IsWindowEnabled(GetDesktopWindow()));
}
