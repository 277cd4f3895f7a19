// The host suite's base library, as far as this library calls it.
//
// The suite's own module is asked when the host has loaded one ("zuk_basic");
// otherwise stand-ins answer: those described here, and those of string adapters,
// which hosts without the suite call, too. The module is found at run time, so
// nothing needs it at link time.
#pragma once

#include "zu_pj_edit/string_adp.h"

// Path of the host's main module. The stand-in gives the running program's.
// The pointer stays valid until the next call.
wchar_t const* zu_options_get_main_module_path();

// Index of the host's interface language; 0 is Russian. The stand-in follows
// the user's locale: 0 for Russian, else 1.
int zu_res_get_lng();
