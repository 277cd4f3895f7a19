// The known systems, against the rules they follow, GDAL and the EPSG data.

#include <gtest/gtest.h>
#include <ogr_srs_api.h>

#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "basic/number.h"
#include "basic/str.h"
#include "core_support.h"
#include "interchange/known_systems.h"
#include "proj4/proj4_str.h"

namespace {

using zu::known_systems;

// Where the kinds of rows begin, and the two rows of a kind of their own.
constexpr std::size_t gsk = 1;
constexpr std::size_t pulkovo = 63;
constexpr std::size_t cadastral = 125;
constexpr std::size_t mixed = 188;
constexpr std::size_t moscow = 365;

std::string const tail = " +units=m +lon_wrap=45 +no_defs";
std::string const shift_2011 =
    " +k_0=1 +towgs84=0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074 +ellps=GSK2011" + tail;
std::string const shift_1942 =
    " +k_0=1 +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass" + tail;
std::string const shift_1995 =
    " +k_0=1 +towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass" + tail;
std::string const shift_moscow = " +k_0=1 +datum=msc_bess +ellps=bessel" + tail;

// District by district; "1-3" is a run.
constexpr char const* cadastral_names =
    "01:1-2 02:1-2 03:1-6 04:1-2 05:1_N,4 06:1_N,3 07:1_N,3 08:1-3 09:1_N,2 10:1-2 11:3-7 12:1-2 "
    "13:1 14:1-10 15:1_N,3 16:1-3 17:1-3,4_N,5_N,6_N,7_N,NP18,NP19 18:1-2,3_N 19:1_N,2-3 "
    "20:1_N,3-4 21:1 22:1-3 23:1-2 24:1-4 25:1-3 26:1-2,3_N,4_N 27:1-6 28:1-5 29:2-4 30:1-2 "
    "31:1-2 32:1-2 33:1-2,3_N 34:1-2 35:1-5 36:1-2 37:1-2 38:1-8 39:1 40:1 41:1-3 42:1-2 43:1-3 "
    "44:1-3 45:1-3 46:1-2 47:1-3 48:1-2,3_NP 49:1-4 50:1-2 51:1 52:1-3 53:1-3 54:1-4 "
    "55:1-2,NP36 56:1-4 57:1-2,3_N,4_N,NP25,NP26,NP27 58:1-2 59:1-3 60:1-2 61:1-3 62:1-2 63:1-2 "
    "64:1-3 65:1-5 66:1-2 67:1-2 68:1 69:1-3 70:1-6 71:1-2,3_N 72:2-3 73:1-2,3_N,4_N 74:1-3 "
    "75:1-5 76:1-2,NP18,NP19,NP20,NP21,NP23 77:1 78:1 79:1-2,4_N,5_N 80:2-3 81:1-2 82:1-3 83:3-6 "
    "84:1-6 85:3-4 86:1-5,6_N,7_N,8_N,9_N,NP19 87:3-4,4_N,4_NEW,5,5_N,5_N1,5_N2,5_NEW,5_NEW1,"
    "5_NEW2,6,6_N,6_N1,6_N2,6_NEW,6_NEW1,6_NEW2,7,7_N,7_N1,7_NEW,7_NEW1,7_NEW2,8,8_N,8_N1,8_NEW,"
    "8_NEW1,8_NEW2,NP5 88:2-5 89:2-5 90:4-5 91:4";

// Of Pulkovo 1995, but for the two systems below.
std::set<std::string> const districts_1995{"05", "06", "07", "09", "15", "20", "26", "33",
                                           "50", "54", "55", "60", "67", "71", "72", "89"};
std::set<std::string> const systems_1942{"Russia_Cadastre_20_1_N", "Russia_Cadastre_71_3_N"};

std::string name_of(std::size_t place) {
  return std::string(zu::known_system_name(known_systems.at(place)));
}

bool is_1995(std::size_t place) {
  auto const name = name_of(place);
  return place >= cadastral && !systems_1942.contains(name) &&
         districts_1995.contains(name.substr(std::string_view("Russia_Cadastre_").size(), 2));
}

std::vector<std::string> expected_names() {
  std::vector<std::string> names{"GCS_WGS_1984"};
  for (std::string const prefix : {"GSK-2011_GK-", "Pulkovo_1942_GK_Zone_"}) {
    for (int zone = 2; zone <= 32; ++zone) {
      names.push_back(prefix + std::to_string(zone));
      names.push_back(names.back() + "N");
    }
  }
  for (auto const district : zu::str::split(cadastral_names, " ")) {
    auto const [number, zones] = zu::str::divide_str(district, ':');
    auto const prefix = "Russia_Cadastre_" + std::string(number) + "_";
    for (auto const zone : zu::str::split(zones, ",")) {
      auto const [first, last] = zu::str::divide_str(zone, '-');
      if (last.empty()) {
        names.push_back(prefix + std::string(first));
        continue;
      }
      for (int i = zu::number::scan_int(first).value(); i <= zu::number::scan_int(last).value();
           ++i)
        names.push_back(prefix + std::to_string(i));
    }
  }
  return names;
}

TEST(Known_systems, stand_in_order_under_their_names) {
  auto const names = expected_names();
  ASSERT_EQ(names.size(), known_systems.size());
  std::size_t confirmed = 0;
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(name_of(i), names[i]) << i;
    confirmed += known_systems.at(i).confirmed ? 1U : 0U;
  }
  EXPECT_EQ(confirmed, 381U);
  EXPECT_EQ(names.at(mixed), "Russia_Cadastre_20_1_N");
  EXPECT_EQ(names.at(moscow), "Russia_Cadastre_77_1");
}

