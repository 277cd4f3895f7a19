// The functions of the host suite's base library that this library calls.
//
// When the host has loaded the suite's module "zuk_basic", its functions are called,
// otherwise our stand-ins: those below, and those for string adapters, which hosts
// without the suite call, too. The module is found at run time; linking does not need
// it.
#pragma once

#include "zu_pj_edit/string_adp.h"

// Path of the host's main module. The stand-in gives the path of the running program.
// The pointer is valid until the next call.
wchar_t const* zu_options_get_main_module_path();

// Index of the host's interface language; 0 is Russian. The stand-in uses the user's
// locale: 0 for Russian, else 1.
int zu_res_get_lng();
