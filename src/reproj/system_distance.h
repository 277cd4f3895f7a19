// How far apart two coordinate systems place the same coordinates.
#pragma once

#include <optional>
#include <string>

namespace zu {

// Degrees; east may be more than 180 where the area goes over that meridian.
struct geographic_area {
  double west = 0;
  double south = 0;
  double east = 0;
  double north = 0;
};

// Where a system is used, in any notation that PROJ reads: as PROJ's database says of
// one that it knows; else the strip of a zone, or what lies around the origin.
// Nothing for a text that is no system. UTF-8.
std::optional<geographic_area> area_of_system(std::string const& system);

// A place and how far it moves when its coordinates are taken for the other system's.
struct moved_place {
  double metres = 0;
  double longitude = 0;
  double latitude = 0;
};
// For a user: the metres to the millimetre, and longitude and latitude.
std::wstring tell_metres(moved_place const& moved);
std::wstring tell_place(moved_place const& moved);
// No further is the same place.
inline constexpr double same_place_metres = 1e-3;

struct system_distance {
  moved_place least;
  moved_place most;
};

// Over a grid of an area, by the geodesic on WGS 84. Nothing where PROJ makes no
// operation of one, or where no place of the grid has coordinates in both.
std::optional<system_distance> compare_systems(std::string const& first, std::string const& second,
                                               geographic_area const& area);

}  // namespace zu