// A row of each kind as its users' files have it.
TEST(Known_systems, are_written_as_their_users_know_them) {
  std::map<std::size_t, char const*> const whole{
      {0,
       R"(GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]])"},
      {1,
       R"(PROJCS["GSK-2011_GK-2",GEOGCS["GCS_RUSSIA_2011",DATUM["D_RUSSIA_2011",SPHEROID["S_RUSSIA_2011",6378136.5,298.2564151]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]],PROJECTION["Gauss_Kruger"],PARAMETER["False_Easting",2500000.0],PARAMETER["False_Northing",0.0],PARAMETER["Central_Meridian",9.0],PARAMETER["Scale_Factor",1.0],PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0]])"},
      {2,
       R"(PROJCS["GSK-2011_GK-2N",GEOGCS["GCS_RUSSIA_2011",DATUM["D_RUSSIA_2011",SPHEROID["S_RUSSIA_2011",6378136.5,298.2564151]],PRIMEM["Greenwich",0],UNIT["Degree",0.0174532925199432955]],PROJECTION["Gauss_Kruger"],PARAMETER["False_Easting",500000],PARAMETER["False_Northing",0],PARAMETER["Central_Meridian",9],PARAMETER["Scale_Factor",1],PARAMETER["Latitude_Of_Origin",0],UNIT["Meter",1]])"},
      {63,
       R"(PROJCS["Pulkovo_1942_GK_Zone_2",GEOGCS["GCS_Pulkovo_1942",DATUM["D_Pulkovo_1942",SPHEROID["Krasovsky_1940",6378245.0,298.3]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]],PROJECTION["Gauss_Kruger"],PARAMETER["False_Easting",2500000.0],PARAMETER["False_Northing",0.0],PARAMETER["Central_Meridian",9.0],PARAMETER["Scale_Factor",1.0],PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0],AUTHORITY["EPSG",28402]])"},
      {124,
       R"(PROJCS["Pulkovo_1942_GK_Zone_32N",GEOGCS["GCS_Pulkovo_1942",DATUM["D_Pulkovo_1942",SPHEROID["Krasovsky_1940",6378245,298.3]],PRIMEM["Greenwich",0],UNIT["Degree",0.0174532925199432955]],PROJECTION["Gauss_Kruger"],PARAMETER["False_Easting",500000],PARAMETER["False_Northing",0],PARAMETER["Central_Meridian",-171],PARAMETER["Scale_Factor",1],PARAMETER["Latitude_Of_Origin",0],UNIT["Meter",1],AUTHORITY["EPSG",28492]])"},
      {mixed,
       R"(PROJCS["Russia_Cadastre_20_1_N",GEOGCS["GCS_Pulkovo_1995",DATUM["D_Pulkovo_1995",SPHEROID["Krasovsky_1940",6378245.0,298.3]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]],PROJECTION["Gauss_Kruger"],PARAMETER["False_Easting",300049.86],PARAMETER["False_Northing",-4702748.493],PARAMETER["Central_Meridian",45.5088888889],PARAMETER["Scale_Factor",1.0],PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0],AUTHORITY["CUSTOM",100188]])"},
      {moscow,
       R"(PROJCS["Russia_Cadastre_77_1",GEOGCS["GCS_MOSCOW_BESSEL",DATUM["D_MOSCOW_BESSEL",SPHEROID["S_RUSSIA_BESSEL",6377397.155,299.15281285]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]],PROJECTION["Gauss_Kruger"],PARAMETER["False_Easting",0.0],PARAMETER["False_Northing",0.0],PARAMETER["Central_Meridian",37.5],PARAMETER["Scale_Factor",1.0],PARAMETER["Latitude_Of_Origin",55.6666666667],UNIT["Meter",1.0],AUTHORITY["CUSTOM",100365]])"},
  };
  for (auto const& [place, wkt] : whole) EXPECT_STREQ(known_systems.at(place).wkt, wkt);

  std::map<std::size_t, std::string> const definitions{
      {0, "+proj=longlat +datum=WGS84 +ellps=WGS84 +lon_wrap=45 +no_defs"},
      {cadastral,
       "+proj=tmerc +lon_0=37.9833333333 +lat_0=0 +x_0=1300000 +y_0=-4511057.628" + shift_1942},
      {moscow, "+proj=tmerc +lon_0=37.5 +lat_0=55.6666666667 +x_0=0 +y_0=0" + shift_moscow},
      {437, "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628" + shift_1995},
  };
  for (auto const& [place, text] : definitions) EXPECT_EQ(known_systems.at(place).proj4, text);
}

