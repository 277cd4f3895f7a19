/* What the host tests share: checks, a host's window, and a second thread that
   plays the user by window messages. */
#ifndef ZU_HOST_SUPPORT_H
#define ZU_HOST_SUPPORT_H

/* C reads it, too. */
/* NOLINTBEGIN(modernize-use-using,modernize-redundant-void-arg,cppcoreguidelines-macro-usage) */

#include <windows.h>

#include "zu_pj_edit/zu_pj_edit.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- checks */

/* May be called on any thread. */
void test_check(int good, char const* file, int line, char const* format, ...);
int test_failures(void);

#define CHECK(condition) test_check((condition) != 0, __FILE__, __LINE__, "%s", #condition)
#define CHECK_NUMBER(actual, expected) \
  test_check_number((long long)(actual), (long long)(expected), __FILE__, __LINE__, #actual)
#define CHECK_TEXT(actual, expected) \
  test_check_text((actual), (expected), __FILE__, __LINE__, #actual)
void test_check_number(long long actual, long long expected, char const* file, int line,
                       char const* what);
void test_check_text(char const* actual, char const* expected, char const* file, int line,
                     char const* what);

/* ---- the library */

typedef char const* (*execute_function)(zu_pj_edit_window owner, char const* definition,
                                        unsigned char* changed);
typedef void* (*execute_w_function)(zu_pj_edit_window owner, void* first, void* second);

typedef struct {
  HMODULE module;
  execute_function execute;
  execute_w_function execute_w;
} library;

/* Loaded at the first call, from the folder of this program. */
library* the_library(void);
/* Another copy of it, by its path from that folder; before the first call. */
void use_library(wchar_t const* name);
void library_path(wchar_t* path, size_t size, wchar_t const* name);

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
#define CHECK_OUTCOME(result, text, changed) \
  test_check_outcome((result), (text), (changed), __FILE__, __LINE__)
void test_check_outcome(outcome result, char const* text, int changed, char const* file, int line);

/* The forms of the library's open in this process; null without any. */
HWND find_form(void);
/* The message box over the form, null without any. */
HWND find_message(HWND form);
HWND wait_for_message(HWND form);

typedef enum { apply_button, cancel_button, load_button } button;
wchar_t const* button_caption(button which);
/* A visible child by its class and its text; null when there is none. */
HWND find_child(HWND form, wchar_t const* kind, wchar_t const* text);
void press(HWND form, button which);
void type_text(HWND form, wchar_t const* shown, wchar_t const* typed);
void wait_until_closed(HWND form);

/* The simplest scripts. */
void script_apply(HWND form);
void script_cancel(HWND form);

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

#ifdef __cplusplus
}
#endif

/* NOLINTEND(modernize-use-using,modernize-redundant-void-arg,cppcoreguidelines-macro-usage) */

#endif
