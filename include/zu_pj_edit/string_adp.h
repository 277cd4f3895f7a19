/* The receiver of a result text. Compiles alone, as C and as C++.

   Where the process has loaded the host suite's base library (zuk_basic), these
   functions pass on to the ones that it exports under the same names, so that an
   adapter of either origin goes with all of them. Load it before the first
   adapter is made and keep it until the last one is destroyed. */
#ifndef ZU_PJ_EDIT_STRING_ADP_H
#define ZU_PJ_EDIT_STRING_ADP_H

#include <wchar.h>

#ifdef __cplusplus
extern "C" {
#endif

struct Izu_string_adp;
typedef struct Izu_string_adp Izu_string_adp;

/* Take a zero-terminated text, which is the producer's and valid for the length
   of the call: narrow in the system's ANSI code page, wide in UTF-16 on Windows
   and UTF-32 elsewhere. */
typedef void (*zu_ansi_callback)(char const* text, void* context);
typedef void (*zu_unicode_callback)(wchar_t const* text, void* context);

/* Whoever is fed calls the callback of the text's width, with the context, before
   the feeding function returns. A text whose callback is null is lost. The
   adapter is the caller's, who gives it to destroy; nothing happens to null. */
Izu_string_adp* zu_string_adp_create(zu_ansi_callback narrow, zu_unicode_callback wide,
                                     void* context);
void zu_string_adp_destroy(Izu_string_adp* adapter);
void zu_string_adp_feed_c(Izu_string_adp* adapter, char const* text);
void zu_string_adp_feed(Izu_string_adp* adapter, wchar_t const* text);

#ifdef __cplusplus
}
#endif

#endif
