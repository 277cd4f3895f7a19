#include "interchange/known_system_index.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "basic/number.h"

namespace zu {
namespace {

// Wider than the tolerance of Tzu_proj4_str::equal, so that rounding loses no equal row.
constexpr double tolerance = 1e-5;

// The parameters that differ between most rows. In equal definitions each of them is
// equal, or undefined in both; so only rows with an equal key need the full comparison.
struct key {
  std::array<double, 5> values{};

  explicit key(Tzu_proj4_str& set) {
    // No number of a definition is near this one.
    constexpr double undefined = 1e300;
    auto const value_of = [](auto const& param, double value) {
      return param.get_def() ? value : undefined;
    };
    auto& shift = set.get_towgs84();
    values = {value_of(set.get_lon_0(), set.get_lon_0().get_dbl()),
              value_of(set.get_y_0(), set.get_y_0().get_dbl()),
              value_of(set.get_x_0(), set.get_x_0().get_dbl()),
              value_of(set.get_lat_0(), set.get_lat_0().get_dbl()),
              value_of(shift, shift.get_dbl(0))};
  }
  double meridian() const noexcept { return values.front(); }
  bool agrees(key const& other) const noexcept {
    for (std::size_t i = 0; i < values.size(); ++i)
      if (number::distance(values[i], other.values[i]) > tolerance) return false;
    return true;
  }
};

struct entry {
  std::unique_ptr<Tzu_proj4_str> definition;
  key where;
  std::size_t row;
};

// Confirmed rows from west to east.
std::vector<entry> make_index() {
  std::vector<entry> index;
  for (std::size_t row = 0; row < known_systems.size(); ++row) {
    if (!known_systems[row].confirmed) continue;
    auto definition = std::make_unique<Tzu_proj4_str>();
    definition->set(known_systems[row].proj4);
    definition->decompose();
    key const where(*definition);
    index.push_back({std::move(definition), where, row});
  }
  std::ranges::stable_sort(index, {}, [](entry const& each) { return each.where.meridian(); });
  return index;
}

}  // namespace

known_system const* find_known_system(Tzu_proj4_str& definition) {
  static std::vector<entry> const index = make_index();
  key const wanted(definition);
  auto at = std::ranges::lower_bound(index, wanted.meridian() - tolerance, {},
                                     [](entry const& each) { return each.where.meridian(); });
  std::size_t first = known_systems.size();
  for (; at != index.end() && at->where.meridian() <= wanted.meridian() + tolerance; ++at) {
    if (at->row < first && at->where.agrees(wanted) && at->definition->equal(definition))
      first = at->row;
  }
  return first < known_systems.size() ? &known_systems[first] : nullptr;
}

}  // namespace zu
