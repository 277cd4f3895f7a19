/* zu_pj_edit: a modal dialog that views and edits a coordinate-system
   definition (a PROJ.4 string). This header is all that a host needs; it
   compiles alone, as C and as C++.

   The contract
   - Thread: both functions run on the thread that owns the host's windows. The
     first call starts the form toolkit there; the host's own message loop is
     never run, and its windows and timers go on while the dialog is open.
   - Re-entrancy: none. One call at a time in a process; a second call while a
     dialog is open is not supported.
   - Text: zero-terminated 8-bit text in the system's ANSI code page. Off
     Windows that is the encoding of the user's locale, UTF-8 where the locale
     names none. Definitions are ASCII in practice.
   - Floating point: the host may have set traps, rounding and precision as it likes;
     when a call returns or is left by an exception they are again what they were,
     status flags included. While the dialog is open its thread runs as C has it,
     without traps and to the nearest number, and so does host code that is called
     then: timers, window procedures, the editor module.
   - Ownership: the returned text belongs to the library. It stays valid until
     the next call of the same function or until the library is unloaded; copy
     it, never free it. The input text is read before the dialog opens and is
     not kept.
   - Units inside a definition are PROJ's: degrees, metres, and for towgs84
     metres, arc-seconds and parts per million (position-vector signs).
   - Errors: none are reported. Exceptions of the form toolkit pass through to
     the caller after the owner window has been restored; a host in a language
     without C++ exceptions ends there, as it would with any other library.
   - Catalogue: the folder "prj_def" beside the host's main program. Without it
     the dialog opens with geographic systems only. */
#ifndef ZU_PJ_EDIT_H
#define ZU_PJ_EDIT_H

#include "version.h"

/* Where the library's objects are part of the program itself, ZU_PJ_EDIT_STATIC
   is defined; hosts of the DLL define nothing. */
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

/* A window of the host's: on Windows its HWND; under X11 its window id cast to
   a pointer (GDK_WINDOW_XID, QWidget::winId, XCreateWindow). Null, a window
   that is gone, or any window where the display is not X11 give a dialog
   without an owner. */
typedef void* zu_pj_edit_window;

/* Shows the dialog on `definition`, owned by `owner`, until the user closes it.
   definition  PROJ.4 text; null counts as empty.
   changed     one byte, must not be null; always written: 1 when the user
               pressed Apply, 0 in every other case.
   Returns the edited definition after Apply, otherwise the input unchanged,
   character for character. Never null. After Apply the text may differ from
   the input even when nothing was touched: it is written in the library's one
   canonical form.
   Since 0.1. */
ZU_PJ_EDIT_API char const* zu_proj4_form_execute(zu_pj_edit_window owner, char const* definition,
                                                 unsigned char* changed);

/* Hands the call on to the host's editor module: makes `owner` the owner of
   forms and calls "zu_proj4_form_execute_w__impl" of the loaded module
   "zuk_scene2d_editor_bdl" with a null window and the two values untouched.
   Returns what that returns, or null when the host has not loaded the module
   or the module has no such function.
   Since 0.1. */
ZU_PJ_EDIT_API void* zu_proj4_form_execute_w(zu_pj_edit_window owner, void* first, void* second);

#ifdef __cplusplus
}
#endif

#endif
