#include <ogr_spatialref.h>

#include <array>

#include "epsg_survey.h"
#include "interchange/foreign_messages.h"
#include "interchange/spatial_reference.h"
#include "text/string_adapter.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace epsg_survey {
namespace {

using libproj::keys_of;
using libproj::point;
using libproj::value_of;

// What a conversion of the library gives; empty when it fails.
std::string ours(int (*convert)(wchar_t const*, Izu_string_adp*), std::string const& from) {
  std::string text;
  Tzu_std_string_adapter target(&text);
  zu::string_adp const adapter(target);
  return convert(std::wstring(from.begin(), from.end()).c_str(), adapter.get()) != 0 ? text : "";
}

std::string text_of(OGRSpatialReference const& system, bool as_wkt) {
  char* text = nullptr;
  auto const result = as_wkt ? system.exportToWkt(&text) : system.exportToProj4(&text);
  zu::exported_text const owner(text);
  return result == OGRERR_NONE && text != nullptr ? text : "";
}

std::string proj4_by_gdal(std::string const& input) {
  OGRSpatialReference system;
  return system.SetFromUserInput(input.c_str()) == OGRERR_NONE ? text_of(system, false) : "";
}

std::string proj4_by_proj(libproj::Tcontext const& context, std::string const& input) {
  auto const system = context.create(input);
  char const* const text =
      system ? proj_as_proj_string(context.get(), system.get(), PJ_PROJ_4, nullptr) : nullptr;
  std::string const definition = text == nullptr ? "" : text;
  auto const begin = definition.find("+proj=");
  return begin == std::string::npos ? "" : definition.substr(begin);
}

std::string esri_and_back_by_gdal(std::string const& input) {
  OGRSpatialReference system;
  OGRSpatialReference back;
  if (system.SetFromUserInput(input.c_str()) != OGRERR_NONE || system.morphToESRI() != OGRERR_NONE)
    return "";
  std::string wkt = text_of(system, true);
  std::array<char*, 2> lines{wkt.data(), nullptr};
  return !wkt.empty() && back.importFromESRI(lines.data()) == OGRERR_NONE ? text_of(back, false)
                                                                          : "";
}

// Whether two definitions put the same points in the same place: within a
// millimetre, on the same ellipsoid, in the same unit, with the same shift.
bool is_same(libproj::Tcontext const& context, std::string const& left, std::string const& right,
             std::vector<point> const& points) {
  if (left == right) return true;
  std::string const crs = " +type=crs";
  auto const shape = libproj::ellipsoid_of(context, left + crs);
  auto const keys = keys_of(left);
  auto const others = keys_of(right);
  return are_alike(shape, libproj::ellipsoid_of(context, right + crs)) &&
         have_same_unit(context, left + crs, right + crs) &&
         are_near(projected(context, keys, *shape, points),
                  projected(context, others, *shape, points)) &&
         are_near(shifted(context, keys, points), shifted(context, others, points)) &&
         value_of(keys, "nadgrids") == value_of(others, "nadgrids");
}

// Every step-th code of the database.
std::vector<std::string> inputs(libproj::Tcontext const& context, std::size_t step) {
  auto const all = codes(context, true);
  std::vector<std::string> chosen;
  for (std::size_t i = 0; i < all.size(); i += step) chosen.push_back("EPSG:" + all[i]);
  return chosen;
}

}  // namespace

conversion_report survey_import(std::size_t step) {
  zu::foreign_messages::Tscope const quiet;
  libproj::Tcontext const context;
  conversion_report report;
  for (auto const& input : inputs(context, step)) {
    std::string const gdals = proj4_by_gdal(input);
    std::string const expected = gdals.empty() ? proj4_by_proj(context, input) : gdals;
    std::string const text = ours(&zu_pj4_import_crs, input);
    report.texts.push_back(text);
    ++report.counts[!gdals.empty() ? "as GDAL" : !expected.empty() ? "as PROJ" : "by neither"];
    if (text != expected)
      report.mistakes.emplace_back(input).append("\n  " + expected).append("\n  " + text);
  }
  return report;
}

conversion_report survey_esri(std::size_t step) {
  zu::foreign_messages::Tscope const quiet;
  libproj::Tcontext const context;
  conversion_report report;
  for (auto const& input : inputs(context, step)) {
    std::string const source = proj4_by_gdal(input);
    std::string const gdals = esri_and_back_by_gdal(input);
    if (source.empty() || gdals.empty()) {
      ++report.counts["no way by ESRI WKT for GDAL"];
      continue;
    }
    std::string const wkt = ours(&zu_pj4_export_esri, source);
    std::string const back = ours(&zu_pj4_import_esri_prj, wkt);
    report.texts.insert(report.texts.end(), {wkt, back});
    auto const points = points_in(context, context.create(input).get());
    bool const gdal_keeps = is_same(context, source, gdals, points);
    bool const we_keep = is_same(context, source, back, points);
    ++report.counts[gdal_keeps ? (we_keep ? "kept by both" : "kept by GDAL alone")
                               : (we_keep ? "kept by us alone" : "kept by neither")];
    if (gdal_keeps && !we_keep)
      report.mistakes.emplace_back(input)
          .append("\n  " + source)
          .append("\n  " + back)
          .append("\n  " + wkt);
  }
  return report;
}

}  // namespace epsg_survey
