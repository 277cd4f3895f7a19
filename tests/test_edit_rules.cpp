// The editing rules: opening a definition and pressing Apply, and what the
// choices of the user change on the way.

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "catalogue_tables.h"
#include "libproj.h"
#include "pj_edit/edit_rules.h"

namespace {

using zu::definition_kind;
using zu::Tzu_pj_editor;
// A definition, or a part of one, and what becomes of it.
using made = std::pair<char const*, char const*>;

std::string open_and_apply(Tzu_pj_editor& editor, std::string const& definition) {
  editor.set_proj4_string(definition.c_str());
  return core_test::recorded(std::string(editor.get_proj4_string()));
}

std::optional<std::string> written(Tzu_pj_editor& editor, std::string const& definition,
                                   std::string_view key) {
  return libproj::value_of(libproj::keys_of(open_and_apply(editor, definition)), key);
}

constexpr char const* pulkovo_42 = "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass";
constexpr char const* gsk_2011 =
    "+towgs84=0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074 +ellps=GSK2011";
constexpr char const* tail = " +units=m +lon_wrap=45 +no_defs";

int meridian_of(int zone) { return zone > 30 ? 6 * zone - 363 : 6 * zone - 3; }

std::string zone_definition(int meridian, int easting, std::string const& datum) {
  return "+proj=tmerc +lon_0=" + std::to_string(meridian) +
         " +lat_0=0 +x_0=" + std::to_string(easting) + " +y_0=0 +k_0=1 " + datum + tail;
}

// ---------------------------------------------------------------------------
// With the catalogue of the installation.

class Shipped : public testing::Test {
 protected:
  Tzu_pj_editor editor{zu::catalogue_lists::shipped()};
};

// Definitions that other software keeps come back byte for byte.
std::vector<std::string> untouched_definitions() {
  std::vector<std::string> definitions{
      "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
      "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs",
      "+proj=tmerc +lon_0=37.9833333333 +lat_0=0 +x_0=1300000 +y_0=-4511057.628 +k_0=1 " +
          std::string(pulkovo_42) + tail};
  for (char const* datum : {pulkovo_42, gsk_2011}) {
    for (int zone = 2; zone <= 32; ++zone) {
      for (int const easting : {zone * 1000000 + 500000, 500000})
        definitions.push_back(zone_definition(meridian_of(zone), easting, datum));
    }
  }
  return definitions;
}

TEST_F(Shipped, KeepsZonesAndLocalSystemsByteForByteInEveryLocale) {
  auto locales = core_test::comma_locales();
  locales.insert(locales.begin(), "C");
  for (char const* name : locales) {
    core_test::Tc_locale const locale(name);
    for (auto const& definition : untouched_definitions())
      EXPECT_EQ(open_and_apply(editor, definition), definition) << name;
  }
}

TEST_F(Shipped, OpensZonesAsZonal) {
  for (int zone = 2; zone <= 32; ++zone) {
    for (auto const& [name, easting] :
         {std::pair("Gauss-Kruger (plus zone)", zone * 1000000 + 500000),
          std::pair("Gauss-Kruger", 500000)}) {
      editor.set_proj4_string(zone_definition(meridian_of(zone), easting, pulkovo_42).c_str());
      EXPECT_EQ(editor.state().kind, definition_kind::zonal) << zone << ' ' << easting;
      EXPECT_EQ(editor.state().zonal_name, name);
      EXPECT_EQ(editor.state().zone, zone);
    }
  }
}

// A zone that there is not is unknown, not another zone.
TEST_F(Shipped, KeepsUtmZonesAndHasNoOther) {
  for (std::string const zone : {"+zone=1", "+zone=37 +south", "+zone=60"})
    EXPECT_EQ(open_and_apply(editor, "+proj=utm " + zone + " +datum=WGS84"),
              "+proj=utm " + zone + " +datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84" + tail);
  for (char const* zone : {"", " +zone=0", " +zone=61", " +zone=-3", " +zone=x"})
    EXPECT_EQ(open_and_apply(editor, std::string("+proj=utm +datum=WGS84") + zone), "") << zone;
}

TEST_F(Shipped, NeverComesBackWithAnotherMeridian) {
  for (int half = -720; half <= 720; ++half) {
    for (double const easting :
         {0.0, 500000.0, 250000.0, std::floor((half + 12) / 12.0) * 1e6 + 5e5}) {
      std::string const given =
          "+proj=tmerc +lat_0=0 +y_0=0 +k_0=1 +ellps=krass +lon_0=" + std::to_string(half / 2.0) +
          " +x_0=" + std::to_string(easting);
      auto const meridian = written(editor, given, "lon_0");
      auto const x_0 = written(editor, given, "x_0");
      ASSERT_TRUE(meridian && x_0) << given;
      EXPECT_NEAR(std::remainder(std::stod(*meridian) - half / 2.0, 360), 0, 1e-9) << given;
      EXPECT_NEAR(std::stod(*x_0), easting, 1e-9) << given;
    }
  }
}

// A zone is a zone only with all that it fixes.
TEST_F(Shipped, OpensWhatDiffersFromAZoneAsUsual) {
  for (std::string const definition : {"+lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=0.9996",
                                       "+lon_0=39 +lat_0=0 +x_0=7500000 +y_0=1 +k_0=1",
                                       "+lon_0=39 +lat_0=10 +x_0=7500000 +y_0=0 +k_0=1",
                                       "+lon_0=39.001 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1",
                                       "+lon_0=45 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1"}) {
    auto const text = "+proj=tmerc " + definition + " +towgs84=1,2,3,4,5,6,7 +ellps=krass" + tail;
    EXPECT_EQ(open_and_apply(editor, text), text);
    EXPECT_EQ(editor.state().kind, definition_kind::usual) << definition;
  }
}

// Zones of Gauss and Kruger are on Pulkovo 1942 when they say nothing else.
TEST_F(Shipped, GivesZonesTheirDatumOnlyWhenTheyHaveNone) {
  for (auto const& [given, expected] :
       {made("", pulkovo_42), made("+ellps=krass", pulkovo_42),
        made("+a=6378245 +rf=298.3", pulkovo_42),
        made("+towgs84=1,2,3 +ellps=krass", "+towgs84=1,2,3,0,0,0,0 +ellps=krass"),
        made("+towgs84=0,0,0 +ellps=krass", "+towgs84=0,0,0,0,0,0,0 +ellps=krass"),
        made("+ellps=GSK2011", "+towgs84=0,0,0,0,0,0,0 +ellps=GSK2011"),
        made("+datum=WGS84", "+datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84")}) {
    auto const with = [](std::string const& datum) { return zone_definition(39, 7500000, datum); };
    EXPECT_EQ(open_and_apply(editor, with(given)), with(expected)) << given;
  }
}

// What PROJ takes for a key that is not there, and what must not be made up: an
// ellipsoid alone turns into no datum; PROJ would not even know Moscow's.
TEST_F(Shipped, WritesKeysThatAreGivenOrMeant) {
  using row = std::tuple<char const*, char const*, std::optional<std::string>>;
  for (auto const& [given, key, expected] :
       {row("+proj=longlat +datum=msc_bess +ellps=bessel", "datum", "msc_bess"),
        row("+proj=longlat +datum=msc_bess +ellps=bessel", "ellps", "bessel"),
        row("+proj=longlat +ellps=bessel", "datum", {}),
        row("+proj=tmerc +lon_0=10 +units=us-ft", "units", "us-ft"),
        row("+proj=tmerc +lon_0=10", "units", "m"), row("+proj=longlat +units=m", "units", {}),
        row("+proj=tmerc +lon_0=10", "k_0", "1"), row("+proj=lcc +lat_1=40", "lat_0", "40"),
        row("+proj=lcc +lat_1=40 +lat_2=50", "lat_0", "0"),
        row("+proj=lcc +lat_1=40 +lat_2=50 +k_0=0.5", "lat_2", "50"),
        row("+proj=stere +lat_0=90 +lat_ts=70", "lat_ts", "70"),
        row("+proj=stere +lat_0=90 +lat_ts=70 +k_0=2", "lat_ts", "70"),
        row("+proj=krovak", "k_0", "0.9999"), row("+proj=krovak", "lat_0", "49.5")})
    EXPECT_EQ(written(editor, given, key), expected) << given;
}

TEST_F(Shipped, NeverOffersAScaleOfZero) {
  for (auto const& record : editor.lists().usual) {
    editor.set_proj4_string("");
    editor.choose_kind(definition_kind::usual);
    editor.choose_usual(record.get_index());
    EXPECT_NE(editor.state().number(proj_number::k_0).value, 0) << record.get_caption();
    EXPECT_EQ(std::string(editor.get_proj4_string()).find("+k_0=0 "), std::string::npos);
  }
}

TEST_F(Shipped, IsEmptyForWhatItDoesNotKnow) {
  for (char const* definition : {"", "   ", "+no_defs", "+ellps=krass", "+proj=no_such +lon_0=1",
                                 "+init=epsg:4326", "no definition at all"})
    EXPECT_EQ(open_and_apply(editor, definition), "") << definition;
  EXPECT_EQ((editor.set_proj4_string(nullptr), std::string(editor.get_proj4_string())), "");
}

// Each definition is taken as if it were the first, and what Apply gives is what
// it gives again.
TEST_F(Shipped, KeepsNothingOfTheDefinitionBeforeAndSettlesAtOnce) {
  std::vector<std::string> definitions = untouched_definitions();
  for (char const* more :
       {"+proj=utm +zone=5 +south", "+proj=lcc +lat_1=1 +lat_2=2 +k_0=3 +units=ft",
        "+proj=omerc +alpha=1 +lonc=2 +lat_0=3", "+proj=unknown", ""})
    definitions.emplace_back(more);
  for (auto const& record : editor.lists().usual) {
    definitions.push_back("+proj=" + record.get_prj4_name());
    definitions.push_back(definitions.back() + " +lat_1=40 +lat_2=50");
  }
  std::vector<std::string> first;
  for (auto const& definition : definitions) {
    Tzu_pj_editor fresh(zu::catalogue_lists::shipped());
    first.push_back(open_and_apply(fresh, definition));
    EXPECT_EQ(open_and_apply(fresh, first.back()), first.back());
  }
  // In an order in which every kind follows every other.
  for (std::size_t const step : {1U, 3U, 7U, 41U})
    for (std::size_t i = 0; i < definitions.size(); ++i) {
      std::size_t const at = i * step % definitions.size();
      EXPECT_EQ(open_and_apply(editor, definitions[at]), first[at]) << definitions[at];
    }
}

// Whatever a parameter says: the form opens, and gives numbers that are ones.
TEST_F(Shipped, SettlesAtOnceOnBrokenValuesToo) {
  for (std::string const start : {"+proj=tmerc +ellps=krass", "+proj=utm +datum=WGS84",
                                  "+proj=longlat", "+proj=lcc +lat_2=50"})
    for (std::string const key :
         {"zone", "a", "b", "rf", "k_0", "lon_0", "lat_1", "towgs84", "ellps", "datum", "R"})
      for (std::string const value : {"0", "-1", "61", "99999999999", "1e11", "nan", "-inf",
                                      "1e999", "0x10", "1,5", "", ",,,,,,,,,", "\xC3\x28"}) {
        std::string const text = std::string(start).append(" +").append(key).append("=") + value;
        std::string const once = open_and_apply(editor, text);
        EXPECT_EQ(open_and_apply(editor, once), once) << text;
        EXPECT_TRUE(once.find("nan") == std::string::npos && once.find("inf") == std::string::npos)
            << text;
      }
}

// ---------------------------------------------------------------------------
// With a small catalogue of special cases.

class Small : public core_test::Tcatalogue_test {
 protected:
  void SetUp() override {
    write("pj_ellps",
          {"ELLPS_ID=1;ELLPS=WGS84;A=6378137;RF=298.257223563",
           "ELLPS_ID=2;ELLPS=krass;A=6378245;RF=298.3",
           "ELLPS_ID=3;ELLPS=bessel;A=6377397.155;RF=299.1528128",
           "ELLPS_ID=4;ELLPS=clrk66;A=6378206.4;B=6356583.8", "ELLPS_ID=14;A=6377000;B=6356000",
           "ELLPS_ID=15;A=6376000;RF=300", "ELLPS_ID=16;A=6370000"});
    write("pj_datum", {"DATUM_NAME=World;DATUM=WGS84;ELLPS_ID=1",
                       "DATUM_NAME=PULKOVO_1942;SHIFT_X0=23.57;SHIFT_Y0=-140.95;SHIFT_Z0=-79.8;"
                       "ROTAT_Y0=0.35;ROTAT_Z0=0.79;SCALE_F0=-0.22;ELLPS_ID=2",
                       "DATUM_NAME=Local;SHIFT_X0=1;SHIFT_Y0=2;SHIFT_Z0=3;ROTAT_X0=4;ROTAT_Y0=5;"
                       "ROTAT_Z0=6;SCALE_F0=7;ELLPS_ID=14",
                       "DATUM_NAME=City;DATUM=msc_bess;ELLPS_ID=3"});
    write("pj_proj1", {"PRJ_NAME=Transverse;PROJ=tmerc;LON_0=1;LAT_0=1;K_0=1;X_0=1",
                       "PRJ_NAME=Polar;PROJ=stere;LAT_0=1;LAT_0_V=90;LON_0=1",
                       "PRJ_NAME=Southern;PROJ=leac;SOUTH=1;LAT_1=1",
                       "PRJ_NAME=Gauss-Kruger;PROJ=merc;LON_0=1"});
    std::string const zone = "PROJ=tmerc;ZONE=1;LON_0=1;X_0=1;";
    write("pj_proj2",
          {zone + "PRJ_NAME=Banded;ZONE_V=7;LON_0_V=39;X_0_V=7500000",
           zone + "PRJ_NAME=  Banded ;ZONE_V=8;LON_0_V=45;X_0_V=8500000",
           zone + "PRJ_NAME=Gauss-Kruger;ZONE_V=7;LON_0_V=39;X_0_V=500000",
           zone + "PRJ_NAME=GAUSS-KRUGER (PLUS ZONE);ZONE_V=32;LON_0_V=-171;X_0_V=32500000",
           "PRJ_NAME=Ranged;PROJ=poly;ZONE=1;ZONE_V=3;LON_0=1;LON_0_MIN=-10;LON_0_MAX=10;K_0=1"});
    projections.load();
    datums.load();
  }

