#include "interchange/zu_pj4.h"

#include "interchange/add_file.h"

void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter) {
  Tzu_add_file::load_pj4_simple(name, adapter);
}

void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition) {
  Tzu_add_file::save_pj4_ini(name, definition);
}

bool zu_pj4_import_esri(wchar_t const* /*name*/, Izu_string_adp* /*adapter*/) { return false; }

bool zu_pj4_export_esri_prj(wchar_t const* /*definition*/, wchar_t const* /*name*/) {
  return false;
}