TEST(Known_systems, follow_the_rules_of_their_kind) {
  for (auto const& [start, shift] : {std::pair{gsk, shift_2011}, std::pair{pulkovo, shift_1942}}) {
    for (std::size_t i = 0; i < 62; ++i) {
      int const zone = 2 + static_cast<int>(i) / 2;
      int const meridian = 6 * zone - 3 - (zone > 30 ? 360 : 0);
      std::string text = "+proj=tmerc +lon_0=" + std::to_string(meridian) + " +lat_0=0 +x_0=";
      if (i % 2 == 0) text += std::to_string(zone);
      text.append("500000 +y_0=0").append(shift);
      EXPECT_EQ(known_systems.at(start + i).proj4, text);
    }
  }
  std::size_t of_1995 = 0;
  for (std::size_t i = cadastral; i < known_systems.size(); ++i) {
    auto const& shift = i == moscow ? shift_moscow : is_1995(i) ? shift_1995 : shift_1942;
    EXPECT_TRUE(std::string_view(known_systems.at(i).proj4).ends_with(shift)) << name_of(i);
    of_1995 += is_1995(i) ? 1U : 0U;
  }
  EXPECT_EQ(of_1995, 40U);
}

// Equal rows are one system under two names: the lower one answers for both.
TEST(Known_systems, keep_their_definition_in_the_editor) {
  std::vector<Tzu_proj4_str> sets(known_systems.size());
  std::size_t hidden = 0;
  for (std::size_t i = 0; i < sets.size(); ++i) {
    std::string expected = known_systems.at(i).proj4;
    // A meridian beyond 100 degrees has a digit more than the editor writes.
    if (auto const key = expected.find("lon_0="); key != std::string::npos) {
      auto const digits = expected.substr(key + 6, expected.find(' ', key) - key - 6);
      auto const meridian = zu::number::scan_double(digits).value();
      expected.replace(key + 6, digits.size(), zu::number::format_double(meridian));
    }
    Tzu_proj4_str& set = sets.at(i);
    set.set(known_systems.at(i).proj4);
    set.decompose();
    set.compose();
    EXPECT_EQ(core_test::recorded(std::string(set.get())), expected);

    auto const body = [](std::size_t place) {
      std::string_view const wkt = known_systems.at(place).wkt;
      return wkt.substr(wkt.find("GEOGCS"), wkt.find("AUTHORITY") - wkt.find("GEOGCS"));
    };
    for (std::size_t lower = 0; lower < i && known_systems.at(i).confirmed; ++lower) {
      if (!known_systems.at(lower).confirmed || !sets.at(lower).equal(set)) continue;
      EXPECT_EQ(body(i), body(lower)) << name_of(i);
      ++hidden;
      break;
    }
  }
  EXPECT_EQ(hidden, 39U);
}

