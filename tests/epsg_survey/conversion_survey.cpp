#include "conversion_survey.h"

#include <cmath>
#include <functional>
#include <sstream>

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

// The text that `produce` feeds; empty when it fails.
using producer = std::function<bool(Izu_string_adp*)>;
std::string ours(producer const& produce) {
  std::string text;
  Tzu_std_string_adapter target(&text);
  zu::string_adp const adapter(target);
  return produce(adapter.get()) ? text : "";
}

std::wstring wide(std::string const& text) { return {text.begin(), text.end()}; }

// A system of GDAL and its texts.
class Tgdal {
 public:
  bool set(std::string const& input) {
    return OSRSetFromUserInput(system_.get(), input.c_str()) == OGRERR_NONE;
  }
  bool set_esri(std::string const& wkt) {
    zu::string_list const list(CSLAddString(nullptr, wkt.c_str()));
    return OSRImportFromESRI(system_.get(), list.get()) == OGRERR_NONE;
  }
  std::string proj4() const { return text_by(&OSRExportToProj4); }
  std::string esri() const {
    return OSRMorphToESRI(system_.get()) == OGRERR_NONE ? text_by(&OSRExportToWkt) : "";
  }

 private:
  template <class Export>
  std::string text_by(Export export_text) const {
    char* text = nullptr;
    bool const done = export_text(system_.get(), &text) == OGRERR_NONE;
    zu::exported_text const owner(text);
    return done && text != nullptr ? text : "";
  }
  zu::spatial_reference const system_{OSRNewSpatialReference(nullptr)};
};

std::string proj4_by_gdal(std::string const& input) {
  Tgdal system;
  return system.set(input) ? system.proj4() : "";
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
  Tgdal system;
  if (!system.set(input)) return "";
  std::string const wkt = system.esri();
  Tgdal back;
  return !wkt.empty() && back.set_esri(wkt) ? back.proj4() : "";
}

bool is_near(std::optional<double> distance) { return distance && *distance < 1e-3; }

// Whether two definitions put the same points in the same place: within a
// millimetre, on the same ellipsoid, in the same unit, with the same shift.
bool is_same(libproj::Tcontext const& context, std::string const& left, std::string const& right,
             std::vector<point> const& points) {
  if (left == right) return true;
  auto const shape = libproj::ellipsoid_of(context, left + " +type=crs");
  auto const other = libproj::ellipsoid_of(context, right + " +type=crs");
  if (!shape || !other || std::abs(shape->a - other->a) > 1e-4 ||
      std::abs(shape->b - other->b) > 1e-4)
    return false;
  auto const unit = libproj::unit_of(context, left + " +type=crs");
  auto const other_unit = libproj::unit_of(context, right + " +type=crs");
  if (!unit || !other_unit || std::abs(*unit / *other_unit - 1) > 1e-11) return false;
  std::ostringstream on_shape;
  on_shape.precision(17);
  on_shape << " +a=" << shape->a << " +b=" << shape->b;
  auto const projected = [&](std::string const& text) {
    return libproj::project(
        context, libproj::join(keys_of(text), libproj::is_of_projection) + on_shape.str(), points);
  };
  auto const shifted = [&](std::string const& text) {
    auto const keys = libproj::join(keys_of(text), [](std::string const& key) {
      return libproj::is_geodetic(key) && key != "nadgrids";
    });
    return libproj::project(context, "+proj=longlat " + keys, points);
  };
  return is_near(distance(projected(left), projected(right))) &&
         is_near(distance(shifted(left), shifted(right))) &&
         value_of(keys_of(left), "nadgrids") == value_of(keys_of(right), "nadgrids");
}

// Calls `look` for every step-th code, with the code and its system.
void for_each_code(
    std::size_t step,
    std::function<void(libproj::Tcontext const&, std::string const&, PJ const*)> const& look) {
  zu::foreign_messages::Tscope const quiet;
  libproj::Tcontext const context;
  auto const all = codes(context, true);
  for (std::size_t i = 0; i < all.size(); i += step) {
    std::string const input = "EPSG:" + all[i];
    look(context, input, context.create(input).get());
  }
}

}  // namespace

conversion_report survey_import(std::size_t step) {
  conversion_report report;
  for_each_code(step, [&](libproj::Tcontext const& context, std::string const& input, PJ const*) {
    std::string const gdals = proj4_by_gdal(input);
    std::string const expected = gdals.empty() ? proj4_by_proj(context, input) : gdals;
    std::string const text = ours([&](Izu_string_adp* adapter) {
      return zu_pj4_import_crs(wide(input).c_str(), adapter) != 0;
    });
    report.texts.push_back(text);
    ++report.counts[!gdals.empty() ? "as GDAL" : !expected.empty() ? "as PROJ" : "by neither"];
    if (text != expected) report.mistakes.push_back(input + "\n  " + expected + "\n  " + text);
  });
  return report;
}

conversion_report survey_esri(std::size_t step) {
  conversion_report report;
  for_each_code(
      step, [&](libproj::Tcontext const& context, std::string const& input, PJ const* crs) {
        std::string const source = proj4_by_gdal(input);
        std::string const gdals = esri_and_back_by_gdal(input);
        if (source.empty() || gdals.empty()) {
          ++report.counts["no way by ESRI WKT for GDAL"];
          return;
        }
        std::string const wkt = ours([&](Izu_string_adp* adapter) {
          return zu_pj4_export_esri(wide(source).c_str(), adapter) != 0;
        });
        std::string const back = ours([&](Izu_string_adp* adapter) {
          return zu_pj4_import_esri_prj(wide(wkt).c_str(), adapter) != 0;
        });
        report.texts.insert(report.texts.end(), {wkt, back});
        auto const points = points_in(context, crs);
        bool const gdal_keeps = is_same(context, source, gdals, points);
        bool const we_keep = is_same(context, source, back, points);
        ++report.counts[gdal_keeps ? (we_keep ? "kept by both" : "kept by GDAL alone")
                                   : (we_keep ? "kept by us alone" : "kept by neither")];
        if (gdal_keeps && !we_keep)
          report.mistakes.push_back(input + "\n  " + source + "\n  " + back + "\n  " + wkt);
      });
  return report;
}

}  // namespace epsg_survey
