#include "proj4/short_text.h"

#include "basic/number.h"
#include "catalogue/catalogue.h"

bool Tzu_pj4_parts::init(char const* text) {
  def_ = nullptr;
  set(text);
  decompose();
  if (!get_proj().get_def()) return false;
  // Undefined parameters still hold what an earlier definition gave them.
  double const lat_0 = get_lat_0().get_def() ? get_lat_0().get_dbl() : 0;
  int const zone = get_zone().get_def() ? get_zone().get_int() : 0;
  bool const south = get_south().get_def() && get_south().get_bool();
  def_ = Tzu_pj_def_dbf::instance().get_def(get_proj().get_str(), lat_0, get_lat_1().get_def(),
                                            get_lat_2().get_def(), get_lat_ts().get_def(),
                                            get_k_0().get_def(), zone, south);
  return def_ != nullptr;
}

std::string Tzu_pj4_parts::part(std::string_view value) const {
  return std::string(value).append(separator_);
}

template <class Param>
std::string Tzu_pj4_parts::given_part(Param const& param) const {
  return param.get_def() ? part(param.get_value_text()) : std::string();
}

std::string Tzu_pj4_parts::number_part(Tzu_proj4_param_dbl const& param, proj_number number) const {
  if (param.get_def() || def_ == nullptr || !def_->get_number(number).get_def_default())
    return given_part(param);
  return part(zu::number::format_double(def_->get_number(number).get_default()));
}

std::string Tzu_pj4_parts::get_pj4_caption() {
  return def_ == nullptr ? get_pj4_name() : part(def_->get_caption());
}

std::string Tzu_pj4_parts::get_pj4_name() { return given_part(get_proj()); }

std::string Tzu_pj4_parts::get_pj4_zone() { return given_part(get_zone()); }

std::string Tzu_pj4_parts::get_pj4_lon0() { return number_part(get_lon_0(), proj_number::lon_0); }

std::string Tzu_pj4_parts::get_pj4_lonc() { return number_part(get_lonc(), proj_number::lonc); }

std::string Tzu_pj4_parts::get_pj4_lat0() { return number_part(get_lat_0(), proj_number::lat_0); }

std::string Tzu_pj4_parts::get_pj4_x0() { return number_part(get_x_0(), proj_number::x_0); }

std::string Tzu_pj4_parts::get_pj4_y0() { return number_part(get_y_0(), proj_number::y_0); }

std::string Tzu_pj4_parts::get_pj4_lat1() { return number_part(get_lat_1(), proj_number::lat_1); }

std::string Tzu_pj4_parts::get_pj4_lat_ts() {
  return number_part(get_lat_ts(), proj_number::lat_ts);
}

std::string Tzu_pj4_parts::get_pj4_lat2() { return number_part(get_lat_2(), proj_number::lat_2); }

std::string Tzu_pj4_parts::get_pj4_k0() { return number_part(get_k_0(), proj_number::k_0); }

std::string Tzu_pj4_parts::get_pj4_alpha() { return number_part(get_alpha(), proj_number::alpha); }

std::string Tzu_pj4_parts::get_pj4_datum() { return given_part(get_datum()); }

std::string Tzu_pj4_parts::get_pj4_towgs84() {
  if (!get_towgs84().get_def()) return {};
  return part("(" + get_towgs84().get_value_text() + ")");
}

std::string Tzu_pj4_parts::get_pj4_ellips() { return given_part(get_ellipse()); }

std::string Tzu_pj4_parts::get_pj4_a() { return given_part(get_a()); }

std::string Tzu_pj4_parts::get_pj4_b() { return given_part(get_b()); }

std::string Tzu_pj4_parts::get_pj4_rf() { return given_part(get_rf()); }

bool Tzu_short_text_helper::get_short_text(char const* definition, Izu_string_adp* adapter) {
  Tzu_pj4_parts parts;
  parts.init(definition);
  if (adapter == nullptr || !parts.get_proj().get_def()) return false;
  std::string const text = parts.get_pj4_caption() + parts.get_pj4_lon0() + parts.get_pj4_lonc() +
                           parts.get_pj4_lat0() + parts.get_pj4_x0() + parts.get_pj4_y0() +
                           parts.get_pj4_lat1() + parts.get_pj4_lat_ts() + parts.get_pj4_lat2() +
                           parts.get_pj4_k0() + parts.get_pj4_alpha() + parts.get_pj4_datum() +
                           parts.get_pj4_towgs84() + parts.get_pj4_ellips() + parts.get_pj4_a() +
                           parts.get_pj4_b() + parts.get_pj4_rf();
  // Catalogue and definition share the system's code page, in which adapters
  // read narrow text.
  zu_string_adp_feed_c(adapter, text.c_str());
  return true;
}
