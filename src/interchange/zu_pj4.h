// The C-style layer over definitions and their files that the library keeps for
// hosts. Each call makes a converter of its own. A result is fed into the
// adapter once, on success only; a null text counts as empty, a null adapter or
// file name is a failure. Nothing throws and nothing is shown.
#pragma once

#include "suite/zuk_basic.h"

// Reads a .pj4 file; leaves the adapter unfed on failure. Writes one in its INI
// form.
void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter);
void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition);

// A definition to ESRI WKT, and into an ESRI projection file (.prj).
bool zu_pj4_export_esri(wchar_t const* definition, Izu_string_adp* adapter);
bool zu_pj4_export_esri_prj(wchar_t const* definition, wchar_t const* name);

// A definition from an ESRI projection file, from ESRI WKT, and from any text
// that names or defines a coordinate system.
bool zu_pj4_import_esri(wchar_t const* name, Izu_string_adp* adapter);
bool zu_pj4_import_esri_prj(wchar_t const* wkt, Izu_string_adp* adapter);
bool zu_pj4_import_crs(wchar_t const* text, Izu_string_adp* adapter);
