// The keys of a definition: their PROJ names, their kinds of value, their captions, and which
// of them are numbers of the dialog and columns of the catalogue. To add a key, add lines to
// this file. A new caption also needs a name in text/rc.h and a text in text/rc_strings.cpp.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "text/rc.h"

namespace zu {

// In the order in which a definition is read and written.
enum class definition_key : unsigned {
  proj,
  zone,
  lon_0,
  lonc,
  lat_0,
  x_0,
  y_0,
  lat_1,
  lat_ts,
  lat_2,
  south,
  k_0,
  alpha,
  datum,
  towgs84,
  a,
  b,
  rf,
  ellps,
  units,
  nadgrids
};

// A flag has no value; a shift has seven numbers.
enum class key_kind : unsigned { text, number, whole, flag, shift };
enum class key_unit { none, degrees, metres, ratio };
// A geographic definition has no key of the projection except "proj".
enum class key_part { projection, datum };

struct definition_key_entry {
  definition_key key;
  std::string_view name;        // PROJ's
  std::string_view other_name;  // read as well, never written
  key_kind kind;
  key_unit unit;
  key_part part;
  std::optional<editor_text> caption;  // in a description; a key without one is not described
};

namespace definition_key_table {

using enum key_part;
using key = definition_key;
using kind = key_kind;
using unit = key_unit;
using text = editor_text;

inline constexpr auto entries = std::to_array<definition_key_entry>({
    {key::proj, "proj", "", kind::text, unit::none, projection, text::projection},
    {key::zone, "zone", "", kind::whole, unit::none, projection, text::zone},
    {key::lon_0, "lon_0", "", kind::number, unit::degrees, projection, text::lon_0},
    {key::lonc, "lonc", "", kind::number, unit::degrees, projection, text::lonc},
    {key::lat_0, "lat_0", "", kind::number, unit::degrees, projection, text::lat_0},
    {key::x_0, "x_0", "", kind::number, unit::metres, projection, text::x_0},
    {key::y_0, "y_0", "", kind::number, unit::metres, projection, text::y_0},
    {key::lat_1, "lat_1", "", kind::number, unit::degrees, projection, text::lat_1},
    {key::lat_ts, "lat_ts", "", kind::number, unit::degrees, projection, text::lat_ts},
    {key::lat_2, "lat_2", "", kind::number, unit::degrees, projection, text::lat_2},
    {key::south, "south", "", kind::flag, unit::none, projection, {}},
    {key::k_0, "k_0", "k", kind::number, unit::ratio, projection, text::k_0},
    {key::alpha, "alpha", "", kind::number, unit::degrees, projection, text::alpha},
    {key::datum, "datum", "", kind::text, unit::none, datum, text::datum},
    {key::towgs84, "towgs84", "", kind::shift, unit::none, datum, text::datum_params},
    // A radius gives both axes.
    {key::a, "a", "R", kind::number, unit::metres, datum, text::semi_major},
    {key::b, "b", "R", kind::number, unit::metres, datum, text::semi_minor},
    {key::rf, "rf", "", kind::number, unit::ratio, datum, text::inv_flattening},
    {key::ellps, "ellps", "", kind::text, unit::none, datum, text::ellipse},
    {key::units, "units", "", kind::text, unit::none, projection, {}},
    {key::nadgrids, "nadgrids", "", kind::text, unit::none, datum, {}},
});

}  // namespace definition_key_table

inline constexpr auto& definition_keys = definition_key_table::entries;
inline constexpr std::size_t definition_keys_count = definition_keys.size();

constexpr definition_key_entry const& entry_of(definition_key key) noexcept {
  return definition_keys[static_cast<std::size_t>(key)];
}

// The keys that have a caption, in the order of a description. The ellipsoid's name comes
// before its axes there.
inline constexpr auto described_keys = [] {
  constexpr auto has_caption = [](auto const& entry) { return entry.caption.has_value(); };
  std::array<definition_key, std::ranges::count_if(definition_keys, has_caption)> keys{};
  std::size_t count = 0;
  for (auto const& entry : definition_keys)
    if (has_caption(entry)) keys.at(count++) = entry.key;
  auto* const axes = std::ranges::find(keys, definition_key::a);
  auto* const name = std::ranges::find(keys, definition_key::ellps);
  std::rotate(axes, name, name + 1);
  return keys;
}();

}  // namespace zu

// The numeric parameters that a projection can have, in the order in which the dialog
// shows them.
enum class proj_number : unsigned {
  lon_0,
  lonc,
  lat_0,
  lat_1,
  lat_ts,
  lat_2,
  alpha,
  k_0,
  x_0,
  y_0
};

namespace zu {

struct proj_number_entry {
  proj_number number;
  definition_key key;
};

inline constexpr auto proj_numbers = std::to_array<proj_number_entry>({
    {proj_number::lon_0, definition_key::lon_0},
    {proj_number::lonc, definition_key::lonc},
    {proj_number::lat_0, definition_key::lat_0},
    {proj_number::lat_1, definition_key::lat_1},
    {proj_number::lat_ts, definition_key::lat_ts},
    {proj_number::lat_2, definition_key::lat_2},
    {proj_number::alpha, definition_key::alpha},
    {proj_number::k_0, definition_key::k_0},
    {proj_number::x_0, definition_key::x_0},
    {proj_number::y_0, definition_key::y_0},
});

inline constexpr auto all_proj_numbers = [] {
  std::array<proj_number, proj_numbers.size()> numbers{};
  std::ranges::transform(proj_numbers, numbers.begin(), &proj_number_entry::number);
  return numbers;
}();

constexpr definition_key_entry const& entry_of(proj_number number) noexcept {
  return entry_of(proj_numbers[static_cast<std::size_t>(number)].key);
}

// The numeric parameters in the order of the catalogue's columns.
struct number_column {
  std::string_view name;
  std::optional<proj_number> number;  // none: the column has to exist but is not read
};

inline constexpr auto number_columns = std::to_array<number_column>({
    {"LAT_1", proj_number::lat_1},
    {"LAT_2", proj_number::lat_2},
    {"LAT_TS", proj_number::lat_ts},
    {"LAT_0", proj_number::lat_0},
    {"LON_0", proj_number::lon_0},
    {"LONC", proj_number::lonc},
    {"ALPHA", proj_number::alpha},
    // Every table of the suite has this column, but the scale is in K_0 alone.
    {"K", {}},
    {"K_0", proj_number::k_0},
    {"X_0", proj_number::x_0},
    {"Y_0", proj_number::y_0},
});

// Whether the index of each entry is the value of its enumerator.
template <class Entries, class Member>
constexpr bool are_in_order(Entries const& entries, Member member) noexcept {
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (static_cast<std::size_t>(entries[i].*member) != i) return false;
  return true;
}
static_assert(are_in_order(definition_keys, &definition_key_entry::key));
static_assert(are_in_order(proj_numbers, &proj_number_entry::number));

}  // namespace zu

inline constexpr std::size_t proj_numbers_count = zu::proj_numbers.size();

// PROJ's name of a parameter.
constexpr std::string_view proj_number_key(proj_number number) noexcept {
  return zu::entry_of(number).name;
}
