#include "proj4/proj4_str.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "basic/str.h"

using zu::str::equal_no_case;

using enum zu::definition_key;

Tzu_proj4_str::Tzu_proj4_str() : Tzu_proj4_str(places, number_places) {
  for (auto const& entry : zu::definition_keys)
    if (!entry.other_name.empty())
      list_[static_cast<std::size_t>(entry.key)]->add_other_name(entry.other_name);
}

void Tzu_proj4_str::decompose() {
  // The text before the first "+" is no parameter.
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
  // The old text must stay when there is not enough memory for a new one.
  std::string text;
  bool const sphere = is_sphere();
  bool const by_radius = sphere && wanted == style::proj;
  bool any = false;
  for (Tzu_proj4_param* const each : list_) {
    if (!each->get_def() || (sphere && each == &get_towgs84())) continue;
    if (by_radius && (each == &get_b() || each == &get_rf())) continue;
    any = true;
    if (by_radius && each == &get_a())
      text.append("+R=").append(get_a().get_value_text()).append(" ");
    else
      text.append(each->get_out_str());
  }
  if (any) text.append(lon_wrap_ ? "+lon_wrap=45 +no_defs" : "+no_defs");
  definition_ = std::move(text);
}

void Tzu_proj4_str::set_all_undefined() noexcept {
  for (Tzu_proj4_param* const param : list_) param->set_def(false);
}

bool Tzu_proj4_str::is_sphere() const noexcept {
  if (param<ellps>().get_def() && equal_no_case(param<ellps>().get_str(), "sphere")) return true;
  if (!param<a>().get_def()) return false;
  return (param<b>().get_def() && zu::is_same_value(param<a>().get_dbl(), param<b>().get_dbl())) ||
         (param<rf>().get_def() && zu::is_same_value(param<rf>().get_dbl(), 0.0));
}

bool Tzu_proj4_str::is_valid() const noexcept {
  return param<proj>().get_def() &&
         (param<datum>().get_def() || param<ellps>().get_def() ||
          (param<a>().get_def() && (param<b>().get_def() || param<rf>().get_def())));
}

bool Tzu_proj4_str::equal(Tzu_proj4_str const& other) const noexcept {
  return [&]<std::size_t... Places>(std::index_sequence<Places...>) {
    return ((zu::definition_keys[Places].key == nadgrids ||
             std::get<Places>(params_).equal(std::get<Places>(other.params_))) &&
            ...);
  }
  (places);
}

bool Tzu_proj4_str::get_is_long_lat() const noexcept {
  auto const& given = param<proj>();
  return given.get_def() &&
         (equal_no_case(given.get_str(), "longlat") || equal_no_case(given.get_str(), "latlong"));
}

void Tzu_proj4_str::set_is_long_lat() {
  for (auto const& entry : zu::definition_keys)
    if (entry.part == zu::key_part::projection)
      list_[static_cast<std::size_t>(entry.key)]->set_def(false);
  get_proj().set_def(true);
  get_proj().set_str("longlat");
}
