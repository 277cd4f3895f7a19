// The names of the columns of the catalogue's tables, in the order in which make_prj_def
// writes them. A table may have its columns in another order and may have more of them.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/definition_keys.h"

namespace zu {

// An enumerator is the index of a column in the array of names.
enum class ellipse_column : std::size_t { id, name, ellps, a, b, rf };
inline constexpr std::array<std::string_view, 6> ellipse_columns{"ELLPS_ID", "ELLPS_NAME", "ELLPS",
                                                                 "A",        "B",          "RF"};

// The seven numbers begin at shift_x and have the order of towgs84.
enum class datum_column : std::size_t { name, datum, shift_x, ellipse_id = shift_x + 7 };
inline constexpr std::array<std::string_view, 10> datum_columns{
    "DATUM_NAME", "DATUM",    "SHIFT_X0", "SHIFT_Y0", "SHIFT_Z0",
    "ROTAT_X0",   "ROTAT_Y0", "ROTAT_Z0", "SCALE_F0", "ELLPS_ID"};

// Each numeric parameter has four columns.
inline constexpr std::array<std::string_view, 4> number_suffixes{"", "_V", "_MIN", "_MAX"};
enum class number_part : std::size_t { given, value, min, max };

enum class proj_column : std::size_t {
  name,
  alias,
  proj,
  south,
  numbers,
  units = numbers + number_columns.size() * number_suffixes.size(),
  units_value,
  zone,
  zone_value,
  zone_name,
  datum
};

// A column of the parameter that has this place in number_columns.
constexpr proj_column number_column_at(std::size_t place, number_part part) noexcept {
  return static_cast<proj_column>(static_cast<std::size_t>(proj_column::numbers) +
                                  place * number_suffixes.size() + static_cast<std::size_t>(part));
}

inline std::vector<std::string> proj_columns() {
  std::vector<std::string> names{"PRJ_NAME", "PRJ_ALIAS", "PROJ", "SOUTH"};
  for (number_column const& number : number_columns)
    for (std::string_view const suffix : number_suffixes)
      names.push_back(std::string(number.name).append(suffix));
  for (char const* const name : {"UNITS", "UNITS_V", "ZONE", "ZONE_V", "ZONE_N", "DATUM"})
    names.emplace_back(name);
  return names;
}

}  // namespace zu
