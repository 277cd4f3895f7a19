#include "interchange/proj4_conv.h"

#include <algorithm>
#include <exception>

#include "basic/number.h"
#include "basic/str.h"
#include "interchange/esri_check.h"
#include "interchange/foreign_messages.h"
#include "interchange/import_guard.h"
#include "interchange/known_system_index.h"
#include "proj4/named_files.h"
#include "proj4/proj4_str_correct.h"
#include "proj4/proj_library.h"
#include "text/fileio.h"
#include "text/strconv.h"
#include "text/string_adapter.h"

namespace zu {
namespace {

using named_files::shift_grids;

// The names of these systems in ESRI's programs, by the numbers of the systems. The
// rotations in rows 2, 4 and 5 have the opposite sign of GDAL's for the same systems, so
// only definitions with exactly these numbers match; see docs/known-limits.md.
constexpr std::array<proj4_conv::mapping_type, 7> mapping_rows{{
    {{28, -130, -95, 0, 0, 0, 0},
     6378245,
     298.3,
     "GCS_Pulkovo_1942",
     "D_Pulkovo_1942",
     "Krasovsky_1940"},
    {{33.4, -146.6, -76.3, -0.359, -0.053, 0.844, -0.84},
     6378245,
     298.3,
     "GCS_Pulkovo_1942_Adj_1958",
     "D_Pulkovo_1942_Adj_1958",
     "Krasovsky_1940"},
    {{24, -123, -94, -0.02, 0.25, 0.13, 1.1},
     6378245,
     298.3,
     "GCS_Pulkovo_1942_Adj_1983",
     "D_Pulkovo_1942_Adj_1983",
     "Krasovsky_1940"},
    {{23.57, -140.95, -79.8, 0, 0.35, 0.79, -0.22},
     6378245,
     298.3,
     "GCS_Pulkovo_1942",
     "D_Pulkovo_1942",
     "Krasovsky_1940"},
    {{24.82, -131.21, -82.66, 0, 0, -0.16, -0.12},
     6378245,
     298.3,
     "GCS_Pulkovo_1995",
     "D_Pulkovo_1995",
     "Krasovsky_1940"},
    {{0, 0, 1.5, 0, 0, -0.076, 0},
     6378136,
     298.257839,
     "GCS_PZ_1990",
     "D_Parametrop_Zemp_1990",
     "PZ_1990"},
    {{0.013, -0.092, -0.03, -0.0017, 0.0036, -0.0043, 0.0074},
     6378136.5,
     298.2564151,
     "GCS_RUSSIA_2011",
     "D_RUSSIA_2011",
     "S_RUSSIA_2011"},
}};

// The rows with the agreed shifts of Pulkovo 1942 and GSK-2011, which an import sets.
constexpr std::size_t pulkovo_1942_row = 3;
constexpr std::size_t gsk_2011_row = 6;

// Other published shifts of Pulkovo 1942; an import replaces them by the agreed one.
constexpr std::array<proj4_conv::towgs84, 2> pulkovo_1942_variants{{
    {23.92, -141.27, -80.9, 0, 0.35, 0.82, -0.12},
    {25, -141, -78.5, 0, 0.35, 0.736, 0},
}};

// GDAL's names of the datums after an import from ESRI WKT.
constexpr std::string_view pulkovo_1942_name = "Pulkovo_1942";
constexpr std::array<std::string_view, 3> gsk_2011_names{"D_RUSSIA_2011", "D_GSK-2011",
                                                         "Geodezicheskaya_Sistema_Koordinat_2011"};

bool is_near(double left, double right) noexcept {
  constexpr double tolerance = 1e-6;
  return number::distance(left, right) <= tolerance;
}

// Runs an operation in a scope for the messages of the foreign libraries. An exception
// (no memory, or one from the host's adapter) becomes a failure.
template <class Operation>
bool run(Operation operation) noexcept try {
  foreign_messages::Tscope const messages;
  return operation();
} catch (std::exception const&) {
  return false;
} catch (...) {
  return false;
}

// Feeds a result of the foreign libraries. Fails when they had too little memory, because
// the result may be incomplete then.
bool feed(Izu_string_adp* adapter, char const* text) {
  if (foreign_messages::is_memory_short()) return false;
  zu_string_adp_feed_c(adapter, text);
  return true;
}

// GDAL makes a PROJ context when a thread uses PROJ through it for the first time.
bool make_context_of_gdal() {
  foreign_messages::Tscope const messages;
  proj_library::Tdatabase_scope const database;
  spatial_reference const system(gdal().OSRNewSpatialReference(nullptr));
  return gdal().OSRImportFromProj4(system.get(), "+proj=longlat +ellps=WGS84") == OGRERR_NONE;
}

// GDAL makes its own PROJ contexts, so it needs the folder of the database as well.
void prepare_libraries() {
  static bool const done = [] {
    std::string const& folder = proj_library::shipped_data_folder();
    std::array<char const*, 2> const paths{folder.c_str(), nullptr};
    if (!folder.empty()) gdal().OSRSetPROJSearchPaths(paths.data());
    proj_library::prepare_default_context();
    return true;
  }();
  static_cast<void>(done);
  if (proj_library::current_context() == nullptr) return;
  static thread_local bool const has_context = make_context_of_gdal();
  static_cast<void>(has_context);
}

bool has_database() {
  foreign_messages::Tproj_scope const messages;
  return proj_library::has_database();
}

bool is_called(Tzu_proj4_param const& param, std::string_view key) {
  if (str::equal_no_case(param.name(), key)) return true;
  for (unsigned i = 0; i < param.get_other_names_count(); ++i)
    if (str::equal_no_case(param.get_other_name(i), key)) return true;
  return false;
}

// The pieces of a definition with keys that the parameter set does not have. Without
// them, for example without "+pm=", the points would move.
std::string other_keys(Tzu_proj4_str& set, std::string_view definition) {
  std::string text;
  definition.remove_prefix(std::min(definition.find('+'), definition.size()));
  for (std::string_view const piece : str::split(definition, "+")) {
    std::string_view const key = str::divide_str(piece, '=').name;
    if (key.empty() || key == "no_defs" || key == "lon_wrap" || key == "type" ||
        std::ranges::any_of(set.get_list(),
                            [key](auto const* param) { return is_called(*param, key); }))
      continue;
    text.append(" +").append(str::trim(piece));
  }
  return text;
}

// GDAL loses the origin of a Lambert conic with one parallel when the origin is not on
// the parallel.
std::string prepare_for_gdal(std::string const& definition) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  auto const& proj = set.get_proj();
  bool const one_parallel =
      proj.get_def() && str::trim_stricmp(proj.get_str(), "lcc") == 0 && !set.get_lat_2().get_def();
  // With its origin on the parallel it is one of ESRI's own projections.
  bool const is_known = set.get_lat_0().get_def() && set.get_lat_1().get_def() &&
                        set.get_lat_0().get_dbl() == set.get_lat_1().get_dbl();
  if (!one_parallel || is_known) return definition;
  return Tzu_proj4_str_correct().patch_proj4_for_gdal(definition.c_str()) +
         other_keys(set, definition);
}

// WKT2, where the keywords end in "CRS". GDAL's reader of ESRI WKT does not accept it.
bool is_wkt2(std::string_view text) {
  std::string_view const keyword = str::trim(text.substr(0, text.find('[')));
  return keyword.size() > 3 && str::equal_no_case(keyword.substr(keyword.size() - 3), "CRS");
}

// The place of the first text in quotes after the first occurrence of the tag; end is
// npos when there is none.
struct quoted_place {
  std::size_t begin = 0;
  std::size_t end = std::string_view::npos;
};

quoted_place find_wkt_tag(std::string_view wkt, std::string_view tag) noexcept {
  quoted_place place;
  auto const at = wkt.find(tag);
  if (at == std::string_view::npos) return place;
  auto const quote = wkt.find('"', at + tag.size());
  if (quote == std::string_view::npos) return place;
  place.begin = quote + 1;
  place.end = wkt.find('"', place.begin);
  return place;
}

}  // namespace

