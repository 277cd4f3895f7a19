// Coordinate systems with their own ESRI WKT. An export writes this WKT and not GDAL's,
// because the users' other software needs these names and authority numbers. See
// docs/known-systems.md.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace zu {

// One system in two notations; both texts are ASCII on one line and static.
struct known_system {
  // "PROJCS[...]", in row 0 "GEOGCS[...]"; degrees and metres.
  char const* wkt = "";
  // In the editor's order of keys; degrees and metres. The editor itself writes some
  // meridians with fewer digits, and adds a shift to the names of two datums: see
  // docs/known-limits.md.
  char const* proj4 = "";
  // Whether the numbers are known to be those of this system. An unconfirmed row has
  // placeholders, so that later rows keep their index; no definition may get its WKT.
  bool confirmed = true;
};

inline constexpr std::size_t known_systems_count = 442;

// WGS 84, then the Gauss-Kruger zones of GSK-2011 and of Pulkovo 1942, then the cadastral
// districts of Russia. Of rows with equal definitions the first one is used.
extern std::array<known_system, known_systems_count> const known_systems;

// The name of the system: the first text in quotes in its WKT.
constexpr std::string_view known_system_name(known_system const& system) noexcept {
  std::string_view const wkt = system.wkt;
  auto const begin = wkt.find('"') + 1;
  return wkt.substr(begin, wkt.find('"', begin) - begin);
}

}  // namespace zu
