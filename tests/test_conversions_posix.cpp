// What stays behind after many conversions, by the C library's own count.

#include <gtest/gtest.h>
#include <malloc.h>

#include <array>
#include <iostream>

#include "fed_by.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

using operation = int (*)(wchar_t const*, Izu_string_adp*);
struct conversion {
  operation convert;
  wchar_t const* text;
  bool succeeds;
};

constexpr wchar_t const* zone =
    L"+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    L"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m";
constexpr wchar_t const* geographic =
    L"GEOGCS[\"GCS_Pulkovo_1942\",DATUM[\"D_Pulkovo_1942\",SPHEROID[\"Krasovsky_1940\",6378245.0,"
    L"298.3]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";

constexpr std::array<conversion, 10> conversions{{
    {&zu_pj4_export_esri, zone, true},
    {&zu_pj4_export_esri, L"+proj=utm +zone=37 +datum=WGS84", true},
    {&zu_pj4_export_esri, L"+proj=lcc +lat_1=45 +datum=WGS84", true},
    {&zu_pj4_export_esri, L"+proj=nonsense", false},
    {&zu_pj4_import_esri_prj, geographic, true},
    {&zu_pj4_import_esri_prj, L"PROJCS[\"x\",GEOGCS[\"y\"", false},
    {&zu_pj4_import_crs, L"EPSG:4284", true},
    {&zu_pj4_import_crs, L"+proj=nonsense", false},
    {&zu_pj4_import_crs, L"WGS 84 / UTM zone 37N", true},
    {&zu_pj4_import_crs, L"+proj=hgridshift +grids=/etc/passwd", false},
}};

// Bytes that are allocated after a number of rounds of all conversions.
std::size_t in_use_after(int rounds) {
  for (int round = 0; round < rounds; ++round) {
    for (auto const& c : conversions) {
      std::wstring result;
      Tzu_std_wstring_adapter target(&result);
      zu::string_adp const adapter(target);
      EXPECT_EQ(c.convert(c.text, adapter.get()) != 0, c.succeeds);
    }
  }
  return mallinfo2().uordblks;
}

TEST(Conversions_posix, thousands_leave_nothing_behind) {
  std::array<std::size_t, 4> curve{};
  for (std::size_t& point : curve) point = in_use_after(100);
  for (std::size_t const point : curve) std::cout << point << " bytes in use\n";
  // The libraries keep what they read of the database, in the first rounds.
  EXPECT_LT(curve.back(), curve.front() + 16384);
}

}  // namespace
