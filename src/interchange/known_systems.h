// Coordinate systems whose ESRI WKT is written as it stands here and not as
// GDAL would write it: the users' other software goes by these names,
// projection names and authority numbers. docs/known-systems.md tells more.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace zu {

// One system in two notations; both texts are ASCII on one line and static.
struct known_system {
  // "PROJCS[...]", in row 0 "GEOGCS[...]"; degrees and metres.
  char const* wkt = "";
  // In the editor's order of keys; degrees and metres. The editor itself writes
  // fewer digits of some meridians, and a shift beside the names of two datums:
  // docs/known-limits.md tells of them.
  char const* proj4 = "";
  // Whether the row's numbers are known to be this system's. A row without that
  // holds placeholders, which keep its place; no definition may be given them.
  bool confirmed = true;
};

inline constexpr std::size_t known_systems_count = 442;

// WGS 84, then the Gauss-Kruger zones of GSK-2011 and of Pulkovo 1942, then the
// cadastral districts of Russia. Where several rows have equal definitions, the
// lower one stands for all.
extern std::array<known_system, known_systems_count> const known_systems;

// The system's name, the first that the WKT quotes: of the projected system, in
// row 0 of the geographic one.
constexpr std::string_view known_system_name(known_system const& system) noexcept {
  std::string_view const wkt = system.wkt;
  auto const begin = wkt.find('"') + 1;
  return wkt.substr(begin, wkt.find('"', begin) - begin);
}

}  // namespace zu
