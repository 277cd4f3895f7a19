#include "interchange/zu_pj4.h"

#include <string_view>

#include "interchange/add_file.h"
#include "interchange/proj4_conv.h"

namespace {

std::wstring_view text_of(wchar_t const* text) noexcept { return text == nullptr ? L"" : text; }

}  // namespace

void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter) {
  if (name != nullptr && adapter != nullptr) Tzu_add_file::load_pj4_simple(name, adapter);
}

void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition) {
  if (name != nullptr) Tzu_add_file::save_pj4_ini(name, text_of(definition));
}

bool zu_pj4_export_esri(wchar_t const* definition, Izu_string_adp* adapter) {
  return adapter != nullptr && zu::proj4_conv().export_esri_pj(text_of(definition), adapter);
}

bool zu_pj4_export_esri_prj(wchar_t const* definition, wchar_t const* name) {
  return name != nullptr && zu::proj4_conv().export_esri_file(text_of(definition), name);
}

bool zu_pj4_import_esri(wchar_t const* name, Izu_string_adp* adapter) {
  return name != nullptr && adapter != nullptr && zu::proj4_conv().import_esri_file(name, adapter);
}

bool zu_pj4_import_esri_prj(wchar_t const* wkt, Izu_string_adp* adapter) {
  return adapter != nullptr && zu::proj4_conv().import_esri_pj(text_of(wkt), adapter);
}

bool zu_pj4_import_crs(wchar_t const* text, Izu_string_adp* adapter) {
  return adapter != nullptr && zu::proj4_conv().import_crs(text_of(text), adapter);
}
