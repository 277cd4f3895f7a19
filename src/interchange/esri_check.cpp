#include "interchange/esri_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <string_view>

#include "basic/number.h"
#include "basic/str.h"
#include "interchange/foreign_messages.h"
#include "interchange/spatial_reference.h"
#include "proj4/proj_library.h"

namespace zu::esri_check {
namespace {

std::string ellipsoid_of(OGRSpatialReferenceH system) {
  std::string const a = number::format_double(gdal().OSRGetSemiMajor(system, nullptr), 15);
  double const rf = gdal().OSRGetInvFlattening(system, nullptr);
  return rf == 0 ? "+R=" + a + " " : "+a=" + a + " +rf=" + number::format_double(rf, 15) + " ";
}

std::string projection_read_from(char const* wkt) {
  spatial_reference const system(gdal().OSRNewSpatialReference(nullptr));
  string_list const list(gdal().CSLAddString(nullptr, wkt));
  return gdal().OSRImportFromESRI(system.get(), list.get()) == OGRERR_NONE
             ? projection_of(system.get())
             : "";
}

double central_meridian(std::string_view definition) {
  for (std::string_view const piece : str::split(definition, "+")) {
    auto const [name, value] = str::divide_str(piece, '=');
    if (name == "lon_0" || name == "lonc") return number::scan_double(value).value_or(0);
  }
  return 0;
}

bool is_finite(PJ_XY const& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

// Whether two projections give the same coordinates, or both none, at each test place.
bool are_same(std::string const& left_text, std::string const& right_text) {
  constexpr double millimetre = 1e-3;
  constexpr double degree = std::numbers::pi / 180;
  foreign_messages::Tproj_scope const messages;
  PJ_CONTEXT* const context = proj_library::current_context();
  proj_library::object const left(proj_create(context, left_text.c_str()));
  proj_library::object const right(proj_create(context, right_text.c_str()));
  if (!left || !right) return false;
  double const middle = central_meridian(left_text);
  bool any = false;
  for (double const offset : {-20.0, -3.0, 1.0, 2.5, 20.0})
    for (double const latitude : {-75.0, -40.0, -10.0, 10.0, 45.0, 55.0, 65.0, 80.0}) {
      PJ_COORD const place = proj_coord((middle + offset) * degree, latitude * degree, 0, 0);
      PJ_XY const a = proj_trans(left.get(), PJ_FWD, place).xy;
      PJ_XY const b = proj_trans(right.get(), PJ_FWD, place).xy;
      if (!is_finite(a) && !is_finite(b)) continue;
      // In this form a NaN is not near anything.
      if (!(std::hypot(a.x - b.x, a.y - b.y) <= millimetre)) return false;
      any = true;
    }
  return any;
}

}  // namespace

std::string projection_of(OGRSpatialReferenceH system) {
  char* exported = nullptr;
  bool const done = gdal().OSRExportToProj4(system, &exported) == OGRERR_NONE;
  exported_text const definition(exported);
  if (!done || !definition) return "";
  constexpr std::array<std::string_view, 4> left_out{"towgs84", "nadgrids", "no_defs", "type"};
  std::string text;
  for (std::string_view const piece : str::split(definition.get(), "+")) {
    auto const [name, value] = str::divide_str(piece, '=');
    if (name.empty() || std::ranges::find(left_out, name) != left_out.end()) continue;
    // Its numbers, because one ellipsoid may have several names.
    if (name == "datum" || name == "ellps")
      text.append(ellipsoid_of(system));
    else
      text.append("+").append(str::trim(piece)).append(" ");
  }
  return text;
}

std::string find_fault(std::string const& projection, char const* wkt) {
  std::string_view const text = wkt;
  if (!text.starts_with("PROJCS[") && !text.starts_with("GEOGCS["))
    return "ESRI's WKT has no such system";
  std::string const back = projection_read_from(wkt);
  if (back.empty()) return "nobody reads this system's ESRI WKT";
  if (back == projection || text.starts_with("GEOGCS[") || are_same(projection, back)) return "";
  return "its ESRI WKT is read as another projection, " + back;
}

}  // namespace zu::esri_check
