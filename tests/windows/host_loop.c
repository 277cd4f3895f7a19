/* The host's messages while the form is open. Some end it. */
#include "host_support.h"

enum { message_act = WM_APP + 1, message_again, exit_code = 42 };

static HWND host;

/* ---- an end by the host */

static void script_type(HWND form) {
  type_text(form, L"37.5", L"38.25");
  press(form, apply_button);
}

static void script_act(HWND form) {
  type_text(form, L"37.5", L"38.25");
  PostMessageW(host, message_act, 0, 0);
}

static void script_act_under_message(HWND form) {
  type_text(form, L"55.5", L"91");
  press(form, apply_button);
  CHECK(find_child(wait_for_dialog(form), L"Static", L"Number must be less than: 90") != NULL);
  CHECK(!IsWindowEnabled(form));
  PostMessageW(host, message_act, 0, 0);
}

static BOOL quit(HWND window, UINT message) {
  (void)window;
  if (message != message_act) return FALSE;
  PostQuitMessage(exit_code);
  return TRUE;
}

/* The form is still open now. Apply closes it before it gets the quit message. */
static BOOL apply_and_quit(HWND window, UINT message) {
  if (message == message_act) press(find_dialog(NULL), apply_button);
  return quit(window, message);
}

static BOOL destroy(HWND window, UINT message) {
  if (window != host || message != message_act) return FALSE;
  DestroyWindow(window);
  return TRUE;
}

/* The host's loop gets the quit message once, with its exit code. */
static void check_quit(void) {
  MSG message;
  int count = 0;
  while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) count += message.wParam == exit_code ? 1 : 2;
    DispatchMessageW(&message);
  }
  CHECK(count == 1);
}

/* The next form works as usual. */
static void check_form_works(void) {
  host_hook = NULL;
  if (!IsWindow(host)) host = open_host();
  CHECK_FORM(host, MOSCOW, script_apply, MOSCOW, 1);
  CHECK(IsWindowEnabled(host));
}

static void check_end(message_hook hook, script body, char const* text, int changed) {
  for (int i = 0; i < 3; ++i) {
    if (!IsWindow(host)) host = open_host();
    host_hook = hook;
    CHECK_FORM(host, MOSCOW, body, text, changed);
    CHECK(find_dialog(NULL) == NULL);
    CHECK(IsWindow(host) == (hook != destroy));
    if (hook != destroy) check_quit();
  }
  check_form_works();
}

HOST_CASE(quit_ends_the_form) { check_end(quit, script_act, MOSCOW, 0); }

HOST_CASE(quit_ends_a_message_and_the_form) {
  check_end(quit, script_act_under_message, MOSCOW, 0);
}

HOST_CASE(quit_with_apply_is_kept) { check_end(apply_and_quit, script_act, MOSCOW_TYPED, 1); }

HOST_CASE(owner_may_be_destroyed_under_a_message) {
  check_end(destroy, script_act_under_message, MOSCOW, 0);
}

/* ---- the end of the form */

static HWND watched_form;
static UINT quit_at;
/* Whether the host's window took input when the form was hidden; -1 before. */
static BOOL enabled_at_hiding;

static LRESULT CALLBACK on_sent(int code, WPARAM own, LPARAM context) {
  CWPSTRUCT const* const sent = (CWPSTRUCT const*)context;
  if (code == HC_ACTION && sent->hwnd == watched_form) {
    if (sent->message == WM_SHOWWINDOW && enabled_at_hiding < 0) {
      enabled_at_hiding = IsWindowEnabled(host);
    }
    if (sent->message == quit_at) {
      quit_at = 0;
      PostQuitMessage(exit_code);
    }
  }
  return CallNextHookEx(NULL, code, own, context);
}

static void script_watch(HWND form) {
  CHECK(!IsWindowEnabled(host));
  enabled_at_hiding = -1;
  watched_form = form;
  press(form, apply_button);
}

/* The program gets a request to quit with this message of the form. */
static void check_hiding(BOOL enabled, UINT message) {
  host = open_host();
  EnableWindow(host, enabled);
  quit_at = message;
  HHOOK const hook = SetWindowsHookExW(WH_CALLWNDPROC, on_sent, NULL, GetCurrentThreadId());
  CHECK_FORM(host, MOSCOW, script_watch, MOSCOW, 1);
  UnhookWindowsHookEx(hook);
  CHECK(quit_at == 0);
  CHECK(enabled_at_hiding == enabled);
  CHECK(IsWindowEnabled(host) == enabled);
  CHECK((GetActiveWindow() == host) == enabled);
  CHECK((GetForegroundWindow() == host) == enabled);
}

HOST_CASE(owner_takes_input_again_before_the_form_hides) { check_hiding(TRUE, 0); }

HOST_CASE(owner_that_took_no_input_never_does) { check_hiding(FALSE, 0); }

HOST_CASE(quit_of_a_hiding_form_is_kept) {
  static UINT const messages[] = {WM_SHOWWINDOW, WM_DESTROY, WM_NCDESTROY};
  for (size_t i = 0; i < sizeof messages / sizeof messages[0]; ++i) {
    check_hiding(TRUE, messages[i]);
    check_quit();
  }
  check_form_works();
}

/* ---- the host goes on */

/* The host gets this message again and again. */
static UINT endless;
static LONG volatile rounds;
static LONG rounds_at_return;

static BOOL has_gone_round(void* context) { return rounds > *(LONG const*)context; }

static void script_wait_for_rounds(HWND form) {
  LONG const some = rounds + 20;
  wait_for("the host's messages", has_gone_round, (void*)&some);
  script_type(form);
}

static BOOL call_or_go_on(HWND window, UINT message) {
  if (message == message_act) {
    CHECK_FORM(host, MOSCOW, script_wait_for_rounds, MOSCOW_TYPED, 1);
    rounds_at_return = rounds;
  } else if (message == endless) {
    InterlockedIncrement(&rounds);
    if (message == message_again) PostMessageW(window, message, 0, 0);
    /* Without validation the system sends WM_PAINT again at once. */
    if (message == WM_PAINT) InvalidateRect(window, NULL, FALSE);
  }
  return message == message_act || message == endless;
}

/* The host calls the library from its own loop. */
static void check_goes_on(UINT message) {
  host = open_host();
  endless = message;
  host_hook = call_or_go_on;
  SetTimer(host, 1, 20, NULL);
  InvalidateRect(host, NULL, FALSE);
  PostMessageW(host, message_again, 0, 0);
  for (int i = 0; i < 3; ++i) {
    MSG next;
    rounds_at_return = -1;
    PostMessageW(host, message_act, 0, 0);
    /* After the call the host gets its messages as before. */
    while ((rounds_at_return < 0 || rounds == rounds_at_return) &&
           GetMessageW(&next, NULL, 0, 0) > 0) {
      DispatchMessageW(&next);
    }
  }
  host_hook = NULL;
}

HOST_CASE(host_goes_on_meanwhile) { check_goes_on(WM_TIMER); }

HOST_CASE(host_that_posts_without_end_gets_its_call_back) { check_goes_on(message_again); }

HOST_CASE(host_that_paints_without_end_gets_its_call_back) { check_goes_on(WM_PAINT); }