proj4_conv::proj4_conv() {
  prepare_libraries();
  system_.reset(gdal().OSRNewSpatialReference(nullptr));
}

bool proj4_conv::export_esri_pj(std::wstring_view definition, Izu_string_adp* adapter) noexcept {
  return run([&] {
    std::string const text = strconv::to_utf8(definition);
    return feed_known(text, adapter) || feed_esri(text, adapter);
  });
}

bool proj4_conv::feed_esri(std::string const& definition, Izu_string_adp* adapter) const {
  std::string const prepared = prepare_for_gdal(definition);
  if (!has_database() || !named_files::has_none_but(prepared, shift_grids::any)) return false;
  if (gdal().OSRImportFromProj4(system_.get(), prepared.c_str()) != OGRERR_NONE) return false;
  towgs84 shift{};
  gdal().OSRGetTOWGS84(system_.get(), shift.data(), static_cast<int>(shift.size()));
  double const a = gdal().OSRGetSemiMajor(system_.get(), nullptr);
  double const rf = gdal().OSRGetInvFlattening(system_.get(), nullptr);
  std::string const projection = esri_check::projection_of(system_.get());
  if (gdal().OSRMorphToESRI(system_.get()) != OGRERR_NONE) return false;
  char* exported = nullptr;
  OGRErr const status = gdal().OSRExportToWkt(system_.get(), &exported);
  exported_text const wkt(exported);
  if (status != OGRERR_NONE || !wkt) return false;
  std::string const fault = esri_check::find_fault(projection, wkt.get());
  if (!fault.empty()) {
    foreign_messages::tell(fault);
    return false;
  }
  mapping_type const* const row = map_esri(shift, a, rf);
  return feed(adapter, row == nullptr ? wkt.get() : remap_wkt(wkt.get(), *row).c_str());
}

