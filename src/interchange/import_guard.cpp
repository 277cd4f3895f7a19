#include "interchange/import_guard.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "basic/str.h"
#include "proj4/proj_library.h"

namespace zu::import_guard {
namespace {

bool starts_with(std::string_view text, std::string_view prefix) {
  return str::equal_no_case(text.substr(0, prefix.size()), prefix);
}

template <class List>
bool starts_with_any(std::string_view text, List const& prefixes) {
  return std::ranges::any_of(prefixes,
                             [text](std::string_view prefix) { return starts_with(text, prefix); });
}

template <class List>
bool contains_any(std::string_view text, List const& words) {
  return std::ranges::any_of(
      words, [text](std::string_view word) { return text.find(word) != std::string_view::npos; });
}

// The forms that OSRSetFromUserInput checks before it tries documents and files, in its
// order.
constexpr std::array<std::string_view, 19> wkt_keywords{
    "GEOGCS",       "GEOCCS",        "PROJCS",         "VERT_CS",       "COMPD_CS",
    "LOCAL_CS",     "GEODCRS",       "GEOGCRS",        "GEODETICCRS",   "PROJCRS",
    "VERTCRS",      "GEOGRAPHICCRS", "ENGCRS",         "BOUNDCRS",      "VERTICALCRS",
    "PROJECTEDCRS", "COMPOUNDCRS",   "ENGINEERINGCRS", "DERIVEDPROJCRS"};
constexpr std::array<std::string_view, 15> identifiers{"EPSG:",
                                                       "EPSGA:",
                                                       "urn:ogc:def:crs:",
                                                       "urn:ogc:def:crs,crs:",
                                                       "urn:x-ogc:def:crs:",
                                                       "urn:opengis:crs:",
                                                       "urn:opengis:def:crs:",
                                                       "http://opengis.net/def/crs",
                                                       "https://opengis.net/def/crs",
                                                       "http://www.opengis.net/def/crs",
                                                       "https://www.opengis.net/def/crs",
                                                       "www.opengis.net/def/crs",
                                                       "AUTO:",
                                                       "OGC:",
                                                       "CRS:"};
constexpr std::array<std::string_view, 5> names{"NAD27", "NAD83", "WGS84", "WGS72", "osgb:BNG"};
constexpr std::array<std::string_view, 9> json_types{
    "GeodeticCRS", "GeographicCRS",  "ProjectedCRS",  "VerticalCRS", "BoundCRS",
    "CompoundCRS", "EngineeringCRS", "ParametricCRS", "TemporalCRS"};

struct list_closer {
  void operator()(char** list) const noexcept { proj_string_list_destroy(list); }
};

// "authority:code" with an authority of PROJ's database. Such a name may end in a year:
// "IAU_2015:30100" is also "IAU:2015:30100" and "IAU:30100".
bool is_of_known_authority(std::string_view text) {
  auto const cut = text.rfind(':');
  if (cut == std::string_view::npos) return false;
  std::string_view const prefix = text.substr(0, cut);
  std::string joined(prefix);
  std::ranges::replace(joined, ':', '_');
  proj_library::prepare_default_context();
  std::unique_ptr<char*, list_closer> const list(
      proj_get_authorities_from_database(proj_library::current_context()));
  if (!list) return false;
  for (char** name = list.get(); *name != nullptr; ++name) {
    std::string_view const authority = *name;
    if (authority == prefix || authority == joined ||
        (authority.starts_with(prefix) && authority.substr(prefix.size()).starts_with('_')))
      return true;
  }
  return false;
}

// The longest text of a system in PROJ's database has about 6 KB and 8 levels.
constexpr std::size_t max_size = std::size_t{256} << 10U;
constexpr std::size_t max_depth = 32;

}  // namespace

bool is_of_sane_size(std::string_view text) noexcept {
  if (text.size() > max_size) return false;
  std::size_t depth = 0;
  for (char const c : text) {
    if (c == '{' || c == '[') ++depth;
    if ((c == '}' || c == ']') && depth > 0) --depth;
    if (depth > max_depth) return false;
  }
  return true;
}

bool is_definition(std::string_view text) {
  if (starts_with(text, "ESRI::")) text.remove_prefix(6);
  if (starts_with_any(text, wkt_keywords) || starts_with_any(text, identifiers)) return true;
  if (starts_with(text, "DICT:")) return false;
  if (std::ranges::any_of(names, [text](auto name) { return str::equal_no_case(text, name); }))
    return true;
  if (text.starts_with('{') && text.find("\"type\"") != std::string_view::npos &&
      contains_any(text, json_types))
    return true;
  if (contains_any(text, std::array<std::string_view, 2>{"+proj", "+init"})) return true;
  if (starts_with_any(text, std::array<std::string_view, 2>{"http://", "https://"})) return false;
  return is_of_known_authority(text);
}

}  // namespace zu::import_guard
