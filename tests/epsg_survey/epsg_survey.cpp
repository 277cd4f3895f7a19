#include "epsg_survey.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <sstream>

namespace epsg_survey {
namespace {

using libproj::key_list;
using libproj::keys_of;
using libproj::point;
using libproj::value_of;

// Whether the editor's parameters include a key of the projection.
bool is_carried(std::string_view key) {
  static std::set<std::string_view> const carried{"proj",  "zone", "lon_0", "lonc",   "lat_0",
                                                  "x_0",   "y_0",  "lat_1", "lat_ts", "lat_2",
                                                  "south", "k_0",  "k",     "alpha"};
  return carried.contains(key);
}

// One system and what became of it.
class Tcase {
 public:
  Tcase(libproj::Tcontext const& context, verdict& found, std::vector<point> points)
      : context_(context),
        found_(found),
        points_(std::move(points)),
        source_(keys_of(found.source)),
        written_(keys_of(found.written)) {}

  // False when PROJ cannot compute with the source.
  bool judge() {
    auto const shape = libproj::ellipsoid_of(context_, found_.source);
    if (!shape) return false;
    auto const expected = libproj::projected(context_, source_, *shape, points_);
    if (std::ranges::none_of(expected, [](auto const& to) { return to.has_value(); })) return false;
    if (found_.written.empty()) {
      found_.result = outcome::unknown;
      found_.causes.push_back(value_of(source_, "proj").value_or(""));
      return true;
    }
    auto const after = libproj::ellipsoid_of(context_, found_.written + " +type=crs");
    if (!after) {
      add_unexplained("PROJ does not read the result");
      found_.result = outcome::changed;
      return true;
    }
    if (found_.written_again != found_.written)
      add_unexplained("another one the second time: " +
                      libproj::join(keys_of(found_.written_again), libproj::is_geodetic));
    compare_projection(expected, *shape);
    compare_units();
    compare_ellipsoid(shape, after);
    compare_shift();
    if (!found_.causes.empty()) found_.result = outcome::changed;
    return true;
  }

 private:
  void add_unexplained(std::string const& what) {
    found_.causes.push_back("UNEXPLAINED: " + what);
    found_.unexplained = true;
  }

  void compare_projection(std::vector<std::optional<point>> const& expected,
                          libproj::ellipsoid const& shape) {
    auto const now = libproj::projected(context_, written_, shape, points_);
    if (are_near(expected, now)) return;
    if (!are_near(libproj::projected(context_, source_, shape, points_, is_carried), now))
      return add_unexplained("projection, " + value_of(source_, "proj").value_or(""));
    for (auto const& [key, value] : source_) {
      if (is_carried(key) || !libproj::is_of_projection(key)) continue;
      auto others = source_;
      std::erase_if(others, [&one = key](auto const& other) { return other.first == one; });
      if (!are_near(expected, libproj::projected(context_, others, shape, points_)))
        found_.causes.push_back("key dropped: " + key);
    }
  }

  void compare_units() {
    if (libproj::have_same_unit(context_, found_.source, found_.written + " +type=crs")) return;
    if (value_of(source_, "to_meter"))
      found_.causes.emplace_back("key dropped: to_meter");
    else
      add_unexplained("units");
  }

  void compare_ellipsoid(std::optional<libproj::ellipsoid> const& before,
                         std::optional<libproj::ellipsoid> const& after) {
    if (are_alike(before, after)) return;
    // With this grid PROJ takes the sphere for the ellipsoid of WGS 84.
    auto const without = libproj::join(source_, [](auto const& key) { return key != "nadgrids"; });
    if (value_of(source_, "nadgrids") == "@null" &&
        are_alike(libproj::ellipsoid_of(context_, without), after))
      return;
    add_unexplained("ellipsoid " + libproj::join(source_, libproj::is_geodetic));
  }

  static bool is_zero_shift(key_list const& keys) {
    auto const shift = value_of(keys, "towgs84");
    return !shift || shift->find_first_not_of("0,") == std::string::npos;
  }

  void compare_shift() {
    auto const datum = value_of(source_, "datum");
    auto const grid = value_of(source_, "nadgrids");
    if (grid) found_.causes.push_back("key dropped: nadgrids=" + *grid);
    // PROJ shifts these two by grids. The numbers of the dialog replace the grids.
    if (datum && (*datum == "NAD27" || *datum == "potsdam")) {
      if (value_of(written_, "datum") != datum)
        add_unexplained("datum " + *datum);
      else if (!is_zero_shift(written_))
        found_.causes.push_back("grid of the datum gives way to seven numbers: " + *datum);
      return;
    }
    bool const silent = !datum && !grid && !value_of(source_, "towgs84");
    // To the dialog no shift and a shift of zeros are the same.
    if (silent && is_zero_shift(written_)) return;
    if (are_near(libproj::shifted(context_, source_, points_),
                 libproj::shifted(context_, written_, points_)))
      return;
    if (silent && value_of(source_, "ellps") == "krass" && value_of(written_, "ellps") == "krass" &&
        value_of(written_, "towgs84") == "23.57,-140.95,-79.8,0,0.35,0.79,-0.22")
      found_.causes.emplace_back("Krasovsky's ellipsoid without a shift gets that of Pulkovo 1942");
    else
      add_unexplained("datum shift " + datum.value_or(""));
  }

