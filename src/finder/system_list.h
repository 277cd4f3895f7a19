// Every coordinate system that can be found by name: the known systems, the zones of
// the catalogue, and the projected and geographic systems of PROJ's database.
//
// Texts are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zu {

enum class system_kind { known, zonal, projected, geographic };

// Degrees; east is more than 180 over that meridian.
struct system_area {
  double west;
  double south;
  double east;
  double north;

  bool contains(double longitude, double latitude) const noexcept;
  // In square degrees: what is asked for is which of two is smaller.
  double size() const noexcept { return (east - west) * (north - south); }
};

struct listed_system {
  system_kind kind = system_kind::known;
  std::string id;            // "Russia_Cadastre_50_1", "UTM_North_37", "EPSG:28407"
  std::string name;          // as the source has it
  std::string area;          // where it is used, in English; empty when nobody says
  std::string russian_area;  // the same in Russian; empty where there is only the other
  std::optional<system_area> box;
  bool is_deprecated = false;
  // Words and codes by which it is found, too; ' ' and '\n' stand between them.
  std::string other_words;
  std::string other_codes;

  // In the interface's language, as far as there is one.
  std::string const& get_area() const;
};

// The known systems, then the zones. Uses the catalogue, as the dialog's thread may.
std::vector<listed_system> list_shipped_systems();

// The systems of PROJ's database, projected ones first, the EPSG's before others;
// empty without one. Any thread; takes some 70 ms.
std::vector<listed_system> list_database_systems();

// The definition of a listed system (the system's code page), or nothing: the numbers
// of some known systems nobody has published, and of some others there is no
// definition. Of a zone it is what the dialog makes of it.
std::optional<std::string> definition_of(listed_system const& system);

// The definition of a known system or a zone by its id, whatever its case; nothing for
// other ids, which PROJ knows.
std::optional<std::string> definition_of_shipped(std::string_view id);

}  // namespace zu
