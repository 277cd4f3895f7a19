/* zu_pj_edit: a modal dialog that views and edits a coordinate-system
   definition (a PROJ.4 string). This header is all that a host needs; it
   compiles alone, as C and as C++.

   The contract
   - Thread: call both functions on the thread that owns the host's windows. The
     first call starts the form toolkit on it. The host's own message loop does
     not run while the dialog is open. The host's windows and timers then work
     through the system's messages (Windows) or GLib's main loop (elsewhere). A
     host whose loop uses neither has to attach its own loop to GLib's.
   - Re-entrancy: none. Only one call at a time in a process. A second call while
     a dialog is open is not supported.
   - Text: zero-terminated 8-bit text in the system's ANSI code page. Off
     Windows that is the encoding of the user's locale, UTF-8 where the locale
     names none. Definitions are ASCII in practice.
   - Floating point: the host may use any traps, rounding and precision. They and
     the status flags are restored when a call returns or ends with an exception.
     While the dialog is open its thread has C's defaults: no traps, and rounding
     to the nearest number. That includes host code that runs then: timers, window
     procedures, the editor module.
   - Ownership: the library owns the returned text. It is valid until the next
     call of the same function or until the library is unloaded. Copy it and never
     free it. The library reads the input text before the dialog opens and does
     not keep it.
   - Units inside a definition are PROJ's: degrees, metres, and for towgs84
     metres, arc-seconds and parts per million (position-vector signs).
   - Errors: when no dialog can open, the call returns its input, sets `changed`
     to 0 and writes one line to standard error. Reasons: there is no display, it
     has no keyboard, another thread runs the main loop or made the first call, or
     the process has loaded GTK 2 or 4. Other exceptions of the form toolkit (not
     enough memory) reach the caller after the owner window has been restored. A
     host in a language without C++ exceptions ends then.
   - Catalogue: the folder "prj_def" beside the host's main program. If there is
     no such folder, the one beside the library, and then the one that was
     installed with it. Without any of them the dialog opens with geographic
     systems only and shows where it has looked.
   docs/hosts.md tells what each kind of host has to do. */
#ifndef ZU_PJ_EDIT_H
#define ZU_PJ_EDIT_H

#include "version.h"

/* Define ZU_PJ_EDIT_STATIC when the library's objects are linked into the program
   itself. Hosts of the DLL define nothing. */
#if defined(ZU_PJ_EDIT_STATIC)
#define ZU_PJ_EDIT_API
#elif defined(_WIN32)
#if defined(ZU_PJ_EDIT_BUILDING)
#define ZU_PJ_EDIT_API __declspec(dllexport)
#else
#define ZU_PJ_EDIT_API __declspec(dllimport)
#endif
#else
#define ZU_PJ_EDIT_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* A window of the host: on Windows its HWND, under X11 its window id cast to a
   pointer (GDK_WINDOW_XID, QWidget::winId, XCreateWindow). The dialog has no
   owner if this is null or a destroyed window, or if the display is not X11. */
typedef void* zu_pj_edit_window;

/* Shows the dialog with `definition` over `owner` until the user closes it.
   definition  PROJ.4 text; null counts as empty.
   changed     one byte, must not be null. Always written: 1 when the user
               pressed Apply, else 0.
   Returns the edited definition after Apply, otherwise the input unchanged,
   character for character. Never null. After Apply the text may differ from
   the input even if the user changed nothing, because the library writes every
   definition in one canonical form.
   Since 0.1. */
ZU_PJ_EDIT_API char const* zu_proj4_form_execute(zu_pj_edit_window owner, char const* definition,
                                                 unsigned char* changed);

/* Passes the call on to the host's editor module: makes `owner` the owner of
   forms and calls "zu_proj4_form_execute_w__impl" of the loaded module
   "zuk_scene2d_editor_bdl" with a null window and the two values unchanged.
   Returns the result of that function, or null when the host has not loaded the
   module or the module has no such function.
   Since 0.1. */
ZU_PJ_EDIT_API void* zu_proj4_form_execute_w(zu_pj_edit_window owner, void* first, void* second);

#ifdef __cplusplus
}
#endif

#endif
