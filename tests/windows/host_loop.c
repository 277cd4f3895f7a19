/* The host's message loop, its requests to quit, and its threads. */
#include <windows.h>
/* After the system's header. */
#include <stdio.h>
#include <string.h>
#include <tlhelp32.h>

#include "host_support.h"

enum { message_act = WM_APP + 1, message_again, exit_code = 42 };

static HWND host;

/* ---- requests to quit */

/* The host's loop gets the request, with its code and once. */
static void check_quit(void) {
  MSG message = {0};
  while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    DispatchMessageW(&message);
  }
  CHECK_NUMBER(message.message, WM_QUIT);
  CHECK_NUMBER(message.wParam, exit_code);
  while (PeekMessageW(&message, NULL, 0, 0, PM_REMOVE)) {
    CHECK(message.message != WM_QUIT);
    DispatchMessageW(&message);
  }
}

static BOOL quit_at_request(HWND window, UINT message) {
  (void)window;
  if (message != message_act) return FALSE;
  PostQuitMessage(exit_code);
  return TRUE;
}

static void script_quit(HWND form) {
  type_text(form, L"37.5", L"38.25");
  PostMessageW(host, message_act, 0, 0);
}

static void check_form_works(void) {
  host_hook = NULL;
  CHECK_NUMBER(run_form(host, MOSCOW_TM("37.5"), script_apply).changed, 1);
  CHECK(IsWindowEnabled(host));
}

static void check_quit_of(message_hook hook, script body, char const* text, int changed) {
  host = open_host();
  for (int i = 0; i < 3; ++i) {
    host_hook = hook;
    CHECK_OUTCOME(run_form(host, MOSCOW_TM("37.5"), body), text, changed);
    CHECK(IsWindowEnabled(host));
    check_quit();
  }
  check_form_works();
}

void quit_ends_the_form(void) { check_quit_of(quit_at_request, script_quit, MOSCOW_TM("37.5"), 0); }

static void script_quit_under_message(HWND form) {
  type_text(form, L"55.5", L"91");
  press(form, apply_button);
  (void)wait_for_message(form);
  PostMessageW(host, message_act, 0, 0);
}

void quit_ends_a_message_and_the_form(void) {
  check_quit_of(quit_at_request, script_quit_under_message, MOSCOW_TM("37.5"), 0);
}

/* In one go: the form is still open, and will not be by the time of the request. */
static BOOL apply_and_quit(HWND window, UINT message) {
  (void)window;
  if (message != message_act) return FALSE;
  press(find_form(), apply_button);
  PostQuitMessage(exit_code);
  return TRUE;
}

void quit_with_apply_is_kept(void) {
  check_quit_of(apply_and_quit, script_quit, MOSCOW_TM("38.25"), 1);
}

/* The last moments of the form. */
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

void quit_of_a_hiding_form_is_kept(void) {
  static UINT const messages[] = {WM_SHOWWINDOW, WM_DESTROY, WM_NCDESTROY};
  host = open_host();
  HHOOK const hook = SetWindowsHookExW(WH_CALLWNDPROC, quit_at_message, NULL, GetCurrentThreadId());
  for (size_t i = 0; i < sizeof messages / sizeof messages[0]; ++i) {
    watched_message = messages[i];
    outcome const result = run_form(host, MOSCOW_TM("37.5"), script_watch);
    CHECK_NUMBER(result.changed, 1);
    CHECK(watched_form == NULL);
    check_quit();
  }
  UnhookWindowsHookEx(hook);
  check_form_works();
}

/* ---- the host goes on */

static LONG volatile ticks;
static LONG volatile paints;

static BOOL count_ticks_and_paints(HWND window, UINT message) {
  if (message == WM_TIMER) {
    InterlockedIncrement(&ticks);
    InvalidateRect(window, NULL, TRUE);
  }
  if (message == WM_PAINT) InterlockedIncrement(&paints);
  return FALSE;
}

static BOOL has_gone_on(void* context) {
  (void)context;
  return ticks >= 10 && paints >= 5;
}

static void script_wait_for_host(HWND form) {
  InterlockedExchange(&ticks, 0);
  InterlockedExchange(&paints, 0);
  CHECK(wait_for_it(has_gone_on, NULL));
  press(form, cancel_button);
}

