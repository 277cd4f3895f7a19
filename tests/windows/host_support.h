/* What the host tests share: cases, checks, a host's window, and a second thread
   that plays the user by window messages. */
#ifndef ZU_HOST_SUPPORT_H
#define ZU_HOST_SUPPORT_H

#include <windows.h>

#include "zu_pj_edit/zu_pj_edit.h"

/* Begins a case: the program finds it among its exports, the build by this line. */
#define HOST_CASE(name)                  \
  __declspec(dllexport) void name(void); \
  void name(void)

/* ---- checks */

/* May be called on any thread. */
void test_check(int good, char const* file, int line, char const* format, ...);
int test_failures(void);

#define CHECK(condition) test_check((condition) != 0, __FILE__, __LINE__, "%s", #condition)
#define CHECK_TEXT(actual, expected) \
  test_check_text((actual), (expected), __FILE__, __LINE__, #actual)
void test_check_text(char const* actual, char const* expected, char const* file, int line,
                     char const* what);

/* ---- the library */

/* Loaded for the first form, from its path from the folder of this program. */
extern HMODULE library;
extern wchar_t const* library_name;
void library_path(wchar_t path[MAX_PATH], wchar_t const* name);

/* ---- a host's window */

/* What a test does with a message of a host's window before anybody else; true
   when that was all. */
typedef BOOL (*message_hook)(HWND window, UINT message);
extern message_hook host_hook;

/* A visible top-level window with two edits (ids 1 and 2) and a button (3). */
HWND open_host(void);
/* Handles what has been posted to this thread by now. */
void pump(void);

/* ---- the user */

enum { patience_ms = 60000 };
/* Waits, on a thread without windows. */
BOOL wait_for_it(BOOL (*condition)(void* context), void* context);

typedef void (*script)(HWND form);

typedef struct {
  char text[1024];
  int changed;
  char const* address;
} outcome;

/* Calls the library; `body` runs on a thread of its own as soon as the form is
   open, and has to see to it that the form closes. */
outcome run_form(HWND owner, char const* definition, script body);
#define CHECK_FORM(owner, definition, body, text, changed) \
  test_check_outcome(run_form((owner), (definition), (body)), (text), (changed), __FILE__, __LINE__)
void test_check_outcome(outcome result, char const* text, int changed, char const* file, int line);

/* The process whose dialog the user works; this one when it is 0. */
extern DWORD host_process;

/* The library's form in that process, or what is open over this window; null
   without any. */
HWND find_dialog(HWND owner);
HWND wait_for_dialog_over(HWND form);

typedef enum { apply_button, cancel_button, load_button } button;
/* A visible child by its class and its text; null when there is none. */
HWND find_child(HWND form, wchar_t const* kind, wchar_t const* text);
HWND find_button(HWND form, button which);
void press(HWND form, button which);
void type_text(HWND form, wchar_t const* shown, wchar_t const* typed);
void wait_until_closed(HWND form);

/* The simplest scripts, and one that types the meridian 38.25 before. */
void script_apply(HWND form);
void script_cancel(HWND form);
void script_type(HWND form);

/* ---- definitions */

/* As the library writes it. */
#define PULKOVO_ZONE_7                                           \
  "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "   \
  "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass " \
  "+units=m +lon_wrap=45 +no_defs"
#define MOSCOW_TM(lon_0)                 \
  "+proj=tmerc +lon_0=" lon_0            \
  " +lat_0=55.5 +x_0=12 +y_0=14 +k_0=1 " \
  "+towgs84=1,2,3,0,0,0,0 +ellps=krass +units=m +lon_wrap=45 +no_defs"
/* What its maker raises a trap with: no flattening, and one that is computed. */
#define SPHERE "+proj=longlat +R=6371000"
#define SPHERE_APPLIED "+proj=longlat +a=6371000 +b=6371000 +lon_wrap=45 +no_defs"
#define POLAR "+proj=stere +lat_0=90 +lat_ts=70 +a=6378137 +b=6356752"
#define POLAR_TYPED                                                 \
  "+proj=stere +lon_0=0 +lat_0=90 +x_0=0 +y_0=0 +lat_ts=71 +k_0=1 " \
  "+datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84 +units=m +lon_wrap=45 +no_defs"
#define MOSCOW MOSCOW_TM("37.5")
#define MOSCOW_TYPED MOSCOW_TM("38.25")

#endif