bool proj4_conv::export_esri_file(std::wstring_view definition, std::wstring_view name) noexcept {
  return run([&] {
    std::wstring wkt;
    Tzu_std_wstring_adapter target(&wkt);
    string_adp const adapter(target);
    return export_esri_pj(definition, adapter.get()) &&
           fileio::writeall(name, strconv::encodings::system, wkt);
  });
}

bool proj4_conv::lookup_db(std::string_view definition, Izu_string_adp* adapter) noexcept {
  return run([&] { return feed_known(std::string(definition), adapter); });
}

bool proj4_conv::feed_known(std::string const& definition, Izu_string_adp* adapter) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  known_system const* const row = find_known_system(set);
  if (row == nullptr) return false;
  zu_string_adp_feed_c(adapter, row->wkt);
  return true;
}

bool proj4_conv::import_esri(std::wstring_view wkt, Izu_string_adp* adapter) noexcept {
  return run([&] {
    std::string text = strconv::to_utf8(wkt);
    if (!named_files::has_none_but(text, shift_grids::listed)) return false;
    if (is_wkt2(text)) return feed_wkt2(text, adapter);
    fix_gsk_wkt(text);
    string_list const list(gdal().CSLAddString(nullptr, text.c_str()));
    return import_esri_lst(list.get(), adapter);
  });
}

bool proj4_conv::feed_wkt2(std::string& text, Izu_string_adp* adapter) const {
  char* rest = text.data();
  return has_database() && gdal().OSRImportFromWkt(system_.get(), &rest) == OGRERR_NONE &&
         fix_towgs84(system_.get()) && feed_proj4(adapter);
}

