#include <zu_pj_edit/zu_pj4_layer.h>

#include "interchange/add_file.h"
#include "interchange/proj4_conv.h"

void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter) {
  if (name != nullptr && adapter != nullptr) Tzu_add_file::load_pj4_simple(name, adapter);
}

void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition) {
  if (name != nullptr && definition != nullptr) Tzu_add_file::save_pj4_ini(name, definition);
}

int zu_pj4_export_esri(wchar_t const* definition, Izu_string_adp* adapter) {
  if (definition == nullptr || adapter == nullptr) return 0;
  return zu::proj4_conv().export_esri_pj(definition, adapter) ? 1 : 0;
}

int zu_pj4_export_esri_prj(wchar_t const* definition, wchar_t const* name) {
  if (definition == nullptr || name == nullptr) return 0;
  return zu::proj4_conv().export_esri_file(definition, name) ? 1 : 0;
}

int zu_pj4_import_esri(wchar_t const* name, Izu_string_adp* adapter) {
  if (name == nullptr || adapter == nullptr) return 0;
  return zu::proj4_conv().import_esri_file(name, adapter) ? 1 : 0;
}

int zu_pj4_import_esri_prj(wchar_t const* wkt, Izu_string_adp* adapter) {
  if (wkt == nullptr || adapter == nullptr) return 0;
  return zu::proj4_conv().import_esri_pj(wkt, adapter) ? 1 : 0;
}

int zu_pj4_import_crs(wchar_t const* text, Izu_string_adp* adapter) {
  if (text == nullptr || adapter == nullptr) return 0;
  return zu::proj4_conv().import_crs(text, adapter) ? 1 : 0;
}
