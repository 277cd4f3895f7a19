// Compares the known systems with GDAL and the EPSG data.

#include <gtest/gtest.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basic/number.h"
#include "core_support.h"
#include "fed_by.h"
#include "interchange/known_systems.h"
#include "interchange/proj4_conv.h"
#include "text/strconv.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

using zu::known_systems;

// Where the kinds of rows begin, and the two rows of a kind of their own.
constexpr std::size_t gsk = 1;
constexpr std::size_t pulkovo = 63;
constexpr std::size_t cadastral = 125;
constexpr std::size_t mixed = 188;
constexpr std::size_t moscow = 365;

// Districts of Pulkovo 1995. Two of their systems are not.
std::set<std::string> const districts_1995{"05", "06", "07", "09", "15", "20", "26", "33",
                                           "50", "54", "55", "60", "67", "71", "72", "89"};
std::set<std::string> const systems_1942{"Russia_Cadastre_20_1_N", "Russia_Cadastre_71_3_N"};

std::string name_of(std::size_t place) {
  return std::string(zu::known_system_name(known_systems.at(place)));
}

bool is_1995(std::size_t place) {
  std::string const name = name_of(place);
  return place >= cadastral && !systems_1942.contains(name) &&
         districts_1995.contains(name.substr(std::string_view("Russia_Cadastre_").size(), 2));
}

// What the conversion makes of an ASCII text, "unfed" for nothing.
std::string to_esri(std::string const& definition) {
  std::wstring const wide(definition.begin(), definition.end());
  return zu::strconv::to_utf8(core_test::fed_by([&](Izu_string_adp* adapter) {
    static_cast<void>(zu_pj4_export_esri(wide.c_str(), adapter));
  }));
}

// The definition once for each of its numbers, that number changed by 1e-5.
std::vector<std::string> with_a_number_changed(std::string const& definition) {
  std::vector<std::string> changed;
  for (std::size_t at = 0; (at = definition.find_first_of("=,", at)) != std::string::npos;) {
    auto const end = definition.find_first_of(" ,", ++at);
    auto const value = zu::number::scan_double(definition.substr(at, end - at));
    if (!value || definition.substr(0, at).ends_with("lon_wrap=")) continue;
    changed.push_back(definition.substr(0, at) + zu::number::format_double(*value + 1e-5, 15) +
                      definition.substr(end));
  }
  return changed;
}

// Definitions of other words are tested where definitions are read and compared.
TEST(Known_systems, are_written_byte_for_byte) {
  std::map<std::string, char const*> first_of;
  std::size_t confirmed = 0;
  std::size_t changes = 0;
  for (zu::known_system const& row : known_systems) {
    std::string const definition = row.proj4;
    if (!row.confirmed) {
      // Its placeholder may be another row's definition.
      EXPECT_NE(to_esri(definition), row.wkt);
      continue;
    }
    ++confirmed;
    char const* const wkt = first_of.emplace(definition, row.wkt).first->second;
    EXPECT_EQ(to_esri(definition), wkt);
    for (std::string const& other : with_a_number_changed(definition)) {
      auto const look_up = [&](auto* adapter) { zu::proj4_conv::lookup_db(other, adapter); };
      EXPECT_EQ(core_test::fed_by(look_up), L"unfed") << other;
      ++changes;
    }
  }
  EXPECT_EQ(confirmed, 381U);
  // lon_0, lat_0, x_0, y_0, k_0 and seven of the shift, but for WGS 84 and Moscow.
  EXPECT_EQ(changes, 379U * 12 + 5);
}

// Meridian, origin, false easting and northing, scale, axis and flattening.
std::array<double, 7> numbers_of(OGRSpatialReference const& system) {
  return {system.GetProjParm(SRS_PP_CENTRAL_MERIDIAN, -1),
          system.GetProjParm(SRS_PP_LATITUDE_OF_ORIGIN, -1),
          system.GetProjParm(SRS_PP_FALSE_EASTING, -1),
          system.GetProjParm(SRS_PP_FALSE_NORTHING, -1),
          system.GetProjParm(SRS_PP_SCALE_FACTOR, -1),
          system.GetSemiMajor(),
          system.GetInvFlattening()};
}

void expect_equal(std::array<double, 7> const& left, std::array<double, 7> const& right) {
  for (std::size_t i = 0; i < 6; ++i) EXPECT_DOUBLE_EQ(left.at(i), right.at(i));
  // Bessel's figure has a digit more in the files than in PROJ.
  EXPECT_NEAR(left.back(), right.back(), 1e-7);
}

TEST(Known_systems, mean_to_gdal_what_their_definitions_say) {
  std::set<std::string> codes;
  std::vector<std::array<double, 7>> gsk_numbers;
  for (std::size_t i = 0; i < known_systems.size(); ++i) {
    SCOPED_TRACE(name_of(i));
    std::string wkt = known_systems.at(i).wkt;
    std::array<char*, 2> lines{wkt.data(), nullptr};
    OGRSpatialReference esri;
    ASSERT_EQ(esri.importFromESRI(lines.data()), OGRERR_NONE);

    std::string definition = known_systems.at(i).proj4;
    char const* const shift = i == 0 || i == moscow ? "+datum="
                              : i < pulkovo
                                  ? "+towgs84=0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074 "
                              : is_1995(i) ? "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 "
                                           : "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 ";
    EXPECT_NE(definition.find(shift), std::string::npos) << definition;
    // The suite's own key, which PROJ does not know.
    if (auto const key = definition.find("+datum=msc_bess "); key != std::string::npos)
      definition.erase(key, definition.find(' ', key) + 1 - key);
    OGRSpatialReference proj4;
    ASSERT_EQ(proj4.importFromProj4(definition.c_str()), OGRERR_NONE);
    expect_equal(numbers_of(esri), numbers_of(proj4));
    EXPECT_STREQ(esri.GetAttrValue("PROJECTION"), i == 0 ? nullptr : SRS_PT_TRANSVERSE_MERCATOR);
    EXPECT_STREQ(esri.GetAttrValue("DATUM"), i == 0                     ? "WGS_1984"
                                             : i < pulkovo              ? "D_RUSSIA_2011"
                                             : i == moscow              ? "D_MOSCOW_BESSEL"
                                             : i == mixed || is_1995(i) ? "Pulkovo_1995"
                                                                        : "Pulkovo_1942");
    char const* const authority = esri.GetAuthorityName(nullptr);
    EXPECT_STREQ(authority, i < pulkovo ? nullptr : i < cadastral ? "EPSG" : "CUSTOM");
    if (i < pulkovo) {
      gsk_numbers.push_back(numbers_of(esri));
      continue;
    }
    std::string const code = esri.GetAuthorityCode(nullptr);
    EXPECT_TRUE(codes.insert(code).second) << code;
    if (i >= cadastral) continue;
    int const zone = static_cast<int>(i - pulkovo) / 2;
    int const wanted = ((i - pulkovo) % 2 == 0 ? 28402 : 28462) + zone;
    EXPECT_EQ(code, std::to_string(wanted));
    OGRSpatialReference epsg;
    ASSERT_EQ(epsg.importFromEPSG(wanted), OGRERR_NONE);
    expect_equal(numbers_of(esri), numbers_of(epsg));
    // The zones of GSK-2011 are the same ones.
    auto const& of_gsk = gsk_numbers.at(gsk + i - pulkovo);
    for (std::size_t k = 0; k < 5; ++k) EXPECT_DOUBLE_EQ(of_gsk.at(k), numbers_of(epsg).at(k));
  }
}

}  // namespace
