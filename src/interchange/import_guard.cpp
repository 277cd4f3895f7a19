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

// The forms that OSRSetFromUserInput tells apart before it turns to documents
// and files, in its order.
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

// "authority:code" of an authority of the database, its year apart or not.
bool is_of_known_authority(std::string_view text) {
  auto const cut = text.rfind(':');
  if (cut == std::string_view::npos) return false;
  std::string_view const prefix = text.substr(0, cut);
  std::string joined(prefix);
  std::ranges::replace(joined, ':', '_');
  proj_library::prepare_default_context();
  std::unique_ptr<char*, list_closer> const list(proj_get_authorities_from_database(nullptr));
  if (!list) return false;
  for (char** name = list.get(); *name != nullptr; ++name) {
    std::string_view const authority = *name;
    if (authority == prefix || authority == joined ||
        (authority.starts_with(prefix) && authority.substr(prefix.size()).starts_with('_')))
      return true;
  }
  return false;
}

bool is_word(char c) noexcept {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         c == '-' || c == '.';
}

bool is_authority_and_code(std::string_view value) noexcept {
  auto const cut = value.find(':');
  // One letter may be a drive.
  return cut != std::string_view::npos && cut > 1 &&
         std::ranges::all_of(value.substr(0, cut), is_word) &&
         std::ranges::all_of(value.substr(cut + 1), is_word);
}

bool is_path(std::string_view value) noexcept {
  return value.find_first_of("/\\~:") != std::string_view::npos;
}

// The keys of PROJ.4 text, alone or inside WKT, whose values are names of files.
constexpr std::array<std::string_view, 7> grid_keys{"nadgrids", "geoidgrids", "grids", "xy_grids",
                                                    "z_grids",  "model",      "file"};

bool names_no_file_but(std::string_view text, std::string_view noted_key) noexcept {
  constexpr std::string_view between = " \t\r\n\v\f+";
  for (std::size_t at = 0; at < text.size();) {
    auto const end = std::min(text.find_first_of(between, at), text.size());
    std::string_view const piece = text.substr(at, end - at);
    at = end + 1;
    auto const cut = piece.find('=');
    if (cut == std::string_view::npos) continue;
    std::string_view const key = piece.substr(0, cut);
    std::string_view const value = piece.substr(cut + 1);
    if (key == "init" && !is_authority_and_code(value)) return false;
    if (key != noted_key && is_path(value) && std::ranges::find(grid_keys, key) != grid_keys.end())
      return false;
  }
  return true;
}

}  // namespace

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

bool names_no_file(std::string_view text) noexcept { return names_no_file_but(text, {}); }
bool names_no_file_but_shift_grids(std::string_view text) noexcept {
  return names_no_file_but(text, "nadgrids");
}

}  // namespace zu::import_guard
