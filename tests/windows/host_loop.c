/* The host's messages while the form is open. Some end it. */
#include "host_support.h"

enum { message_act = WM_APP + 1, message_again, exit_code = 42 };

static HWND host;

/* ---- an end by the host */

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
  MSG message = {0};
  while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    DispatchMessageW(&message);
  }
  CHECK(message.message == WM_QUIT);
  CHECK(message.wParam == exit_code);
  while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE)) {
    CHECK(message.message != WM_QUIT);
    DispatchMessageW(&message);
  }
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
    if (hook == destroy) {
      CHECK(!IsWindow(host));
    } else {
      CHECK(IsWindowEnabled(host));
      check_quit();
    }
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

/* A quit message while the form closes. */
static HWND watched_form;
static UINT watched_message;

static LRESULT CALLBACK quit_at_message(int code, WPARAM own, LPARAM context) {
  CWPSTRUCT const* const sent = (CWPSTRUCT const*)context;
  if (code == HC_ACTION && watched_form != NULL && sent->hwnd == watched_form &&
      sent->message == watched_message && (watched_message != WM_SHOWWINDOW || !sent->wParam)) {
    watched_form = NULL;
    PostQuitMessage(exit_code);
  }
  return CallNextHookEx(NULL, code, own, context);
}

static void script_watch(HWND form) {
  watched_form = form;
  press(form, apply_button);
}

HOST_CASE(quit_of_a_hiding_form_is_kept) {
  static UINT const messages[] = {WM_SHOWWINDOW, WM_DESTROY, WM_NCDESTROY};
  host = open_host();
  HHOOK const hook = SetWindowsHookExW(WH_CALLWNDPROC, quit_at_message, NULL, GetCurrentThreadId());
  for (size_t i = 0; i < sizeof messages / sizeof messages[0]; ++i) {
    watched_message = messages[i];
    CHECK_FORM(host, MOSCOW, script_watch, MOSCOW, 1);
    CHECK(watched_form == NULL);
    check_quit();
  }
  UnhookWindowsHookEx(hook);
  check_form_works();
}

/* ---- the host goes on */

static LONG volatile rounds;

static BOOL paint_at_ticks(HWND window, UINT message) {
  if (message == WM_TIMER) InvalidateRect(window, NULL, TRUE);
  if (message == WM_PAINT) InterlockedIncrement(&rounds);
  return FALSE;
}

static BOOL post_without_end(HWND window, UINT message) {
  if (message != message_again) return FALSE;
  InterlockedIncrement(&rounds);
  PostMessageW(window, message_again, 0, 0);
  return TRUE;
}

static BOOL paint_without_end(HWND window, UINT message) {
  if (message != WM_PAINT) return FALSE;
  /* Without validation the system sends the message again at once. */
  InterlockedIncrement(&rounds);
  InvalidateRect(window, NULL, FALSE);
  return TRUE;
}

static BOOL has_gone_round(void* context) { return rounds > *(LONG const*)context; }

static void script_wait_for_rounds(HWND form) {
  LONG const some = rounds + 20;
  wait_for("the host's messages", has_gone_round, (void*)&some);
  script_type(form);
}

static message_hook go_on;
static LONG rounds_at_return;

static BOOL call_or_go_on(HWND window, UINT message) {
  if (message != message_act) return go_on(window, message);
  CHECK_FORM(host, MOSCOW, script_wait_for_rounds, MOSCOW_TYPED, 1);
  rounds_at_return = rounds;
  return TRUE;
}

/* The host calls the library from its own loop. */
static void check_goes_on(message_hook hook) {
  host = open_host();
  go_on = hook;
  host_hook = call_or_go_on;
  SetTimer(host, 1, 20, NULL);
  InvalidateRect(host, NULL, FALSE);
  PostMessageW(host, message_again, 0, 0);
  for (int i = 0; i < 3; ++i) {
    MSG message;
    rounds_at_return = -1;
    PostMessageW(host, message_act, 0, 0);
    /* After the call the host gets its messages as before. */
    while ((rounds_at_return < 0 || rounds == rounds_at_return) &&
           GetMessageW(&message, NULL, 0, 0) > 0) {
      DispatchMessageW(&message);
    }
  }
  host_hook = NULL;
}

HOST_CASE(host_goes_on_meanwhile) { check_goes_on(paint_at_ticks); }

HOST_CASE(host_that_posts_without_end_gets_its_call_back) { check_goes_on(post_without_end); }

HOST_CASE(host_that_paints_without_end_gets_its_call_back) { check_goes_on(paint_without_end); }
