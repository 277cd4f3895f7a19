#include "pj_edit/edit_rules.h"

#include <algorithm>
#include <cmath>
#include <ranges>

#include "basic/number.h"
#include "basic/str.h"

namespace zu {
namespace {

using str::equal_no_case;
using str::trim_stricmp;

void give_text(Tzu_proj4_param_str& param, std::string const& value) {
  param.set_def(!value.empty());
  param.set_str(value.c_str());
}

void give_if(Tzu_proj4_param_dbl& param, bool given, double value) {
  param.set_def(given);
  if (given) param.set_dbl(value);
}

bool is_given_south(Tzu_proj4_str& definition) {
  return definition.get_south().get_def() && definition.get_south().get_bool();
}

bool is_given_proj(Tzu_proj4_str& definition, std::string_view name) {
  return definition.get_proj().get_def() && equal_no_case(definition.get_proj().get_str(), name);
}

// The value that PROJ uses for a key that is absent from the definition, when it differs from
// the value of a cleared edit.
double absent_value(Tzu_proj4_str& definition, proj_number which, double cleared) {
  if (is_given_proj(definition, "lcc")) {
    // With one parallel the second one is the same, and the origin is on it.
    bool const two_parallels = definition.get_lat_2().get_def();
    if (which == proj_number::lat_2 || (which == proj_number::lat_0 && !two_parallels))
      return definition.get_lat_1().get_def() ? definition.get_lat_1().get_dbl() : cleared;
  }
  if (is_given_proj(definition, "stere") && which == proj_number::lat_ts) {
    // By default the scale of the polar aspect is true at the pole.
    double const lat_0 = definition.get_lat_0().get_def() ? definition.get_lat_0().get_dbl() : 0;
    return std::abs(std::abs(lat_0) - 90) < 1e-9 ? lat_0 : cleared;
  }
  if (is_given_proj(definition, "krovak")) {
    // PROJ's Krovak has the constants of the only system with this projection: 49d30'N,
    // 24d50'E (42d30' from Ferro) and the scale 0.9999.
    if (which == proj_number::lat_0) return 49.5;
    if (which == proj_number::lon_0) return 24.0 + 50.0 / 60.0;
    if (which == proj_number::k_0) return 0.9999;
  }
  return cleared;
}

// Whether two values give the same text.
bool same_number(double left, double right) {
  return left == right || number::format_double(left) == number::format_double(right);
}

bool same_meridian(double left, double right) {
  return std::abs(std::remainder(number::distance(left, right), 360.0)) < 1e-6;
}

// A fixed value must be given and be the same; a central meridian may differ by whole turns. A
// shown central meridian only has to be within its limits.
bool fits_range(Tzu_pj_dbl_param const& range, proj_number which,
                Tzu_proj4_param_dbl const& given) {
  double const value = given.get_dbl();
  bool const is_meridian = which == proj_number::lon_0;
  if (range.get_def_default()) {
    double const fixed = range.get_default();
    return given.get_def() &&
           (is_meridian ? same_meridian(value, fixed) : same_number(value, fixed));
  }
  if (!is_meridian || !range.get_show() || !given.get_def()) return true;
  return !(range.get_def_min() && value < range.get_min()) &&
         !(range.get_def_max() && value > range.get_max());
}

// On these two ellipsoids a shift of zeros is right within a metre. A sphere is written
// without a shift.
bool are_zeros_meant(Tzu_pj_ellipse_def const& ellipsoid) {
  std::string_view const name = ellipsoid.get_prj4_name();
  return equal_no_case(name, "wgs84") || equal_no_case(name, "grs80") ||
         (ellipsoid.get_def_semi_minor() &&
          ellipsoid.get_semi_minor() == ellipsoid.get_semi_major());
}

constexpr std::array<std::string_view, 4> gauss_kruger_names{
    "Gauss-Kruger", "Gauss-Kruger (plus zone)", "Gauss-Kruger 3-degree",
    "Gauss-Kruger 3-degree (plus zone)"};
constexpr std::string_view pulkovo_1942 = "PULKOVO_1942";
constexpr std::string_view utm = "utm";

}  // namespace

catalogue_lists catalogue_lists::shipped() {
  Tzu_pj_def_dbf const& projections = Tzu_pj_def_dbf::instance();
  return {projections.get_proj_defs(), projections.get_zone_defs(), Tzu_datum_def_dbf::get_datums(),
          Tzu_datum_def_dbf::get_ellipses()};
}

// Reports one change to on_change, also when it consists of several.
template <class Act>
void Tzu_pj_editor::change(Act act) {
  ++changes_;
  try {
    act();
  } catch (...) {
    --changes_;
    throw;
  }
  --changes_;
  if (changes_ == 0 && on_change) on_change();
}

Tzu_pj_editor::Tzu_pj_editor(catalogue_lists const& lists) : lists_(lists) { clear(); }

void Tzu_pj_editor::set_step(edit_step const& step) {
  state_ = step.state;
  given_ = step.given;
}

// The selectors begin with their first entry.
void Tzu_pj_editor::clear() {
  state_ = {};
  for (proj_number const which : all_proj_numbers) clear_number(which, state_.number(which));
  if (lists_.usual.get_size() > 0) state_.usual_id = lists_.usual.get(0).get_index();
  if (lists_.ellipses.get_size() > 0) state_.ellipse_id = lists_.ellipses.get(0).get_index();
  if (lists_.zonal.get_size() > 0) {
    state_.zonal_name = str::trim(lists_.zonal.get(0).get_caption());
    state_.zone = lists_.zonal.get(0).get_zone().get_default();
  }
}

std::vector<std::string> Tzu_pj_editor::zonal_names() const {
  std::vector<std::string> names;
  for (Tzu_pj_proj_def const& record : lists_.zonal) {
    std::string_view const name = str::trim(record.get_caption());
    if (std::ranges::find(names, name) == names.end()) names.emplace_back(name);
  }
  return names;
}

std::vector<int> Tzu_pj_editor::zones_of(std::string_view name) const {
  std::vector<int> zones;
  for (Tzu_pj_proj_def const& record : lists_.zonal)
    if (trim_stricmp(record.get_caption(), name) == 0)
      zones.push_back(record.get_zone().get_default());
  return zones;
}

void Tzu_pj_editor::choose_kind(definition_kind kind) {
  change([&] {
    state_.kind = kind;
    if (kind == definition_kind::usual) choose_usual(state_.usual_id);
    if (kind == definition_kind::zonal) choose_zonal(std::string(state_.zonal_name));
  });
}

void Tzu_pj_editor::choose_usual(std::uint32_t id) {
  change([&] {
    state_.usual_id = id;
    apply_record(usual_record());
  });
}

void Tzu_pj_editor::choose_zonal(std::string_view name) {
  change([&] {
    show_zonal(name);
    if (is_gauss_kruger()) select_pulkovo_1942();
  });
}

void Tzu_pj_editor::show_zonal(std::string_view name) {
  state_.zonal_name = name;
  auto const zones = zones_of(state_.zonal_name);
  choose_zone(zones.empty() ? 0 : zones.front());
}

void Tzu_pj_editor::choose_zone(int zone) {
  change([&] {
    state_.zone = zone;
    apply_record(zonal_record());
  });
}

void Tzu_pj_editor::apply_record(Tzu_pj_proj_def const* record) {
  for (proj_number const which : all_proj_numbers) {
    number_state& number = state_.number(which);
    clear_number(which, number);
    if (record != nullptr) apply_range(record->get_number(which), number);
  }
}

void Tzu_pj_editor::choose_datum(std::uint32_t id) {
  change([&] {
    state_.datum_id = id;
    state_.lost_datum.clear();
    state_.lost_grids.clear();
    state_.added = added_shift::none;
    Tzu_pj_datum_def const* const record = datum_record();
    if (id == edit_state::custom_datum || record == nullptr) return;
    state_.shift = record->get_towgs84();
    choose_ellipse(record->get_ellipse_index());
  });
}

void Tzu_pj_editor::choose_ellipse(std::uint32_t id) {
  change([&] {
    state_.ellipse_id = id;
    state_.lost_ellipse.clear();
  });
}

void Tzu_pj_editor::set_number(proj_number which, double value) {
  change([&] { state_.number(which).value = value; });
}

void Tzu_pj_editor::set_shift(std::size_t index, double value) {
  change([&] { state_.shift.at(index) = value; });
}

void Tzu_pj_editor::set_shifts(std::array<double, 7> const& values) {
  change([&] {
    if (is_datum_editable()) state_.shift = values;
  });
}

bool Tzu_pj_editor::is_gauss_kruger() const {
  return get_is_zonal() && std::ranges::any_of(gauss_kruger_names, [this](std::string_view name) {
           return equal_no_case(state_.zonal_name, name);
         });
}

// Selects the usual datum of Gauss-Kruger zones and of Krasovsky's ellipsoid.
void Tzu_pj_editor::select_pulkovo_1942() {
  Tzu_pj_datum_def const* record = lists_.datums.find_by_caption(pulkovo_1942);
  if (record == nullptr) record = lists_.datums.find_by_name(pulkovo_1942);
  if (record == nullptr)
    state_.datum_id = edit_state::custom_datum;
  else
    choose_datum(record->get_index());
}

void Tzu_pj_editor::set_proj4_string(char const* text) {
  change([&] {
    given_ = text == nullptr ? "" : text;
    definition_.set(text);
    definition_.set_all_undefined();
    definition_.decompose();
    proj4_str_to_controls(definition_);
  });
}

void Tzu_pj_editor::proj4_str_to_controls(Tzu_proj4_str& definition) {
  clear();
  if (definition.get_units().get_def()) state_.units = definition.get_units().get_str();
  if (!take_zonal(definition) && !take_usual(definition)) choose_kind(definition_kind::none);
  take_datum(definition);
  keep_lost_pieces(definition);
}

bool Tzu_pj_editor::take_zonal(Tzu_proj4_str& definition) {
  Tzu_pj_proj_def const* const record = match_zonal(definition);
  if (record == nullptr) return false;
  state_.kind = definition_kind::zonal;
  state_.zonal_name = str::trim(record->get_caption());
  state_.zone = record->get_zone().get_default();
  fill_numbers(*record, definition);
  return true;
}

Tzu_pj_proj_def const* Tzu_pj_editor::match_zonal(Tzu_proj4_str& definition) const {
  if (!definition.get_proj().get_def()) return nullptr;
  char const* const proj = definition.get_proj().get_str();
  // The zone alone gives such a projection its meridian. So without a zone, or with a zone
  // that is not in the catalogue, no other row can replace it.
  if (equal_no_case(proj, utm)) {
    if (!definition.get_zone().get_def()) return nullptr;
    return lists_.zonal.find_utm(proj, definition.get_zone().get_int(), is_given_south(definition));
  }
  auto const matches = [&](Tzu_pj_proj_def const& record) {
    return equal_no_case(record.get_prj4_name(), proj) &&
           record.is_south() == is_given_south(definition) &&
           std::ranges::all_of(all_proj_numbers, [&](proj_number which) {
             return fits_range(record.get_number(which), which, definition.get_number(which));
           });
  };
  auto const found = std::ranges::find_if(lists_.zonal, matches);
  return found == lists_.zonal.end() ? nullptr : &*found;
}

bool Tzu_pj_editor::take_usual(Tzu_proj4_str& definition) {
  Tzu_pj_proj_def const* const record = match_usual(definition);
  if (record == nullptr) return false;
  state_.kind = definition_kind::usual;
  state_.usual_id = record->get_index();
  fill_numbers(*record, definition);
  return true;
}

Tzu_pj_proj_def const* Tzu_pj_editor::match_usual(Tzu_proj4_str& definition) const {
  if (!definition.get_proj().get_def()) return nullptr;
  char const* const proj = definition.get_proj().get_str();
  double const lat_0 = definition.get_lat_0().get_def() ? definition.get_lat_0().get_dbl() : 0;
  bool const south = is_given_south(definition);
  // A projection may have several rows. The best row has all parameters of the definition;
  // else take the row that has most of them.
  if (auto const* const record = lists_.usual.find_by_name_lat_south(
          proj, lat_0, definition.get_lat_1().get_def(), definition.get_lat_2().get_def(),
          definition.get_lat_ts().get_def(), definition.get_k_0().get_def(), south))
    return record;
  Tzu_pj_proj_def const* best = nullptr;
  std::ptrdiff_t most = -1;
  for (Tzu_pj_proj_def const& record : lists_.usual) {
    if (!Tzu_pj_proj_defs::fits(record, proj, lat_0, south)) continue;
    auto const held = std::ranges::count_if(all_proj_numbers, [&](proj_number which) {
      return definition.get_number(which).get_def() && record.get_number(which).get_use_proj4();
    });
    if (held > most) best = &record;
    most = std::max(most, held);
  }
  return best;
}

void Tzu_pj_editor::fill_numbers(Tzu_pj_proj_def const& record, Tzu_proj4_str& definition) {
  apply_record(&record);
  for (proj_number const which : all_proj_numbers) {
    number_state& number = state_.number(which);
    Tzu_proj4_param_dbl const& given = definition.get_number(which);
    if (given.get_def())
      number.value = given.get_dbl();
    else if (!record.get_number(which).get_def_default())
      number.value = absent_value(definition, which, number.value);
  }
}

void Tzu_pj_editor::take_datum(Tzu_proj4_str& definition) {
  bool const has_datum = definition.get_datum().get_def();
  bool const has_shift = definition.get_towgs84().get_def();
  if (has_datum) {
    if (auto const* const record = lists_.datums.find_by_name(definition.get_datum().get_str())) {
      choose_datum(record->get_index());
      return;
    }
  }
  if (has_shift) state_.shift = definition.get_towgs84().get_values();
  take_ellipse(definition);
  if (!has_datum && !has_shift) {
    // Only if the ellipsoid does not contradict: a Chinese or a GSK-2011 definition in
    // Gauss-Kruger zones is no Pulkovo system. A shift of zeros would move any system on
    // Krasovsky's ellipsoid by 120 m.
    bool const has_ellipse = definition.get_ellipse().get_def() || definition.get_a().get_def();
    auto const* const shown = ellipse_record();
    bool const is_krasovsky =
        has_ellipse && shown != nullptr && equal_no_case(shown->get_prj4_name(), "krass");
    if (is_krasovsky || (!has_ellipse && is_gauss_kruger())) {
      select_pulkovo_1942();
      if (datum_record() != nullptr) state_.added = added_shift::pulkovo_1942;
      return;
    }
    if (shown != nullptr && !are_zeros_meant(*shown)) state_.added = added_shift::zeros;
  }
  auto const* const same = lists_.datums.find_by_params(state_.ellipse_id, state_.shift);
  state_.datum_id = same == nullptr ? edit_state::custom_datum : same->get_index();
}

Tzu_pj_ellipse_def const* Tzu_pj_editor::proj4_str_try_ellipse_name(
    Tzu_proj4_str& definition) const {
  if (!definition.get_ellipse().get_def()) return nullptr;
  return lists_.ellipses.find_by_name(definition.get_ellipse().get_str());
}

Tzu_pj_ellipse_def const* Tzu_pj_editor::proj4_str_try_ellipse_params(
    Tzu_proj4_str& definition) const {
  return lists_.ellipses.find_by_params(
      definition.get_a().get_def(), definition.get_a().get_dbl(), definition.get_b().get_def(),
      definition.get_b().get_dbl(), definition.get_rf().get_def(), definition.get_rf().get_dbl());
}

Tzu_pj_ellipse_def const* Tzu_pj_editor::proj4_str_try_ellipse_default() const {
  return lists_.ellipses.find_by_name("wgs84");
}

Tzu_pj_ellipse_def const* Tzu_pj_editor::match_ellipse(Tzu_proj4_str& definition) const {
  auto const* const named = proj4_str_try_ellipse_name(definition);
  return named == nullptr ? proj4_str_try_ellipse_params(definition) : named;
}

void Tzu_pj_editor::take_ellipse(Tzu_proj4_str& definition) {
  Tzu_pj_ellipse_def const* record = match_ellipse(definition);
  if (record == nullptr) record = proj4_str_try_ellipse_default();
  if (record != nullptr) choose_ellipse(record->get_index());
}

// A datum of the catalogue gives everything. For any other datum the key is lost, and with it
// everything that the definition does not give by numbers.
void Tzu_pj_editor::keep_lost_pieces(Tzu_proj4_str& definition) {
  auto const piece_of = [](Tzu_proj4_param& param) {
    return std::string(str::trim(param.get_out_str()));
  };
  if (definition.get_nadgrids().get_def()) state_.lost_grids = piece_of(definition.get_nadgrids());
  bool const has_datum = definition.get_datum().get_def();
  if (has_datum && lists_.datums.find_by_name(definition.get_datum().get_str()) != nullptr) return;
  std::array<Tzu_proj4_param*, 4> const shape{&definition.get_ellipse(), &definition.get_a(),
                                              &definition.get_b(), &definition.get_rf()};
  auto const* const given =
      std::ranges::find_if(shape, [](auto const* param) { return param->get_def(); });
  bool const has_ellipse = given != shape.end();
  if (has_datum && !(has_ellipse && definition.get_towgs84().get_def()))
    state_.lost_datum = piece_of(definition.get_datum());
  if (has_ellipse && match_ellipse(definition) == nullptr) state_.lost_ellipse = piece_of(**given);
}

char const* Tzu_pj_editor::get_proj4_string() {
  definition_.set_all_undefined();
  controls_to_proj4_str(definition_);
  definition_.compose();
  return definition_.get();
}

void Tzu_pj_editor::controls_to_proj4_str(Tzu_proj4_str& definition) const {
  if (state_.kind == definition_kind::none) return;
  auto const* const record = get_is_zonal() ? zonal_record() : usual_record();
  if (record != nullptr) write_projection(*record, definition);
  write_datum(definition);
}

void Tzu_pj_editor::write_projection(Tzu_pj_proj_def const& record,
                                     Tzu_proj4_str& definition) const {
  bool const zonal = get_is_zonal();
  give_text(definition.get_proj(), record.get_prj4_name());
  // Only UTM has a key for its zone. In other systems the meridian and the false easting tell
  // the zone.
  definition.get_zone().set_def(zonal && equal_no_case(record.get_prj4_name(), utm));
  definition.get_zone().set_int(state_.zone);
  for (proj_number const which : all_proj_numbers) {
    Tzu_pj_dbl_param const& range = record.get_number(which);
    Tzu_proj4_param_dbl& param = definition.get_number(which);
    if (range.get_show())
      give_if(param, true, state_.number(which).value);
    else
      give_if(param, zonal && range.get_def_default(), range.get_default());
  }
  definition.get_south().set_def(record.is_south());
  definition.get_south().set_bool(record.is_south());
  if (record.get_units().get_use_proj4())
    give_text(definition.get_units(),
              state_.units.empty() ? record.get_units().get_default() : state_.units);
}

void Tzu_pj_editor::write_datum(Tzu_proj4_str& definition) const {
  Tzu_pj_datum_def const* const record = datum_record();
  if (record != nullptr) give_text(definition.get_datum(), record->get_prj4_name());
  definition.get_towgs84().set_def(true);
  definition.get_towgs84().set_values(record == nullptr ? state_.shift : record->get_towgs84());
  write_ellipse(definition);
}

void Tzu_pj_editor::write_ellipse(Tzu_proj4_str& definition) const {
  Tzu_pj_ellipse_def const* const record = ellipse_record();
  if (record == nullptr) return;
  bool const by_axes = record->get_prj4_name().empty();
  give_text(definition.get_ellipse(), record->get_prj4_name());
  give_if(definition.get_a(), by_axes, record->get_semi_major());
  give_if(definition.get_b(), by_axes && record->get_def_semi_minor(), record->get_semi_minor());
  give_if(definition.get_rf(), by_axes && record->get_def_inv_flattening(),
          record->get_inv_flattening());
}

}  // namespace zu
