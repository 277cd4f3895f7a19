#include "proj4/proj4_str_correct.h"

#include "basic/str.h"

void Tzu_proj4_str_correct::set_proj4(char const* text) {
  source_ = text == nullptr ? "" : text;
  destination_ = source_;
  load_src();
}

void Tzu_proj4_str_correct::load_src() {
  changed_ = false;
  set_.set(source_.c_str());
  set_.decompose();
}

void Tzu_proj4_str_correct::save_dst() {
  set_.compose();
  destination_ = set_.get();
}

char const* Tzu_proj4_str_correct::get_proj4() {
  save_dst();
  return destination_.c_str();
}

bool Tzu_proj4_str_correct::patch_lcc_1sp_for_gdal() {
  if (!set_.get_proj().get_def()) return false;
  if (zu::str::trim_stricmp(set_.get_proj().get_str(), "lcc") != 0) return false;
  bool patched = false;
  double const lat_1 = set_.get_lat_1().get_dbl();
  for (Tzu_proj4_param_dbl* const param : {&set_.get_lat_2(), &set_.get_lat_0()}) {
    if (param->get_def()) continue;
    param->set_dbl(lat_1);
    param->set_def(true);
    patched = true;
  }
  changed_ = changed_ || patched;
  return patched;
}

bool Tzu_proj4_str_correct::patch_lon_wrap_for_gdal() {
  set_.set_is_lon_wrap(false);
  changed_ = true;
  return true;
}

char const* Tzu_proj4_str_correct::patch_proj4_for_gdal(char const* text) {
  set_proj4(text);
  patch_lcc_1sp_for_gdal();
  patch_lon_wrap_for_gdal();
  return get_proj4();
}
