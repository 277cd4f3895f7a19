#include "proj4/proj4_str.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "basic/number.h"
#include "basic/str.h"

using zu::str::equal_no_case;

Tzu_proj4_str::Tzu_proj4_str()
    : list_{&proj_,    &zone_,   &lon_0_, &lonc_,  &lat_0_, &x_0_,   &y_0_,
            &lat_1_,   &lat_ts_, &lat_2_, &south_, &k_0_,   &alpha_, &datum_,
            &towgs84_, &a_,      &b_,     &rf_,    &ellps_, &units_, &nadgrids_} {
  k_0_.add_other_name("k");
  // A radius gives both axes.
  a_.add_other_name("R");
  b_.add_other_name("R");
}

void Tzu_proj4_str::decompose() {
  // What stands before the first "+" is no parameter.
  std::string_view const definition = definition_;
  auto const texts =
      zu::str::split(definition.substr(std::min(definition.find('+'), definition.size())), "+");
  std::vector<zu::str::name_value> pieces(texts.size());
  std::ranges::transform(texts, pieces.begin(),
                         [](auto text) { return zu::str::divide_str(text, '='); });
  auto const find = [&pieces](std::string_view name) {
    return std::ranges::find_if(
        pieces, [name](auto const& piece) { return equal_no_case(piece.name, name); });
  };
  std::string value;
  for (Tzu_proj4_param* const param : list_) {
    auto found = find(param->name());
    for (unsigned i = 0; found == pieces.end() && i < param->get_other_names_count(); ++i)
      found = find(param->get_other_name(i));
    param->set_def(false);
    if (found == pieces.end()) continue;
    value = found->value;
    param->val_from_str(value.c_str());
  }
}

void Tzu_proj4_str::compose() { compose_as(style::library); }
void Tzu_proj4_str::compose_for_proj4() { compose_as(style::proj); }

void Tzu_proj4_str::compose_as(style wanted) {
  // The old text stays until there is a new one.
  std::string text;
  bool const sphere = is_sphere();
  bool const by_radius = sphere && wanted == style::proj;
  bool any = false;
  for (Tzu_proj4_param* const param : list_) {
    if (sphere && param == &towgs84_) continue;
    if (by_radius && (param == &b_ || param == &rf_)) continue;
    if (!param->get_def()) continue;
    any = true;
    if (by_radius && param == &a_)
      text.append("+R=").append(zu::number::format_double(a_.get_dbl())).append(" ");
    else
      text.append(param->get_out_str());
  }
  if (any) text.append(lon_wrap_ ? "+lon_wrap=45 +no_defs" : "+no_defs");
  definition_ = std::move(text);
}

void Tzu_proj4_str::set_all_undefined() noexcept {
  for (Tzu_proj4_param* const param : list_) param->set_def(false);
}

bool Tzu_proj4_str::is_sphere() const noexcept {
  if (ellps_.get_def() && equal_no_case(ellps_.get_str(), "sphere")) return true;
  if (!a_.get_def()) return false;
  return (b_.get_def() && zu::number::distance(a_.get_dbl(), b_.get_dbl()) < 1e-6) ||
         (rf_.get_def() && std::abs(rf_.get_dbl()) < 1e-6);
}

bool Tzu_proj4_str::is_valid() const noexcept {
  return proj_.get_def() && (datum_.get_def() || ellps_.get_def() ||
                             (a_.get_def() && (b_.get_def() || rf_.get_def())));
}

bool Tzu_proj4_str::equal(Tzu_proj4_str const& other) const noexcept {
  return proj_.equal(other.proj_) && datum_.equal(other.datum_) && ellps_.equal(other.ellps_) &&
         units_.equal(other.units_) && lon_0_.equal(other.lon_0_) && lonc_.equal(other.lonc_) &&
         lat_0_.equal(other.lat_0_) && x_0_.equal(other.x_0_) && y_0_.equal(other.y_0_) &&
         lat_1_.equal(other.lat_1_) && lat_ts_.equal(other.lat_ts_) && lat_2_.equal(other.lat_2_) &&
         k_0_.equal(other.k_0_) && alpha_.equal(other.alpha_) && a_.equal(other.a_) &&
         b_.equal(other.b_) && rf_.equal(other.rf_) && south_.equal(other.south_) &&
         towgs84_.equal(other.towgs84_) && zone_.equal(other.zone_);
}

bool Tzu_proj4_str::get_is_long_lat() const noexcept {
  return proj_.get_def() &&
         (equal_no_case(proj_.get_str(), "longlat") || equal_no_case(proj_.get_str(), "latlong"));
}

void Tzu_proj4_str::set_is_long_lat() {
  proj_.set_def(true);
  proj_.set_str("longlat");
  auto const drop = [](auto&... params) { (params.set_def(false), ...); };
  drop(zone_, lon_0_, lonc_, lat_0_, x_0_, y_0_, lat_1_, lat_ts_, lat_2_, south_, k_0_, alpha_,
       units_);
}
