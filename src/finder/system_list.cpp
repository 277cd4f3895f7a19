#include "finder/system_list.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>

#include "basic/str.h"
#include "catalogue/catalogue.h"
#include "finder/regions.h"
#include "interchange/known_systems.h"
#include "interchange/proj4_conv.h"
#include "proj4/proj4_str.h"
#include "proj4/proj_library.h"
#include "text/rc.h"
#include "text/strconv.h"
#include "text/string_adapter.h"

namespace zu {
namespace {

// Zones reach from the equator to the latitude where their meridians come too close to each
// other.
constexpr double zone_top = 84;

std::optional<system_area> strip_around(double meridian, double width, bool south = false) {
  return system_area{meridian - width / 2, south ? -80.0 : 0.0, meridian + width / 2,
                     south ? 0.0 : zone_top};
}

std::optional<double> meridian_of(char const* definition) {
  Tzu_proj4_str set;
  set.set(definition);
  set.decompose();
  return set.get_lon_0().get_def() ? std::optional(set.get_lon_0().get_dbl()) : std::nullopt;
}

std::optional<unsigned> number_at(std::string_view text, std::size_t place) {
  unsigned number = 0;
  auto const read = std::from_chars(text.data() + std::min(place, text.size()),
                                    text.data() + text.size(), number);
  return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

constexpr std::string_view cadastre = "Russia_Cadastre_";
constexpr std::string_view pulkovo = "Pulkovo_1942_GK_Zone_";
constexpr std::string_view gsk = "GSK-2011_GK-";

// For the third system of a cadastral district: "72", "72 3" and the names of its region.
void describe_district(listed_system& system, std::string_view rest) {
  std::string words(rest);
  std::ranges::replace(words, '_', ' ');
  system.other_words = "МСК МСК-" + words + " MSK зона zone";
  system.other_codes = std::string(rest.substr(0, 2)) + "\n" + words;
  auto const number = number_at(rest, 0).value_or(0);
  if (number == 0 || number > cadastral_regions.size()) return;
  cadastral_region const& region = cadastral_regions.at(number - 1);
  system.area = region.english;
  system.russian_area = region.russian;
  for (char const* const name :
       {region.english, region.russian, region.english_centre, region.russian_centre}) {
    system.other_words.append(" ").append(name);
    if (*name != '\0') system.other_codes.append("\n").append(name);
  }
}

void describe_known(listed_system& system) {
  std::string_view const name = system.name;
  if (name.starts_with(cadastre)) {
    describe_district(system, name.substr(cadastre.size()));
    return;
  }
  bool const is_pulkovo = name.starts_with(pulkovo);
  if (!is_pulkovo && !name.starts_with(gsk)) return;
  system.area = "Russia and neighbours";
  system.russian_area = "Россия и соседние страны";
  system.other_words = is_pulkovo ? "СК-42 SK-42 Пулково" : "ГСК-2011";
  system.other_words += " Гаусс-Крюгер Gauss-Kruger зона zone";
}

// The EPSG code in its WKT, when there is one: other programs know the system by that.
std::string code_in(std::string_view wkt) {
  constexpr std::string_view mark = "AUTHORITY[\"EPSG\",";
  auto const at = wkt.rfind(mark);
  if (at == std::string_view::npos) return {};
  auto const code = number_at(wkt, at + mark.size());
  return code ? "\nEPSG:" + std::to_string(*code) + "\n" + std::to_string(*code) : std::string();
}

listed_system list_known(known_system const& row) {
  listed_system system;
  system.id = known_system_name(row);
  system.name = system.id;
  describe_known(system);
  system.other_codes += code_in(row.wkt);
  if (!row.confirmed) return system;
  // Districts have zones of three degrees or of six degrees. A strip of three degrees is
  // inside of both.
  double const width = system.name.starts_with(cadastre) ? 3 : 6;
  if (auto const meridian = meridian_of(row.proj4)) system.box = strip_around(*meridian, width);
  return system;
}

// A name that needs no quotes in a shell: "Gauss-Kruger_plus_zone_7".
std::string id_of(Tzu_pj_proj_def const& zone) {
  std::string id;
  for (char const c : std::string(str::trim(zone.get_caption())) + " " +
                          std::to_string(zone.get_zone().get_default())) {
    bool const is_plain =
        (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
    if (is_plain)
      id.push_back(c);
    else if (!id.empty() && id.back() != '_')
      id.push_back('_');
  }
  return id;
}

bool is_utm(Tzu_pj_proj_def const& zone) { return zone.get_prj4_name() == "utm"; }

listed_system list_zone(Tzu_pj_proj_def const& zone) {
  listed_system system;
  system.kind = system_kind::zonal;
  system.id = id_of(zone);
  int const number = zone.get_zone().get_default();
  system.name = strconv::to_utf8(strconv::from_system(str::trim(zone.get_caption()))) + " " +
                std::to_string(number);
  double const meridian = is_utm(zone) ? number * 6 - 183 : zone.get_lon_0().get_default();
  bool const is_narrow = zone.get_caption().find("3-degree") != std::string::npos;
  system.box = strip_around(meridian, is_narrow ? 3 : 6, zone.is_south());
  system.other_words =
      strconv::to_utf8(strconv::from_system(zone.get_add_caption())) + " zone зона";
  if (is_utm(zone))
    system.other_words += " WGS 84 " + std::to_string(number) + (zone.is_south() ? "S" : "N");
  else
    system.other_words += " Pulkovo 1942 Пулково СК-42 SK-42 Гаусс-Крюгер";
  if (is_narrow) system.other_words += " 3-градусная трёхградусная";
  return system;
}

// The definition that the dialog writes when the zone is chosen.
std::string definition_of(Tzu_pj_proj_def const& zone) {
  Tzu_proj4_str set;
  auto const give = [](Tzu_proj4_param_dbl& param, Tzu_pj_dbl_param const& fixed) {
    param.set_def(fixed.get_def_default());
    param.set_dbl(fixed.get_default());
  };
  auto const give_text = [](Tzu_proj4_param_str& param, std::string const& text) {
    param.set_def(true);
    param.set_str(text.c_str());
  };
  give_text(set.get_proj(), zone.get_prj4_name());
  give(set.get_lon_0(), zone.get_lon_0());
  give(set.get_lat_0(), zone.get_lat_0());
  give(set.get_x_0(), zone.get_x_0());
  give(set.get_y_0(), zone.get_y_0());
  give(set.get_k_0(), zone.get_k_0());
  give_text(set.get_units(), zone.get_units().get_default());
  set.get_towgs84().set_def(true);
  if (is_utm(zone)) {
    set.get_zone().set_def(true);
    set.get_zone().set_int(zone.get_zone().get_default());
    set.get_south().set_def(zone.is_south());
    set.get_south().set_bool(zone.is_south());
    give_text(set.get_datum(), "WGS84");
    give_text(set.get_ellipse(), "WGS84");
  } else {
    auto const* const datum = Tzu_datum_def_dbf::get_datums().find_by_caption("PULKOVO_1942");
    if (datum != nullptr) set.get_towgs84().set_values(datum->get_towgs84());
    give_text(set.get_ellipse(), "krass");
  }
  set.compose();
  return set.get();
}

std::string text_or_empty(char const* text) { return text == nullptr ? "" : text; }

struct list_closer {
  void operator()(PROJ_CRS_INFO** list) const noexcept { proj_crs_info_list_destroy(list); }
};

struct parameters_closer {
  void operator()(PROJ_CRS_LIST_PARAMETERS* parameters) const noexcept {
    proj_get_crs_list_parameters_destroy(parameters);
  }
};

listed_system list_row(PROJ_CRS_INFO const& row) {
  listed_system system;
  bool const is_projected = row.type == PJ_TYPE_PROJECTED_CRS;
  system.kind = is_projected ? system_kind::projected : system_kind::geographic;
  system.id = text_or_empty(row.auth_name) + ":" + text_or_empty(row.code);
  system.name = text_or_empty(row.name);
  system.area = text_or_empty(row.area_name);
  system.is_deprecated = row.deprecated != 0;
  system.other_codes = text_or_empty(row.code);
  if (system.id == "EPSG:3857") system.other_words = "Web Mercator Google";
  if (row.bbox_valid != 0) {
    double const west = row.west_lon_degree;
    double const east = row.east_lon_degree;
    system.box = {west, row.south_lat_degree, east < west ? east + 360 : east,
                  row.north_lat_degree};
  }
  return system;
}

}  // namespace

bool system_area::contains(double longitude, double latitude) const noexcept {
  double const turned = longitude < west ? longitude + 360 : longitude;
  return turned >= west && turned <= east && latitude >= south && latitude <= north;
}

std::string const& listed_system::get_area() const {
  return Tzu_rc::is_russian() && !russian_area.empty() ? russian_area : area;
}

std::vector<listed_system> list_shipped_systems() {
  std::vector<listed_system> systems;
  systems.reserve(known_systems.size());
  for (known_system const& row : known_systems) systems.push_back(list_known(row));
  for (Tzu_pj_proj_def const& zone : Tzu_pj_def_dbf::instance().get_zone_defs())
    systems.push_back(list_zone(zone));
  return systems;
}

std::vector<listed_system> list_database_systems() {
  std::vector<listed_system> systems;
  auto const context = proj_library::make_context();
  std::unique_ptr<PROJ_CRS_LIST_PARAMETERS, parameters_closer> const wanted(
      proj_get_crs_list_parameters_create());
  if (!context || !wanted) return systems;
  constexpr std::array types{PJ_TYPE_PROJECTED_CRS, PJ_TYPE_GEOGRAPHIC_2D_CRS};
  wanted->types = types.data();
  wanted->typesCount = types.size();
  wanted->allow_deprecated = 1;
  int count = 0;
  std::unique_ptr<PROJ_CRS_INFO*, list_closer> const rows(
      proj_get_crs_info_list_from_database(context.get(), nullptr, wanted.get(), &count));
  if (!rows) return systems;
  systems.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) systems.push_back(list_row(*rows.get()[i]));
  std::ranges::stable_sort(systems, {}, [](listed_system const& system) {
    return std::pair(system.kind, !system.id.starts_with("EPSG:"));
  });
  return systems;
}

std::optional<std::string> definition_of_shipped(std::string_view id) {
  auto const known = std::ranges::find_if(known_systems, [id](known_system const& row) {
    return str::trim_stricmp(known_system_name(row), id) == 0;
  });
  if (known != known_systems.end())
    return known->confirmed ? std::optional<std::string>(known->proj4) : std::nullopt;
  for (Tzu_pj_proj_def const& zone : Tzu_pj_def_dbf::instance().get_zone_defs())
    if (str::trim_stricmp(id_of(zone), id) == 0) return definition_of(zone);
  return {};
}

std::optional<std::string> definition_of(listed_system const& system) {
  if (system.kind == system_kind::known || system.kind == system_kind::zonal)
    return definition_of_shipped(system.id);
  std::string definition;
  Tzu_std_string_adapter target(&definition);
  string_adp const adapter(target);
  bool const done = proj4_conv().import_crs(strconv::from_utf8(system.id), adapter.get());
  return done ? std::optional(definition) : std::nullopt;
}

}  // namespace zu
