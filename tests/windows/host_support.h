/* Shared by the host tests: cases, checks, a host's window, and a second thread that acts as
   the user by window messages. */
#ifndef ZU_HOST_SUPPORT_H
#define ZU_HOST_SUPPORT_H

#include <windows.h>

#include "zu_pj_edit/zu_pj_edit.h"

/* Begins a case. The build finds this line, and the program finds the function among its
   exports. */
#define HOST_CASE(name)                  \
  __declspec(dllexport) void name(void); \
  void name(void)

/* ---- checks */

/* May be called on any thread. */
void test_check(int good, char const* file, int line, char const* format, ...);
int test_failures(void);

#define CHECK(condition) test_check((condition) != 0, __FILE__, __LINE__, "%s", #condition)

/* ---- a host's window */

/* Gets the messages of a host's window first. Returns true if it has handled one. */
typedef BOOL (*message_hook)(HWND window, UINT message);
extern message_hook host_hook;

/* A visible top-level window with two edits (ids 1 and 2) and a button (3). */
HWND open_host(void);
/* Handles the messages that this thread has now. */
void pump(void);

/* ---- the user */

/* Waits on a thread without windows. If the condition does not come true in time, the
   program says for what it waited, and ends. */
void wait_for(char const* what, BOOL (*condition)(void* context), void* context);

typedef void (*script)(HWND form);

/* Each call is by this library. The path is relative to the folder of this program. */
extern wchar_t const* library_name;

/* Calls the library and compares the result. When the form is open, `body` runs on another
   thread. It must close the form. Returns the library's own text. */
#define CHECK_FORM(owner, definition, body, text, changed) \
  test_form((owner), (definition), (body), (text), (changed), __FILE__, __LINE__)
char const* test_form(HWND owner, char const* definition, script body, char const* text,
                      int changed, char const* file, int line);

/* The library's form, or the dialog of this owner; null if there is none. */
HWND find_dialog(HWND owner);
HWND wait_for_dialog(HWND owner);

typedef enum { apply_button, cancel_button, load_button } button;
/* A visible child with this class and text; null if there is none. */
HWND find_child(HWND form, wchar_t const* kind, wchar_t const* text);
HWND find_button(HWND form, button which);
void press(HWND form, button which);
void type_text(HWND form, wchar_t const* shown, wchar_t const* typed);
void wait_until_closed(HWND form);

void script_apply(HWND form);
void script_cancel(HWND form);

/* ---- definitions */

/* A text as the library writes it. */
#define MOSCOW_TM(lon_0)                 \
  "+proj=tmerc +lon_0=" lon_0            \
  " +lat_0=55.5 +x_0=12 +y_0=14 +k_0=1 " \
  "+towgs84=1,2,3,0,0,0,0 +ellps=krass +units=m +lon_wrap=45 +no_defs"
#define MOSCOW MOSCOW_TM("37.5")
#define MOSCOW_TYPED MOSCOW_TM("38.25")

#endif
