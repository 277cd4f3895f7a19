#include <zu_pj_edit/zu_pj4_layer.h>

#include "basic/float_environment.h"
#include "interchange/add_file.h"
#include "interchange/proj4_conv.h"

namespace {

template <class Convert>
int by_converter(Convert convert) {
  return zu::in_float_scope([=] { return convert(zu::proj4_conv()) ? 1 : 0; });
}

}  // namespace

void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter) {
  if (name == nullptr || adapter == nullptr) return;
  zu::in_float_scope([=] { return Tzu_add_file::load_pj4_simple(name, adapter); });
}

void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition) {
  if (name == nullptr || definition == nullptr) return;
  zu::in_float_scope([=] { return Tzu_add_file::save_pj4_ini(name, definition); });
}

int zu_pj4_export_esri(wchar_t const* definition, Izu_string_adp* adapter) {
  if (definition == nullptr || adapter == nullptr) return 0;
  return by_converter([=](zu::proj4_conv by) { return by.export_esri_pj(definition, adapter); });
}

int zu_pj4_export_esri_prj(wchar_t const* definition, wchar_t const* name) {
  if (definition == nullptr || name == nullptr) return 0;
  return by_converter([=](zu::proj4_conv by) { return by.export_esri_file(definition, name); });
}

int zu_pj4_import_esri(wchar_t const* name, Izu_string_adp* adapter) {
  if (name == nullptr || adapter == nullptr) return 0;
  return by_converter([=](zu::proj4_conv by) { return by.import_esri_file(name, adapter); });
}

int zu_pj4_import_esri_prj(wchar_t const* wkt, Izu_string_adp* adapter) {
  if (wkt == nullptr || adapter == nullptr) return 0;
  return by_converter([=](zu::proj4_conv by) { return by.import_esri_pj(wkt, adapter); });
}

int zu_pj4_import_crs(wchar_t const* text, Izu_string_adp* adapter) {
  if (text == nullptr || adapter == nullptr) return 0;
  return by_converter([=](zu::proj4_conv by) { return by.import_crs(text, adapter); });
}