void host_goes_on_meanwhile(void) {
  host = open_host();
  host_hook = count_ticks_and_paints;
  SetTimer(host, 1, 20, NULL);
  (void)run_form(host, MOSCOW_TM("37.5"), script_wait_for_host);
}

static LONG volatile rounds;

static BOOL post_without_end(HWND window, UINT message) {
  if (message != message_again) return FALSE;
  InterlockedIncrement(&rounds);
  PostMessageW(window, message_again, 0, 0);
  return TRUE;
}

static BOOL has_gone_round(void* context) { return rounds > *(LONG const*)context; }

static void script_wait_for_rounds(HWND form) {
  LONG const some = rounds + 100;
  CHECK(wait_for_it(has_gone_round, (void*)&some));
  type_text(form, L"37.5", L"38.25");
  press(form, apply_button);
}

void host_that_posts_without_end_gets_its_call_back(void) {
  host = open_host();
  host_hook = post_without_end;
  PostMessageW(host, message_again, 0, 0);
  for (int i = 0; i < 3; ++i) {
    CHECK_TEXT(run_form(host, MOSCOW_TM("37.5"), script_wait_for_rounds).text, MOSCOW_TM("38.25"));
    /* Back at the host, the messages go on from where they were. */
    LONG const before = rounds;
    MSG message;
    CHECK(GetMessageW(&message, NULL, 0, 0) > 0);
    while (message.message != message_again && GetMessageW(&message, NULL, 0, 0) > 0) {
      DispatchMessageW(&message);
    }
    DispatchMessageW(&message);
    CHECK_NUMBER(rounds, before + 1);
  }
}

static BOOL paint_without_end(HWND window, UINT message) {
  if (message != WM_PAINT) return FALSE;
  /* Never validated. */
  InterlockedIncrement(&rounds);
  InvalidateRect(window, NULL, FALSE);
  return TRUE;
}

void host_that_paints_without_end_gets_its_call_back(void) {
  host = open_host();
  host_hook = paint_without_end;
  InvalidateRect(host, NULL, FALSE);
  for (int i = 0; i < 3; ++i) {
    CHECK_TEXT(run_form(host, MOSCOW_TM("37.5"), script_wait_for_rounds).text, MOSCOW_TM("38.25"));
  }
  host_hook = NULL;
}

static LONG volatile acts;

static BOOL count_acts(HWND window, UINT message) {
  (void)window;
  if (message != message_act) return FALSE;
  InterlockedIncrement(&acts);
  return TRUE;
}

void host_keeps_its_message_loop(void) {
  host = open_host();
  host_hook = count_acts;
  for (int i = 1; i <= 3; ++i) {
    (void)run_form(host, MOSCOW_TM("37.5"), script_cancel);
    PostMessageW(host, message_act, 0, 0);
    PostThreadMessageW(GetCurrentThreadId(), message_again, 0, 0);
    /* Messages of the thread's are none of the form's. */
    MSG message = {0};
    while (message.message != message_again && GetMessageW(&message, NULL, 0, 0) > 0) {
      DispatchMessageW(&message);
    }
    CHECK_NUMBER(message.message, message_again);
    CHECK_NUMBER(acts, i);
  }
}

/* ---- threads */

static int count_threads(void) {
  HANDLE const snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 entry = {.dwSize = sizeof entry};
  int count = 0;
  for (BOOL good = Thread32First(snapshot, &entry); good; good = Thread32Next(snapshot, &entry)) {
    count += entry.th32OwnerProcessID == GetCurrentProcessId();
  }
  CloseHandle(snapshot);
  return count;
}

static BOOL are_threads_gone(void* context) { return count_threads() <= *(int*)context; }

void host_keeps_its_threads(void) {
  host = open_host();
  int before = count_threads();
  CHECK(before >= 1);
  for (int i = 0; i < 3; ++i) {
    (void)run_form(host, MOSCOW_TM("37.5"), script_apply);
    /* A thread that has ended is there a little longer. */
    CHECK(wait_for_it(are_threads_gone, &before));
    (void)printf("threads: %d before, %d after\n", before, count_threads());
  }
}