  Tzu_pj_def_dbf projections;
  Tzu_datum_def_dbf datums;
  Tzu_pj_editor editor{{projections.get_proj_defs(), projections.get_zone_defs(),
                        datums.get_datum_defs(), datums.get_ellipse_defs()}};
};

TEST_F(Small, WritesTheProjectionByItsRow) {
  std::string const rest = " +datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84";
  for (auto const& [given, expected] : {
           // A zone comes before the usual row that would do as well, and needs
           // all that it fixes; its meridian may be a turn away.
           made{"+proj=tmerc +lon_0=39 +x_0=7500000", "+proj=tmerc +lon_0=39 +x_0=7500000"},
           made{"+proj=TMERC +lon_0=399 +x_0=7.5e6", "+proj=tmerc +lon_0=39 +x_0=7500000"},
           made{"+proj=tmerc +lon_0=-315 +x_0=8500000", "+proj=tmerc +lon_0=45 +x_0=8500000"},
           made{"+proj=tmerc +lon_0=39", "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=0 +k_0=1"},
           made{"+proj=tmerc +x_0=7500000", "+proj=tmerc +lon_0=0 +lat_0=0 +x_0=7500000 +k_0=1"},
           // A parameter that the row does not have goes.
           made{"+proj=tmerc +lon_0=1 +y_0=5 +lat_ts=2 +alpha=3",
                "+proj=tmerc +lon_0=1 +lat_0=0 +x_0=0 +k_0=1"},
           // A fixed latitude of a usual row is near enough within 0.0001, and
           // is not written.
           made{"+proj=stere +lat_0=90 +lon_0=5", "+proj=stere +lon_0=5"},
           made{"+proj=stere +lat_0=90.00005 +lon_0=5", "+proj=stere +lon_0=5"},
           made{"+proj=stere +lat_0=89.9998 +lon_0=5", ""},
           made{"+proj=stere +lon_0=5", ""},
           made{"+proj=leac +south +lat_1=4", "+proj=leac +lat_1=4 +south"},
           made{"+proj=leac +lat_1=4", ""},
           // A zone that shows its meridian has it within limits.
           made{"+proj=poly +lon_0=10 +k=2", "+proj=poly +lon_0=10 +k_0=2"},
           made{"+proj=poly +lon_0=10.5", ""},
       }) {
    auto const result = open_and_apply(editor, std::string(given) + " +datum=WGS84");
    std::string const wanted = *expected == '\0' ? "" : expected + rest + " +lon_wrap=45 +no_defs";
    EXPECT_EQ(result, wanted) << given;
  }
}

TEST_F(Small, WritesDatumAndEllipsoidByTheirRecords) {
  for (auto const& [given, expected] : {
           // By key, by its seven numbers on its ellipsoid, or custom.
           made{"+datum=wgs84 +ellps=krass", "+datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84"},
           made{"+datum=MSC_BESS", "+datum=msc_bess +towgs84=0,0,0,0,0,0,0 +ellps=bessel"},
           made{"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22000001 +ellps=krass", pulkovo_42},
           made{"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=WGS84",
                "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=WGS84"},
           made{"+datum=no_such +towgs84=1,2,3 +ellps=krass",
                "+towgs84=1,2,3,0,0,0,0 +ellps=krass"},
           made{"+ellps=krass", "+towgs84=0,0,0,0,0,0,0 +ellps=krass"},
           made{"+towgs84=1,2,3,4,5,6,7 +a=6377000 +b=6356000",
                "+towgs84=1,2,3,4,5,6,7 +a=6377000 +b=6356000"},
       })
    EXPECT_EQ(open_and_apply(editor, std::string("+proj=stere +lat_0=90 +lon_0=5 ") + given),
              std::string("+proj=stere +lon_0=5 ") + expected + " +lon_wrap=45 +no_defs")
        << given;
}

// By name, by its axes in either form, or WGS 84. What a table has is compared as
// stored, what follows from it within a micrometre or as much of the flattening.
TEST_F(Small, FindsTheEllipsoid) {
  for (auto const& [given, expected] : {
           made{"+ellps=KRASS +a=1 +rf=2", "+ellps=krass"},
           made{"+a=6378245 +rf=298.3", "+ellps=krass"},
           made{"+a=6378245 +rf=298.3000001", "+ellps=WGS84"},
           made{"+a=6378245 +b=6356863.018773047", "+ellps=krass"},
           made{"+a=6378245 +b=6356863.020", "+ellps=WGS84"},
           made{"+a=6378245 +b=1 +rf=298.3", "+ellps=krass"},
           made{"+a=6378245.1 +rf=298.3", "+ellps=WGS84"},
           made{"+b=6356863.018773047 +rf=298.3", "+ellps=WGS84"},
           made{"+ellps=no_such +a=6377397.155 +b=6356078.962818189", "+ellps=bessel"},
           made{"+a=6378206.4 +b=6356583.8", "+ellps=clrk66"},
           made{"+a=6378206.4 +b=6356583.8000001", "+ellps=WGS84"},
           made{"+a=6378206.4 +rf=294.9786982138982", "+ellps=clrk66"},
           made{"+a=6378206.4 +rf=294.9788", "+ellps=WGS84"},
           made{"+a=6377000 +b=6356000", "+a=6377000 +b=6356000"},
           made{"+a=6376000 +rf=300", "+a=6376000 +rf=300"},
           made{"+a=6370000 +rf=1", "+ellps=WGS84"},
           made{"", "+ellps=WGS84"},
       })
    EXPECT_EQ(open_and_apply(editor, std::string("+proj=merc +towgs84=1,0,0 ") + given),
              std::string("+proj=merc +lon_0=0 +towgs84=1,0,0,0,0,0,0 ") + expected +
                  " +lon_wrap=45 +no_defs")
        << given;
}

TEST_F(Small, OffersEachZonalNameOnceWithAllItsZones) {
  EXPECT_EQ(editor.zonal_names(), (std::vector<std::string>{"Banded", "Gauss-Kruger",
                                                            "GAUSS-KRUGER (PLUS ZONE)", "Ranged"}));
  EXPECT_EQ(editor.zones_of(" banded"), (std::vector<int>{7, 8}));
  editor.choose_kind(definition_kind::zonal);
  editor.choose_zonal("Banded");
  editor.choose_zone(8);
  EXPECT_EQ(libproj::value_of(libproj::keys_of(editor.get_proj4_string()), "x_0"), "8500000");
}

// Choosing a zone of Gauss and Kruger brings Pulkovo 1942 along, whatever was there;
// the usual projection that happens to have the name does not.
TEST_F(Small, ChoosingGaussKrugerZonesBringsTheirDatum) {
  for (auto const& [name, datum] :
       {std::pair("Gauss-Kruger", 2U), std::pair("GAUSS-KRUGER (PLUS ZONE)", 2U),
        std::pair("Banded", 4U), std::pair("Ranged", 4U)}) {
    editor.set_proj4_string("+proj=tmerc +datum=msc_bess");
    editor.choose_usual(4);
    EXPECT_EQ(editor.state().datum_id, 4U);
    editor.choose_kind(definition_kind::zonal);
    editor.choose_datum(4);
    editor.choose_zonal(name);
    EXPECT_EQ(editor.state().datum_id, datum) << name;
    EXPECT_EQ(editor.state().ellipse_id, datum == 2 ? 2U : 3U) << name;
  }
}

TEST_F(Small, SelectsTheDatumThatTheNumbersMeanAndItsNumbersWhenChosen) {
  editor.set_proj4_string("+proj=tmerc +towgs84=1,2,3,4,5,6,7 +a=6377000 +b=6356000");
  EXPECT_EQ(editor.state().datum_id, 3U);
  EXPECT_FALSE(editor.is_datum_editable());
  editor.set_proj4_string("+proj=tmerc +towgs84=1,2,3,4,5,6,8 +ellps=krass");
  EXPECT_TRUE(editor.is_datum_editable());
  editor.choose_datum(3);
  EXPECT_EQ(editor.state().ellipse_id, 14U);
  // Custom keeps them, to be changed from there.
  editor.choose_datum(zu::edit_state::custom_datum);
  editor.set_shift(0, 1.5);
  editor.choose_ellipse(2);
  EXPECT_EQ(editor.get_proj4_string(),
            std::string("+proj=tmerc +lon_0=0 +lat_0=0 +x_0=0 +k_0=1 +towgs84=1.5,2,3,4,5,6,7 "
                        "+ellps=krass +lon_wrap=45 +no_defs"));
}

// Numbers typed for one projection do not stay under another one.
TEST_F(Small, ChoosingAProjectionStartsItsNumbersAfresh) {
  editor.choose_kind(definition_kind::usual);
  editor.choose_usual(1);
  editor.set_number(proj_number::lon_0, 12);
  editor.set_number(proj_number::k_0, 3);
  editor.choose_usual(4);
  EXPECT_EQ(editor.state().number(proj_number::lon_0).value, 0);
  EXPECT_FALSE(editor.state().number(proj_number::k_0).shown);
  editor.choose_usual(1);
  EXPECT_EQ(editor.state().number(proj_number::k_0).value, 1);
}

// Without a catalogue the dialog shows nothing and stays harmless.
TEST(EmptyCatalogue, KnowsNothing) {
  Tzu_pj_proj_defs const projections;
  Tzu_pj_datum_defs const datums;
  Tzu_pj_ellipse_defs const ellipses;
  Tzu_pj_editor editor({projections, projections, datums, ellipses});
  EXPECT_EQ(open_and_apply(editor, "+proj=tmerc +lon_0=39 +datum=WGS84"), "");
  editor.choose_kind(definition_kind::zonal);
  editor.choose_zonal("Gauss-Kruger");
  editor.choose_zone(7);
  EXPECT_EQ(std::string(editor.get_proj4_string()), "+towgs84=0,0,0,0,0,0,0 +lon_wrap=45 +no_defs");
}

}  // namespace
