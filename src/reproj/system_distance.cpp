#include "reproj/system_distance.h"

#include <geodesic.h>

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "proj4/proj4_str.h"
#include "proj4/proj_library.h"
#include "reproj/reproj_xy_exec.h"
#include "text/strconv.h"

namespace zu {
namespace {

constexpr char const* places = "EPSG:4326";
constexpr int steps = 10;  // of the grid, each way

// A guess from the definition's central meridian and origin.
geographic_area area_around(Tzu_proj4_str& set) {
  auto const value_or = [](Tzu_proj4_param_dbl& param, double otherwise) {
    return param.get_def() ? param.get_dbl() : otherwise;
  };
  if (set.get_is_long_lat()) return {-180, -80, 180, 80};
  std::string const proj = set.get_proj().get_str();
  bool const south = set.get_south().get_def();
  double middle = value_or(set.get_lon_0(), value_or(set.get_lonc(), 0));
  bool const is_zone = set.get_zone().get_def();
  if (is_zone) middle = set.get_zone().get_int() * 6 - 183;
  if (is_zone || proj == "tmerc" || proj == "etmerc")
    return {middle - 3, south ? -80.0 : 0.0, middle + 3, south ? 0.0 : 80.0};
  double const origin = value_or(set.get_lat_0(), value_or(set.get_lat_1(), 0));
  return {middle - 15, std::max(origin - 20, -85.0), middle + 15, std::min(origin + 20, 85.0)};
}

double distance_between(double from_x, double from_y, double to_x, double to_y) {
  geod_geodesic ellipsoid{};
  geod_init(&ellipsoid, 6378137, 1 / 298.257223563);
  double metres = 0;
  geod_inverse(&ellipsoid, from_y, from_x, to_y, to_x, &metres, nullptr, nullptr);
  return metres;
}

}  // namespace

std::optional<geographic_area> area_of_system(std::string const& system) {
  if (auto const known = Tzu_reproj_xy_exec::find_area_of_use(system))
    return geographic_area{(*known)[0], (*known)[1], (*known)[2], (*known)[3]};
  Tzu_proj4_str set;
  set.set(strconv::to_system(strconv::from_utf8(system)).c_str());
  set.decompose();
  if (!set.get_proj().get_def()) return {};
  return area_around(set);
}

std::wstring tell_metres(moved_place const& moved) {
  std::string text;
  number::append_fixed(text, moved.metres, 3);
  return strconv::from_system(text);
}

std::wstring tell_place(moved_place const& moved) {
  std::string text;
  number::append_fixed(text, moved.longitude, 4);
  text.push_back(' ');
  number::append_fixed(text, moved.latitude, 4);
  return strconv::from_system(text);
}

std::optional<system_distance> compare_systems(std::string const& first, std::string const& second,
                                               geographic_area const& area) {
  Tzu_reproj_xy_exec there;
  Tzu_reproj_xy_exec back;
  if (!there.init_as_written(places, first) || !back.init_as_written(second, places)) return {};
  std::optional<system_distance> found;
  for (int i = 0; i <= steps; ++i)
    for (int j = 0; j <= steps; ++j) {
      double const longitude = std::remainder(area.west + (area.east - area.west) * i / steps, 360);
      double const latitude = area.south + (area.north - area.south) * j / steps;
      double x = longitude;
      double y = latitude;
      if (!there.apply(&x, &y) || !back.apply(&x, &y)) continue;
      moved_place const moved{distance_between(longitude, latitude, x, y), longitude, latitude};
      if (!std::isfinite(moved.metres)) continue;
      if (!found) found = {moved, moved};
      if (moved.metres < found->least.metres) found->least = moved;
      if (moved.metres > found->most.metres) found->most = moved;
    }
  return found;
}

}  // namespace zu
