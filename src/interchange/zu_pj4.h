// The C-style layer over definition files that the library keeps for hosts.
#pragma once

#include "suite/zuk_basic.h"

// Reads a .pj4 file into the adapter; leaves it unfed on failure.
void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter);
// Writes a .pj4 file in its INI form.
void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition);
// Reads an ESRI projection file into the adapter, or writes one. This version
// has no ESRI conversion: both fail, and a failure feeds and writes nothing.
bool zu_pj4_import_esri(wchar_t const* name, Izu_string_adp* adapter);
bool zu_pj4_export_esri_prj(wchar_t const* definition, wchar_t const* name);
