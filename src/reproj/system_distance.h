// How far apart the same coordinates lie in two coordinate systems.
#pragma once

#include <optional>
#include <string>

namespace zu {

// Degrees; east is more than 180 where the area crosses that meridian.
struct geographic_area {
  double west = 0;
  double south = 0;
  double east = 0;
  double north = 0;
};

// The area of a system in any notation that PROJ reads: the area of use in PROJ's
// database, else the strip of a zone or an area around the origin. Nothing for a text
// that is no system. UTF-8.
std::optional<geographic_area> area_of_system(std::string const& system);

// A place, and the distance to where its coordinates lie in the other system.
struct moved_place {
  double metres = 0;
  double longitude = 0;
  double latitude = 0;
};
// Texts for a user: metres with three decimals, and longitude and latitude.
std::wstring tell_metres(moved_place const& moved);
std::wstring tell_place(moved_place const& moved);
// Up to this distance two places are the same.
inline constexpr double same_place_metres = 1e-3;

struct system_distance {
  moved_place least;
  moved_place most;
};

// Compares the places of a grid over an area; distances are geodesics on WGS 84. Nothing
// where PROJ finds no operation for one of the systems, or where no place of the grid
// has coordinates in both.
std::optional<system_distance> compare_systems(std::string const& first, std::string const& second,
                                               geographic_area const& area);

}  // namespace zu