bool proj4_conv::import_esri_pj(std::wstring_view wkt, Izu_string_adp* adapter) noexcept {
  return import_esri(wkt, adapter);
}

bool proj4_conv::import_esri_file(std::wstring_view name, Izu_string_adp* adapter) noexcept {
  return run([&] {
    std::wstring text;
    if (!fileio::readall(name, strconv::encodings::system, text)) return false;
    strutil::drop_utf8_mark(text);
    return import_esri(text, adapter);
  });
}

bool proj4_conv::import_esri_lst(char** list, Izu_string_adp* adapter) noexcept {
  return run([&] {
    if (!has_database() || gdal().OSRImportFromESRI(system_.get(), list) != OGRERR_NONE)
      return false;
    return fix_towgs84(system_.get()) && feed_proj4(adapter);
  });
}

bool proj4_conv::feed_proj4(Izu_string_adp* adapter) const {
  char* exported = nullptr;
  OGRErr const status = gdal().OSRExportToProj4(system_.get(), &exported);
  exported_text const text(exported);
  // A system of heights only has no definition. WKT has more ways to name a grid; the
  // user of the definition would open that grid.
  if (status != OGRERR_NONE || !text ||
      std::string_view(text.get()).find("+proj=") == std::string_view::npos ||
      !named_files::has_none_but(text.get(), shift_grids::listed))
    return false;
  return feed(adapter, text.get());
}

bool proj4_conv::import_crs(std::wstring_view text, Izu_string_adp* adapter) noexcept {
  return run([&] {
    name_taken_.clear();
    std::string const whole = strconv::to_utf8(text);
    std::string const narrow(str::trim(whole));
    return import_guard::is_of_sane_size(narrow) &&
           (feed_by_gdal(narrow, adapter) || feed_by_proj4(narrow, adapter));
  });
}

bool proj4_conv::import_crs_gdal(std::string_view text, Izu_string_adp* adapter) noexcept {
  return run([&] { return feed_by_gdal(std::string(text), adapter); });
}

bool proj4_conv::feed_by_gdal(std::string const& text, Izu_string_adp* adapter) const {
  if (!has_database() || !import_guard::is_definition(text) ||
      !named_files::has_none_but(text, shift_grids::listed))
    return false;
  return gdal().OSRSetFromUserInput(system_.get(), text.c_str()) == OGRERR_NONE &&
         feed_proj4(adapter);
}

bool proj4_conv::import_crs_proj4(std::string_view text, Izu_string_adp* adapter) noexcept {
  return run([&] { return feed_by_proj4(std::string(text), adapter); });
}

bool proj4_conv::feed_by_proj4(std::string const& text, Izu_string_adp* adapter) {
  // PROJ opens the grids of a text that is no coordinate system.
  if (!has_database() || !named_files::has_none_but(text, shift_grids::none)) return false;
  prepare_libraries();
  foreign_messages::Tproj_scope const messages;
  PJ_CONTEXT* const context = proj_library::current_context();
  proj_library::object const system(proj_create(context, text.c_str()));
  if (!system) return false;
  char const* const exported = proj_as_proj_string(context, system.get(), PJ_PROJ_4, nullptr);
  std::string_view const definition = exported == nullptr ? "" : exported;
  auto const begin = definition.find("+proj=");
  if (begin == std::string_view::npos ||
      !named_files::has_none_but(definition, shift_grids::listed))
    return false;
  name_taken_ = proj_library::name_taken(system.get(), text);
  return feed(adapter, definition.substr(begin).data());
}

bool proj4_conv::expand_pj4(std::wstring_view definition, Izu_string_adp* adapter) noexcept {
  return run([&] {
    constexpr std::wstring_view init = L"+init=";
    auto const at = definition.find(init);
    if (at == std::wstring_view::npos) {
      zu_string_adp_feed(adapter, std::wstring(definition).c_str());
      return true;
    }
    std::wstring rest(definition.substr(at + init.size()));
    strutil::trim_inplace(rest);
    // With other keys after the code the whole text is a definition.
    return import_crs(rest, adapter) ||
           (rest.find(L'+') != std::wstring::npos && import_crs(definition, adapter));
  });
}

