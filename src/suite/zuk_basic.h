// The host suite's base library, as far as this library calls it.
//
// The suite's own module is asked when the host has loaded one ("zuk_basic");
// otherwise the stand-ins described here answer. The module is found at run
// time, so nothing needs it at link time.
#pragma once

// A host-owned receiver of one result text. Made by zu_string_adp_create and
// freed by its maker with zu_string_adp_destroy; never owned by who feeds it.
struct Izu_string_adp;

using zu_ansi_callback = void (*)(char const* text, void* context);
using zu_unicode_callback = void (*)(wchar_t const* text, void* context);

// Path of the host's main module. The stand-in gives the running program's.
// The pointer stays valid until the next call.
wchar_t const* zu_options_get_main_module_path();

// Index of the host's interface language; 0 is Russian. The stand-in follows
// the user's locale: 0 for Russian, else 1.
int zu_res_get_lng();

// A feed calls the matching callback with the context before it returns.
Izu_string_adp* zu_string_adp_create(zu_ansi_callback narrow, zu_unicode_callback wide,
                                     void* context);
void zu_string_adp_destroy(Izu_string_adp* adapter);
void zu_string_adp_feed_c(Izu_string_adp* adapter, char const* text);
void zu_string_adp_feed(Izu_string_adp* adapter, wchar_t const* text);
