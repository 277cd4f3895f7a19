#include "proj4/short_text.h"

#include <algorithm>

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

// The number of a key that the record fixes; null when it fixes none.
Tzu_pj_dbl_param const* Tzu_pj4_parts::fixed_number(zu::definition_key key) const {
  if (def_ == nullptr) return nullptr;
  auto const found = std::ranges::find(zu::proj_numbers, key, &zu::proj_number_entry::key);
  if (found == zu::proj_numbers.end()) return nullptr;
  Tzu_pj_dbl_param const& number = def_->get_number(found->number);
  return number.get_def_default() ? &number : nullptr;
}

std::string Tzu_pj4_parts::get_part(zu::definition_key key) const {
  std::string value;
  visit(key, [&](auto const& param) {
    if (param.get_def())
      value = param.get_value_text();
    else if (auto const* const fixed = fixed_number(key))
      value = zu::value_text(fixed->get_default());
  });
  if (value.empty()) return {};
  return part(key == zu::definition_key::towgs84 ? "(" + value + ")" : value);
}

std::string Tzu_pj4_parts::get_pj4_caption() const {
  return def_ == nullptr ? get_pj4_name() : part(def_->get_caption());
}

bool Tzu_short_text_helper::get_short_text(char const* definition, Izu_string_adp* adapter) {
  Tzu_pj4_parts parts;
  parts.init(definition);
  if (adapter == nullptr || !parts.get_proj().get_def()) return false;
  std::string text = parts.get_pj4_caption();
  for (zu::definition_key const key : zu::described_keys)
    if (key != zu::definition_key::proj && key != zu::definition_key::zone)
      text += parts.get_part(key);
  // Catalogue and definition are in the system's code page. Adapters expect narrow text in it.
  zu_string_adp_feed_c(adapter, text.c_str());
  return true;
}
