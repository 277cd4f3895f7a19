// The regions that the cadastral districts of Russia stand for.
#pragma once

#include <array>
#include <cstddef>

namespace zu {

// Texts are UTF-8, static.
struct cadastral_region {
  char const* english;
  char const* russian;
  // The administrative centre, by whose name people look for the region.
  char const* english_centre;
  char const* russian_centre;
};

inline constexpr std::size_t cadastral_regions_count = 91;

// By number of the district: the first is 01.
//
// Source: the subjects of the Russian Federation (Constitution, article 65) under the
// numbers that the federal cadastre gave their districts; 80, 81, 82, 84, 85 and 88
// are autonomous districts that have since been joined to others, 90 and 91 the newest
// two of the table.
extern std::array<cadastral_region, cadastral_regions_count> const cadastral_regions;

}  // namespace zu
