/* The receiver of a result text. This header compiles alone, as C and as C++.

   If the process has loaded the host suite's base library (zuk_basic), these
   functions call the functions of the same names that it exports. So adapters of
   both libraries work with both. Load it before the first adapter is created and
   keep it loaded until the last one is destroyed. */
#ifndef ZU_PJ_EDIT_STRING_ADP_H
#define ZU_PJ_EDIT_STRING_ADP_H

#include <wchar.h>

#ifdef __cplusplus
extern "C" {
#endif

struct Izu_string_adp;
typedef struct Izu_string_adp Izu_string_adp;

/* Callbacks that receive a zero-terminated text. The producer owns the text; it
   is valid until the callback returns. Narrow text is in the system's ANSI code
   page, wide text in UTF-16 on Windows and UTF-32 elsewhere. */
typedef void (*zu_ansi_callback)(char const* text, void* context);
typedef void (*zu_unicode_callback)(wchar_t const* text, void* context);

/* A feed function calls the callback of the text's width, with the context,
   before it returns. A null callback drops the text. The caller owns the adapter
   and destroys it. Nothing happens to a null adapter. */
Izu_string_adp* zu_string_adp_create(zu_ansi_callback narrow, zu_unicode_callback wide,
                                     void* context);
void zu_string_adp_destroy(Izu_string_adp* adapter);
void zu_string_adp_feed_c(Izu_string_adp* adapter, char const* text);
void zu_string_adp_feed(Izu_string_adp* adapter, wchar_t const* text);

#ifdef __cplusplus
}
#endif

#endif
