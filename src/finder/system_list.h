// Every coordinate system that can be found by name: the known systems, the zones of the
// catalogue, and the projected and geographic systems of PROJ's database.
//
// Texts are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zu {

enum class system_kind { known, zonal, projected, geographic };

// Degrees. An area across the meridian of 180 degrees has an east above 180.
struct system_area {
  double west;
  double south;
  double east;
  double north;

  bool contains(double longitude, double latitude) const noexcept;
  // In square degrees, which is good enough to find the smaller of two areas.
  double size() const noexcept { return (east - west) * (north - south); }
};

struct listed_system {
  system_kind kind = system_kind::known;
  std::string id;            // "Russia_Cadastre_50_1", "UTM_North_37", "EPSG:28407"
  std::string name;          // as in the source
  std::string area;          // where it is used, in English; empty when that is unknown
  std::string russian_area;  // the same in Russian; empty when there is no Russian text
  std::optional<system_area> box;
  bool is_deprecated = false;
  // More words and codes to find it by, separated by ' ' or '\n'.
  std::string other_words;
  std::string other_codes;

  // The area in the interface language, or in English when there is no other text.
  std::string const& get_area() const;
};

// The known systems, then the zones. Uses the catalogue, so only the dialog's thread may call
// it.
std::vector<listed_system> list_shipped_systems();

// The systems of PROJ's database: projected systems first, and those of the EPSG before
// others. Empty without a database. Any thread may call it. Takes about 70 ms.
std::vector<listed_system> list_database_systems();

// The definition of a listed system, in the system's code page. Nothing when there is none:
// for some known systems the numbers are not published. The definition of a zone is the one
// that the dialog writes for it.
std::optional<std::string> definition_of(listed_system const& system);

// The definition of a known system or a zone by its id in any case. Nothing for other ids:
// PROJ knows those.
std::optional<std::string> definition_of_shipped(std::string_view id);

}  // namespace zu