bool proj4_conv::is_towgs_equal(towgs84 const& left, towgs84 const& right) noexcept {
  return std::ranges::equal(left, right, is_near);
}

bool proj4_conv::is_datum_equal(mapping_type const& row, towgs84 const& shift, double a,
                                double rf) noexcept {
  return is_towgs_equal(row.shift, shift) && is_near(row.a, a) && is_near(row.rf, rf);
}

proj4_conv::mapping_type const* proj4_conv::map_esri(towgs84 const& shift, double a,
                                                     double rf) noexcept {
  auto const row = std::ranges::find_if(
      mapping_rows, [&](mapping_type const& each) { return is_datum_equal(each, shift, a, rf); });
  return row == mapping_rows.end() ? nullptr : &*row;
}

std::string proj4_conv::extract_wkt_tag(std::string_view wkt, std::string_view tag) {
  auto const [begin, end] = find_wkt_tag(wkt, tag);
  return end == std::string_view::npos ? "" : std::string(wkt.substr(begin, end - begin));
}

void proj4_conv::replace_wkt_tag(std::string& wkt, std::string_view tag, std::string_view name) {
  auto const [begin, end] = find_wkt_tag(wkt, tag);
  if (!name.empty() && end != std::string_view::npos) wkt.replace(begin, end - begin, name);
}

std::string proj4_conv::remap_wkt(std::string_view wkt, mapping_type const& row) {
  std::string result(wkt);
  replace_wkt_tag(result, "GEOGCS", row.geogcs);
  replace_wkt_tag(result, "DATUM", row.datum);
  replace_wkt_tag(result, "SPHEROID", row.spheroid);
  return result;
}

// In ESRI's programs the names of geographic systems begin with "GCS".
void proj4_conv::fix_gsk_wkt(std::string& wkt) {
  std::string const name = extract_wkt_tag(wkt, "GEOGCS");
  if (name.find("GSK") != std::string::npos && !name.starts_with("GCS"))
    replace_wkt_tag(wkt, "GEOGCS", "GCS_" + name);
}

bool proj4_conv::fix_towgs84(OGRSpatialReferenceH system) {
  towgs84 shift{};
  auto const read = [&] {
    return gdal().OSRGetTOWGS84(system, shift.data(), static_cast<int>(shift.size())) ==
           OGRERR_NONE;
  };
  bool has_shift = read();
  if (!has_shift) {
    gdal().OSRAddGuessedTOWGS84(system);
    has_shift = read();
  }
  mapping_type const* row = nullptr;
  if (has_shift && std::ranges::any_of(pulkovo_1942_variants, [&](towgs84 const& variant) {
        return is_towgs_equal(variant, shift);
      })) {
    row = &mapping_rows[pulkovo_1942_row];
  } else {
    char const* const value = gdal().OSRGetAttrValue(system, "DATUM", 0);
    // With too little memory GDAL gives no name, or the name of another notation.
    if (value == nullptr &&
        (gdal().OSRIsGeographic(system) != 0 || gdal().OSRIsProjected(system) != 0))
      return false;
    std::string datum = value == nullptr ? "" : value;
    std::ranges::replace(datum, ' ', '_');
    if (datum == pulkovo_1942_name)
      row = &mapping_rows[pulkovo_1942_row];
    else if (std::ranges::find(gsk_2011_names, datum) != gsk_2011_names.end())
      row = &mapping_rows[gsk_2011_row];
  }
  if (row == nullptr) return true;
  auto const& [dx, dy, dz, rx, ry, rz, ds] = row->shift;
  return gdal().OSRSetTOWGS84(system, dx, dy, dz, rx, ry, rz, ds) == OGRERR_NONE;
}

}  // namespace zu
