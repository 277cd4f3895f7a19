// The regions of the cadastral districts of Russia.
#pragma once

#include <array>
#include <cstddef>

namespace zu {

// Texts are UTF-8, static.
struct cadastral_region {
  char const* english;
  char const* russian;
  // The administrative centre: people search for the region by its name.
  char const* english_centre;
  char const* russian_centre;
};

inline constexpr std::size_t cadastral_regions_count = 91;

// All regions in the order of their district numbers; the first one is 01.
//
// Source: the subjects of the Russian Federation (Constitution, article 65) with the numbers
// that the federal cadastre gave to their districts. 80, 81, 82, 84, 85 and 88 are autonomous
// districts that were later joined to others. 90 and 91 are the newest two of the table.
extern std::array<cadastral_region, cadastral_regions_count> const cadastral_regions;

}  // namespace zu