  libproj::Tcontext const& context_;
  verdict& found_;
  std::vector<point> points_;
  key_list source_;
  key_list written_;
};

}  // namespace

std::vector<point> points_in(libproj::Tcontext const& context, PJ const* crs) {
  double west = -180;
  double south = -80;
  double east = 180;
  double north = 80;
  if (proj_get_area_of_use(context.get(), crs, &west, &south, &east, &north, nullptr) == 0 ||
      west == -1000) {
    west = -10;
    east = 10;
    south = 30;
    north = 50;
  }
  if (east < west) east += 360;
  std::vector<point> points;
  for (auto const [u, v] : {point{0.5, 0.5}, {0.2, 0.3}, {0.8, 0.25}, {0.3, 0.85}, {0.7, 0.7}})
    points.push_back({west + u * (east - west), south + v * (north - south)});
  return points;
}

std::vector<std::string> codes(libproj::Tcontext const& context, bool with_3d) {
  std::unique_ptr<PROJ_CRS_LIST_PARAMETERS, decltype(&proj_get_crs_list_parameters_destroy)> const
      wanted(proj_get_crs_list_parameters_create(), &proj_get_crs_list_parameters_destroy);
  std::array<PJ_TYPE, 3> const types{PJ_TYPE_PROJECTED_CRS, PJ_TYPE_GEOGRAPHIC_2D_CRS,
                                     PJ_TYPE_GEOGRAPHIC_3D_CRS};
  wanted->types = types.data();
  wanted->typesCount = with_3d ? types.size() : types.size() - 1;
  wanted->allow_deprecated = 1;
  int count = 0;
  std::unique_ptr<PROJ_CRS_INFO*, decltype(&proj_crs_info_list_destroy)> const list(
      proj_get_crs_info_list_from_database(context.get(), "EPSG", wanted.get(), &count),
      &proj_crs_info_list_destroy);
  std::vector<std::string> found;
  found.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) found.emplace_back(list.get()[i]->code);
  return found;
}

report run(zu::Tzu_pj_editor& editor) {
  libproj::Tcontext const context;
  report survey;
  for (std::string const& code : codes(context, false)) {
    ++survey.systems;
    libproj::object const crs(proj_create_from_database(context.get(), "EPSG", code.c_str(),
                                                        PJ_CATEGORY_CRS, 0, nullptr));
    char const* const text =
        crs ? proj_as_proj_string(context.get(), crs.get(), PJ_PROJ_4, nullptr) : nullptr;
    if (text == nullptr) {
      ++survey.without_text;
      continue;
    }
    verdict found;
    found.code = code;
    found.source = text;
    editor.set_proj4_string(text);
    found.written = editor.get_proj4_string();
    editor.set_proj4_string(found.written.c_str());
    found.written_again = editor.get_proj4_string();
    if (!Tcase(context, found, points_in(context, crs.get())).judge()) {
      ++survey.not_computable;
      continue;
    }
    survey.verdicts.push_back(std::move(found));
  }
  return survey;
}

std::string table(report const& survey) {
  auto const count = [&survey](outcome wanted) {
    return std::ranges::count(survey.verdicts, wanted, &verdict::result);
  };
  std::map<std::string, std::pair<std::size_t, verdict const*>> causes;
  for (verdict const& found : survey.verdicts) {
    for (std::string const& cause : std::set(found.causes.begin(), found.causes.end())) {
      auto& entry = causes[(found.result == outcome::unknown ? "unknown: " : "") + cause];
      ++entry.first;
      if (entry.second == nullptr) entry.second = &found;
    }
  }
  std::ostringstream out;
  auto const line = [&out](auto number_of, std::string const& what) {
    out.width(7);
    out << number_of << "  " << what << '\n';
  };
  line(survey.systems, "systems in the database");
  line(survey.without_text, "that PROJ cannot write as a definition");
  line(survey.not_computable, "whose definition PROJ cannot compute with");
  line(survey.verdicts.size(), "through the editor, of them");
  line(count(outcome::same), "  same meaning");
  line(count(outcome::unknown), "  unknown");
  line(count(outcome::changed), "  changed");
  out << "causes (a system can have several):\n";
  for (auto const& [cause, entry] : causes)
    line(entry.first, cause + "\n           EPSG:" + entry.second->code + " " +
                          entry.second->source + "\n           -> " + entry.second->written);
  return out.str();
}

}  // namespace epsg_survey