struct reference_closer {
  void operator()(OGRSpatialReferenceH handle) const { OSRDestroySpatialReference(handle); }
};

// What GDAL reads from a text by one of its imports.
class Treference {
 public:
  template <class Import, class Text>
  Treference(Import import, Text text)
      : handle_(OSRNewSpatialReference(nullptr)),
        read_(import(handle_.get(), text) == OGRERR_NONE) {}

  bool is_read() const { return read_; }
  std::string name_of(char const* node) const {
    char const* const value = OSRGetAttrValue(handle_.get(), node, 0);
    return value == nullptr ? "" : value;
  }
  std::string authority() const {
    char const* const name = OSRGetAuthorityName(handle_.get(), nullptr);
    return name == nullptr
               ? ""
               : name + (":" + std::string(OSRGetAuthorityCode(handle_.get(), nullptr)));
  }
  // Meridian, origin, false easting and northing, scale, axis and flattening.
  std::array<double, 7> numbers() const {
    auto const value = [this](char const* key) {
      return OSRGetProjParm(handle_.get(), key, -1, nullptr);
    };
    return {value(SRS_PP_CENTRAL_MERIDIAN),
            value(SRS_PP_LATITUDE_OF_ORIGIN),
            value(SRS_PP_FALSE_EASTING),
            value(SRS_PP_FALSE_NORTHING),
            value(SRS_PP_SCALE_FACTOR),
            OSRGetSemiMajor(handle_.get(), nullptr),
            OSRGetInvFlattening(handle_.get(), nullptr)};
  }

 private:
  std::unique_ptr<std::remove_pointer_t<OGRSpatialReferenceH>, reference_closer> handle_;
  bool read_;
};

void expect_equal(std::array<double, 7> const& left, std::array<double, 7> const& right) {
  for (std::size_t i = 0; i < 6; ++i) EXPECT_DOUBLE_EQ(left.at(i), right.at(i));
  // Bessel's figure has a digit more in the files than in PROJ.
  EXPECT_NEAR(left.back(), right.back(), 1e-7);
}

TEST(Known_systems, mean_to_gdal_what_their_definitions_say) {
  std::set<std::string> authorities;
  for (std::size_t i = 0; i < known_systems.size(); ++i) {
    SCOPED_TRACE(name_of(i));
    std::string wkt = known_systems.at(i).wkt;
    std::array<char*, 2> lines{wkt.data(), nullptr};
    Treference const esri(OSRImportFromESRI, lines.data());

    std::string definition = known_systems.at(i).proj4;
    // The suite's own key, which PROJ does not know.
    if (auto const key = definition.find("+datum=msc_bess "); key != std::string::npos)
      definition.erase(key, definition.find(' ', key) + 1 - key);
    Treference const proj4(OSRImportFromProj4, definition.c_str());
    ASSERT_TRUE(esri.is_read() && proj4.is_read());
    expect_equal(esri.numbers(), proj4.numbers());
    EXPECT_EQ(esri.name_of("PROJECTION"), i == 0 ? "" : SRS_PT_TRANSVERSE_MERCATOR);

    EXPECT_EQ(esri.name_of("DATUM"), i == 0                     ? "WGS_1984"
                                     : i < pulkovo              ? "D_RUSSIA_2011"
                                     : i == moscow              ? "D_MOSCOW_BESSEL"
                                     : i == mixed || is_1995(i) ? "Pulkovo_1995"
                                                                : "Pulkovo_1942");
    if (i < pulkovo) {
      EXPECT_EQ(esri.authority(), "");
    } else if (i < cadastral) {
      int const plain = (i - pulkovo) % 2 == 0 ? 28402 : 28462;
      int const code = plain + static_cast<int>(i - pulkovo) / 2;
      EXPECT_EQ(esri.authority(), "EPSG:" + std::to_string(code));
      expect_equal(esri.numbers(), Treference(OSRImportFromEPSG, code).numbers());
    } else {
      EXPECT_TRUE(authorities.insert(esri.authority()).second);
      EXPECT_EQ(esri.authority().size(), std::string_view("CUSTOM:123456").size());
    }
  }
}

}  // namespace
