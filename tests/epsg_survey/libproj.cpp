#include "libproj.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <sstream>

namespace libproj {
namespace {

bool is_one_of(std::string_view key, std::initializer_list<std::string_view> set) {
  return std::ranges::find(set, key) != set.end();
}

}  // namespace

Tcontext::Tcontext() : context_(proj_context_create()) {
  proj_log_level(get(), PJ_LOG_NONE);
  proj_context_set_enable_network(get(), 0);
}

key_list keys_of(std::string_view definition) {
  key_list keys;
  for (std::size_t at = definition.find('+'); at != std::string_view::npos;) {
    auto const next = definition.find(" +", at);
    std::string_view piece = definition.substr(at + 1, next - at - 1);
    piece = piece.substr(0, piece.find_last_not_of(' ') + 1);
    auto const cut = piece.find('=');
    keys.emplace_back(piece.substr(0, cut),
                      cut == std::string_view::npos ? "" : piece.substr(cut + 1));
    at = next == std::string_view::npos ? next : next + 1;
  }
  return keys;
}

std::optional<std::string> value_of(key_list const& keys, std::string_view key) {
  auto const found = std::ranges::find(keys, key, &key_list::value_type::first);
  return found == keys.end() ? std::nullopt : std::optional(found->second);
}

std::string join(key_list const& keys, wanted_keys const& wanted) {
  std::string text;
  for (auto const& [key, value] : keys) {
    if (!wanted(key)) continue;
    text.append(text.empty() ? "+" : " +").append(key);
    if (!value.empty()) text.append("=").append(value);
  }
  return text;
}

bool is_geodetic(std::string_view key) {
  return is_one_of(key, {"datum", "towgs84", "nadgrids", "ellps", "a", "b", "rf", "R"});
}

bool is_of_projection(std::string_view key) {
  return !is_geodetic(key) &&
         !is_one_of(key, {"units", "to_meter", "type", "no_defs", "lon_wrap", "wktext"});
}

std::vector<std::optional<point>> project(Tcontext const& context, std::string const& operation,
                                          std::vector<point> const& degrees) {
  std::vector<std::optional<point>> result(degrees.size());
  object const made = context.create(operation);
  if (!made) return result;
  double const scale = proj_angular_output(made.get(), PJ_FWD) != 0 ? 6378137 : 1;
  for (std::size_t i = 0; i < degrees.size(); ++i) {
    proj_errno_reset(made.get());
    PJ_COORD const from = proj_coord(proj_torad(degrees[i].x), proj_torad(degrees[i].y), 0, 0);
    PJ_COORD const to = proj_trans(made.get(), PJ_FWD, from);
    if (proj_errno(made.get()) == 0 && std::isfinite(to.xy.x) && std::isfinite(to.xy.y))
      result[i] = point{to.xy.x * scale, to.xy.y * scale};
  }
  return result;
}

std::optional<double> distance(std::vector<std::optional<point>> const& left,
                               std::vector<std::optional<point>> const& right) {
  std::optional<double> largest;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (!left[i] && !right[i]) continue;
    double const apart = left[i] && right[i]
                             ? std::hypot(left[i]->x - right[i]->x, left[i]->y - right[i]->y)
                             : std::numeric_limits<double>::infinity();
    largest = std::max(largest.value_or(0), apart);
  }
  return largest;
}

bool are_near(std::vector<std::optional<point>> const& left,
              std::vector<std::optional<point>> const& right) {
  return distance(left, right).value_or(1) < 1e-3;
}

std::optional<ellipsoid> ellipsoid_of(Tcontext const& context, std::string const& crs) {
  object const made = context.create(crs);
  object const shape(made ? proj_get_ellipsoid(context.get(), made.get()) : nullptr);
  ellipsoid result;
  if (!shape || proj_ellipsoid_get_parameters(context.get(), shape.get(), &result.a, &result.b,
                                              nullptr, nullptr) == 0)
    return std::nullopt;
  return result;
}

bool are_alike(std::optional<ellipsoid> const& left, std::optional<ellipsoid> const& right) {
  return left && right && std::abs(left->a - right->a) < 1e-4 &&
         std::abs(left->b - right->b) < 1e-4;
}

namespace {

// Metres (or radians) to the unit of the first axis; 0 where there is none.
double unit_of(Tcontext const& context, std::string const& crs) {
  object made = context.create(crs);
  if (made && proj_get_type(made.get()) == PJ_TYPE_BOUND_CRS)
    made.reset(proj_get_source_crs(context.get(), made.get()));
  object const system(made ? proj_crs_get_coordinate_system(context.get(), made.get()) : nullptr);
  double factor = 0;
  if (system)
    proj_cs_get_axis_info(context.get(), system.get(), 0, nullptr, nullptr, nullptr, &factor,
                          nullptr, nullptr, nullptr);
  return factor;
}

}  // namespace

bool have_same_unit(Tcontext const& context, std::string const& left, std::string const& right) {
  return std::abs(unit_of(context, left) / unit_of(context, right) - 1) < 1e-11;
}

std::vector<std::optional<point>> projected(Tcontext const& context, key_list const& keys,
                                            ellipsoid const& shape,
                                            std::vector<point> const& degrees,
                                            wanted_keys const& wanted) {
  std::ostringstream operation;
  operation.precision(17);
  operation << join(keys, wanted) << " +a=" << shape.a << " +b=" << shape.b;
  return project(context, operation.str(), degrees);
}

std::vector<std::optional<point>> shifted(Tcontext const& context, key_list const& keys,
                                          std::vector<point> const& degrees) {
  auto const is_of_datum = [](auto const& key) { return is_geodetic(key) && key != "nadgrids"; };
  return project(context, "+proj=longlat " + join(keys, is_of_datum), degrees);
}

}  // namespace libproj
