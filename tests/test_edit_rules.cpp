// The editing rules: opening a definition and pressing Apply, and what the
// choices of the user change on the way.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "core_support.h"
#include "libproj.h"
#include "pj_edit/edit_rules.h"

namespace {

using zu::definition_kind;
using zu::Tzu_pj_editor;

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
    ASSERT_TRUE(locale.is_set()) << "there is no " << name;
    for (auto const& definition : untouched_definitions())
      EXPECT_EQ(open_and_apply(editor, definition), definition) << name;
  }
}

TEST_F(Shipped, OpensZonesAsZonal) {
  for (int zone = 2; zone <= 32; ++zone) {
    for (bool const with_zone : {true, false}) {
      int const easting = (with_zone ? zone * 1000000 : 0) + 500000;
      editor.set_proj4_string(zone_definition(meridian_of(zone), easting, pulkovo_42).c_str());
      EXPECT_EQ(editor.state().kind, definition_kind::zonal) << zone << ' ' << easting;
      EXPECT_EQ(editor.state().zonal_name, with_zone ? "Gauss-Kruger (plus zone)" : "Gauss-Kruger");
      EXPECT_EQ(editor.state().zone, zone);
    }
  }
}

TEST_F(Shipped, KeepsUtmZonesAndTheirHemisphere) {
  for (int zone = 1; zone <= 60; ++zone) {
    for (std::string const south : {"", " +south"}) {
      std::string const start = "+proj=utm +zone=" + std::to_string(zone) + south;
      EXPECT_EQ(open_and_apply(editor, start + " +datum=WGS84"),
                start + " +datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84" + tail);
      EXPECT_EQ(editor.state().kind, definition_kind::zonal);
      EXPECT_EQ(editor.state().zone, zone);
    }
  }
}

// A zone that there is not is unknown, not another zone.
TEST_F(Shipped, HasNoOtherUtmZones) {
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
  for (char const* definition : {"+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=0.9996",
                                 "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=1 +k_0=1",
                                 "+proj=tmerc +lon_0=39 +lat_0=10 +x_0=7500000 +y_0=0 +k_0=1",
                                 "+proj=tmerc +lon_0=39.001 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1",
                                 "+proj=tmerc +lon_0=45 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1"}) {
    std::string const text =
        std::string(definition) + " +towgs84=1,2,3,4,5,6,7 +ellps=krass" + tail;
    EXPECT_EQ(open_and_apply(editor, text), text);
    EXPECT_EQ(editor.state().kind, definition_kind::usual) << definition;
  }
}

struct datum_case {
  char const* given;
  char const* expected;
};

// Zones of Gauss and Kruger are on Pulkovo 1942 when they say nothing else.
TEST_F(Shipped, GivesZonesTheirDatumOnlyWhenTheyHaveNone) {
  std::string const pulkovo = pulkovo_42;
  for (auto const& [given, expected] :
       {datum_case{"", pulkovo_42}, datum_case{"+ellps=krass", pulkovo_42},
        datum_case{"+a=6378245 +rf=298.3", pulkovo_42},
        datum_case{"+towgs84=1,2,3 +ellps=krass", "+towgs84=1,2,3,0,0,0,0 +ellps=krass"},
        datum_case{"+towgs84=0,0,0 +ellps=krass", "+towgs84=0,0,0,0,0,0,0 +ellps=krass"},
        datum_case{"+ellps=GSK2011", "+towgs84=0,0,0,0,0,0,0 +ellps=GSK2011"},
        datum_case{"+datum=WGS84", "+datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84"}}) {
    auto const with = [](std::string const& datum) { return zone_definition(39, 7500000, datum); };
    EXPECT_EQ(open_and_apply(editor, with(given)), with(expected)) << given;
  }
}

TEST_F(Shipped, KeepsTheKeyOfTheMoscowSystem) {
  std::string const given =
      "+proj=tmerc +lon_0=37.5 +lat_0=55.6666666667 +x_0=0 +y_0=0 +k_0=1 +datum=msc_bess "
      "+ellps=bessel +units=m +lon_wrap=45 +no_defs";
  EXPECT_EQ(written(editor, given, "datum"), "msc_bess");
  EXPECT_EQ(written(editor, given, "ellps"), "bessel");
}

// An ellipsoid alone must not turn into a datum that nobody named; PROJ would
// not even know this one.
TEST_F(Shipped, DoesNotMakeUpTheMoscowDatum) {
  EXPECT_EQ(written(editor, "+proj=longlat +ellps=bessel", "datum"), std::nullopt);
}

// What PROJ takes for a key that is not there.
TEST_F(Shipped, ShowsTheDefaultsOfProj) {
  struct default_case {
    char const* given;
    char const* key;
    char const* expected;
  };
  for (auto const& [given, key, expected] :
       {default_case{"+proj=tmerc +lon_0=10", "k_0", "1"},
        default_case{"+proj=lcc +lat_1=40", "lat_0", "40"},
        default_case{"+proj=lcc +lat_1=40 +lat_2=50", "lat_0", "0"},
        default_case{"+proj=lcc +lat_1=40 +lat_2=50 +k_0=0.5", "lat_2", "50"},
        default_case{"+proj=stere +lat_0=90 +lat_ts=70", "lat_ts", "70"},
        default_case{"+proj=krovak", "k_0", "0.9999"},
        default_case{"+proj=krovak", "lat_0", "49.5"}}) {
    EXPECT_EQ(written(editor, given, key), expected) << given;
  }
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

TEST_F(Shipped, KeepsTheUnitsOfTheDefinition) {
  EXPECT_EQ(written(editor, "+proj=tmerc +lon_0=10 +units=us-ft", "units"), "us-ft");
  EXPECT_EQ(written(editor, "+proj=tmerc +lon_0=10", "units"), "m");
  EXPECT_EQ(written(editor, "+proj=longlat +units=m", "units"), std::nullopt);
}

TEST_F(Shipped, IsEmptyForWhatItDoesNotKnow) {
  for (char const* definition : {"", "   ", "+no_defs", "+ellps=krass", "+proj=no_such +lon_0=1",
                                 "+init=epsg:4326", "no definition at all"})
    EXPECT_EQ(open_and_apply(editor, definition), "") << definition;
  EXPECT_EQ((editor.set_proj4_string(nullptr), std::string(editor.get_proj4_string())), "");
}

// Each definition is taken as if it were the first.
TEST_F(Shipped, KeepsNothingOfTheDefinitionBefore) {
  std::vector<std::string> definitions = untouched_definitions();
  definitions.insert(definitions.end(),
                     {"+proj=utm +zone=5 +south", "+proj=tmerc", "+proj=longlat", "+proj=lcc",
                      "+proj=lcc +lat_1=1 +lat_2=2 +k_0=3 +units=ft", "+proj=krovak", "+proj=stere",
                      "+proj=omerc +alpha=1 +lonc=2 +lat_0=3", "+proj=unknown", ""});
  std::vector<std::string> first;
  for (auto const& definition : definitions) {
    Tzu_pj_editor fresh(zu::catalogue_lists::shipped());
    first.push_back(open_and_apply(fresh, definition));
  }
  // In an order in which every kind follows every other.
  for (std::size_t const step : {1U, 3U, 7U, 41U}) {
    for (std::size_t i = 0; i < definitions.size(); ++i) {
      std::size_t const at = i * step % definitions.size();
      EXPECT_EQ(open_and_apply(editor, definitions[at]), first[at]) << definitions[at];
    }
  }
}

// What Apply gives is what it gives again.
TEST_F(Shipped, SettlesAtOnce) {
  for (auto const& record : editor.lists().usual) {
    std::string const once =
        open_and_apply(editor, "+proj=" + record.get_prj4_name() + " +lat_1=40 +lat_2=50");
    EXPECT_EQ(open_and_apply(editor, once), once);
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
        EXPECT_EQ(once.find("nan"), std::string::npos) << text;
        EXPECT_EQ(once.find("inf"), std::string::npos) << text;
      }
}

// ---------------------------------------------------------------------------
// With a small catalogue of special cases.

class Small : public testing::Test {
 protected:
  Small() {
    add_ellipse(1, "WGS84", 6378137, std::nullopt, 298.257223563);
    add_ellipse(2, "krass", 6378245, std::nullopt, 298.3);
    add_ellipse(3, "bessel", 6377397.155, std::nullopt, 299.1528128);
    add_ellipse(14, "", 6377000, 6356000, std::nullopt);
    add_ellipse(15, "", 6376000, std::nullopt, 300);
    add_ellipse(16, "", 6370000, std::nullopt, std::nullopt);
    add_datum("World", "WGS84", {}, 1);
    add_datum("PULKOVO_1942", "", {23.57, -140.95, -79.8, 0, 0.35, 0.79, -0.22}, 2);
    add_datum("Local", "", {1, 2, 3, 4, 5, 6, 7}, 14);
    add_datum("City", "msc_bess", {}, 3);

    auto& tmerc = add(usual_, "Transverse", "tmerc");
    show(tmerc, {proj_number::lon_0, proj_number::lat_0, proj_number::k_0, proj_number::x_0});
    tmerc.get_units().set_use_proj4(true);
    tmerc.get_units().set_default("m");
    auto& polar = add(usual_, "Polar", "stere");
    fix(polar, proj_number::lat_0, 90);
    show(polar, {proj_number::lon_0});
    auto& southern = add(usual_, "Southern", "leac");
    set_south(southern);
    show(southern, {proj_number::lat_1});
    show(add(usual_, "Gauss-Kruger", "merc"), {proj_number::lon_0});

    add_zone("Banded", "tmerc", 7, 39, 7500000);
    add_zone("  Banded ", "tmerc", 8, 45, 8500000);
    add_zone("Gauss-Kruger", "tmerc", 7, 39, 500000);
    add_zone("GAUSS-KRUGER (PLUS ZONE)", "tmerc", 32, -171, 32500000);
    auto& range = add(zonal_, "Ranged", "poly");
    range.get_zone().set_use_proj4(true);
    range.get_zone().set_default(3);
    show(range, {proj_number::lon_0, proj_number::k_0});
    range.get_lon_0();
    auto& meridian = range.get_number(proj_number::lon_0);
    meridian.set_def_min(true);
    meridian.set_min(-10);
    meridian.set_def_max(true);
    meridian.set_max(10);
  }

  static Tzu_pj_proj_def& add(Tzu_pj_proj_defs& list, char const* caption, char const* proj) {
    auto& record = list.add();
    record.set_index(static_cast<std::uint32_t>(list.get_size()));
    record.set_caption(caption);
    record.set_prj4_name(proj);
    return record;
  }
  static void show(Tzu_pj_proj_def& record, std::initializer_list<proj_number> numbers) {
    for (proj_number const which : numbers) {
      record.get_number(which).set_use_proj4(true);
      record.get_number(which).set_show(true);
    }
  }
  static void fix(Tzu_pj_proj_def& record, proj_number which, double value) {
    record.get_number(which).set_use_proj4(true);
    record.get_number(which).set_def_default(true);
    record.get_number(which).set_default(value);
  }
  static void set_south(Tzu_pj_proj_def& record) {
    record.get_south().set_use_proj4(true);
    record.get_south().set_def_default(true);
    record.get_south().set_default(true);
  }
  void add_zone(char const* caption, char const* proj, int zone, double meridian, double easting) {
    auto& record = add(zonal_, caption, proj);
    record.get_zone().set_use_proj4(true);
    record.get_zone().set_default(zone);
    fix(record, proj_number::lon_0, meridian);
    fix(record, proj_number::x_0, easting);
  }
  void add_ellipse(std::uint32_t id, char const* key, double a, std::optional<double> b,
                   std::optional<double> rf) {
    auto& record = ellipses_.add();
    record.set_index(id);
    record.set_prj4_name(key);
    record.set_semi_major(a);
    record.set_def_semi_minor(b.has_value());
    record.set_semi_minor(b.value_or(0));
    record.set_def_inv_flattening(rf.has_value());
    record.set_inv_flattening(rf.value_or(0));
  }
  void add_datum(char const* caption, char const* key, std::array<double, 7> const& shift,
                 std::uint32_t ellipse) {
    auto& record = datums_.add();
    record.set_index(static_cast<std::uint32_t>(datums_.get_size()));
    record.set_caption(caption);
    record.set_prj4_name(key);
    record.set_towgs84(shift);
    record.set_ellipse_index(ellipse);
  }

  Tzu_pj_proj_defs usual_;
  Tzu_pj_proj_defs zonal_;
  Tzu_pj_datum_defs datums_;
  Tzu_pj_ellipse_defs ellipses_;
  Tzu_pj_editor editor{{usual_, zonal_, datums_, ellipses_}};
};

struct apply_case {
  char const* given;
  char const* expected;
};

TEST_F(Small, WritesTheProjectionByItsRow) {
  std::string const rest = " +datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84";
  for (auto const& [given, expected] : {
           // A zone comes before the usual row that would do as well, and needs
           // all that it fixes; its meridian may be a turn away.
           apply_case{"+proj=tmerc +lon_0=39 +x_0=7500000", "+proj=tmerc +lon_0=39 +x_0=7500000"},
           apply_case{"+proj=TMERC +lon_0=399 +x_0=7.5e6", "+proj=tmerc +lon_0=39 +x_0=7500000"},
           apply_case{"+proj=tmerc +lon_0=-315 +x_0=8500000", "+proj=tmerc +lon_0=45 +x_0=8500000"},
           apply_case{"+proj=tmerc +lon_0=39", "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=0 +k_0=1"},
           apply_case{"+proj=tmerc +x_0=7500000",
                      "+proj=tmerc +lon_0=0 +lat_0=0 +x_0=7500000 +k_0=1"},
           // A parameter that the row does not have goes.
           apply_case{"+proj=tmerc +lon_0=1 +y_0=5 +lat_ts=2 +alpha=3",
                      "+proj=tmerc +lon_0=1 +lat_0=0 +x_0=0 +k_0=1"},
           // A fixed latitude of a usual row is near enough within 0.0001, and
           // is not written.
           apply_case{"+proj=stere +lat_0=90 +lon_0=5", "+proj=stere +lon_0=5"},
           apply_case{"+proj=stere +lat_0=90.00005 +lon_0=5", "+proj=stere +lon_0=5"},
           apply_case{"+proj=stere +lat_0=89.9998 +lon_0=5", ""},
           apply_case{"+proj=stere +lon_0=5", ""},
           apply_case{"+proj=leac +south +lat_1=4", "+proj=leac +lat_1=4 +south"},
           apply_case{"+proj=leac +lat_1=4", ""},
           // A zone that shows its meridian has it within limits.
           apply_case{"+proj=poly +lon_0=10 +k=2", "+proj=poly +lon_0=10 +k_0=2"},
           apply_case{"+proj=poly +lon_0=10.5", ""},
       }) {
    std::string result = open_and_apply(editor, std::string(given) + " +datum=WGS84");
    std::string const units = " +units=m";
    if (auto const at = result.find(units); at != std::string::npos) result.erase(at, units.size());
    std::string const wanted = *expected == '\0' ? "" : expected + rest + " +lon_wrap=45 +no_defs";
    EXPECT_EQ(result, wanted) << given;
  }
}

TEST_F(Small, WritesDatumAndEllipsoidByTheirRecords) {
  for (auto const& [given, expected] : {
           // By key, by its seven numbers on its ellipsoid, or custom.
           apply_case{"+datum=wgs84 +ellps=krass",
                      "+datum=WGS84 +towgs84=0,0,0,0,0,0,0 +ellps=WGS84"},
           apply_case{"+datum=MSC_BESS", "+datum=msc_bess +towgs84=0,0,0,0,0,0,0 +ellps=bessel"},
           apply_case{"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22000001 +ellps=krass",
                      "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass"},
           apply_case{"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=WGS84",
                      "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=WGS84"},
           apply_case{"+towgs84=1,2,3 +ellps=krass", "+towgs84=1,2,3,0,0,0,0 +ellps=krass"},
           apply_case{"+datum=no_such +towgs84=1,2,3 +ellps=krass",
                      "+towgs84=1,2,3,0,0,0,0 +ellps=krass"},
           apply_case{"+ellps=krass", "+towgs84=0,0,0,0,0,0,0 +ellps=krass"},
           // The ellipsoid by name, by its axes in either form, or WGS 84.
           apply_case{"+towgs84=1,0,0 +ellps=KRASS +a=1 +rf=2",
                      "+towgs84=1,0,0,0,0,0,0 +ellps=krass"},
           apply_case{"+towgs84=1,0,0 +a=6378245 +rf=298.3", "+towgs84=1,0,0,0,0,0,0 +ellps=krass"},
           apply_case{"+towgs84=1,0,0 +ellps=no_such +a=6377397.155 +b=6356078.962818189",
                      "+towgs84=1,0,0,0,0,0,0 +ellps=bessel"},
           apply_case{"+towgs84=1,0,0 +a=6377000 +b=6356000",
                      "+towgs84=1,0,0,0,0,0,0 +a=6377000 +b=6356000"},
           apply_case{"+towgs84=1,0,0 +a=6376000 +rf=300",
                      "+towgs84=1,0,0,0,0,0,0 +a=6376000 +rf=300"},
           apply_case{"+towgs84=1,0,0 +a=6370000 +rf=1", "+towgs84=1,0,0,0,0,0,0 +ellps=WGS84"},
           apply_case{"+towgs84=1,0,0", "+towgs84=1,0,0,0,0,0,0 +ellps=WGS84"},
           apply_case{"+towgs84=1,2,3,4,5,6,7 +a=6377000 +b=6356000",
                      "+towgs84=1,2,3,4,5,6,7 +a=6377000 +b=6356000"},
       }) {
    EXPECT_EQ(open_and_apply(editor, std::string("+proj=stere +lat_0=90 +lon_0=5 ") + given),
              std::string("+proj=stere +lon_0=5 ") + expected + " +lon_wrap=45 +no_defs")
        << given;
  }
}

TEST_F(Small, SelectsTheDatumThatTheNumbersMean) {
  editor.set_proj4_string("+proj=tmerc +towgs84=1,2,3,4,5,6,7 +a=6377000 +b=6356000");
  EXPECT_EQ(editor.state().datum_id, 3U);
  EXPECT_FALSE(editor.is_datum_editable());
  editor.set_proj4_string("+proj=tmerc +towgs84=1,2,3,4,5,6,8 +a=6377000 +b=6356000");
  EXPECT_EQ(editor.state().datum_id, zu::edit_state::custom_datum);
  EXPECT_TRUE(editor.is_datum_editable());
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

// Choosing such a zone brings Pulkovo 1942 along, whatever was there; the usual
// projection that happens to have the name does not.
TEST_F(Small, ChoosingGaussKrugerZonesBringsTheirDatum) {
  struct choice {
    char const* name;
    std::uint32_t datum;
    std::uint32_t ellipse;
  };
  for (auto const& [name, datum, ellipse] :
       {choice{"Gauss-Kruger", 2, 2}, choice{"GAUSS-KRUGER (PLUS ZONE)", 2, 2},
        choice{"Banded", 4, 3}, choice{"Ranged", 4, 3}}) {
    editor.set_proj4_string("+proj=tmerc +datum=msc_bess");
    editor.choose_kind(definition_kind::zonal);
    editor.choose_datum(4);
    editor.choose_zonal(name);
    EXPECT_EQ(editor.state().datum_id, datum) << name;
    EXPECT_EQ(editor.state().ellipse_id, ellipse) << name;
  }
  editor.set_proj4_string("+proj=tmerc +datum=msc_bess");
  editor.choose_usual(4);
  EXPECT_EQ(editor.state().datum_id, 4U);
}

TEST_F(Small, ChoosingADatumBringsItsNumbersAndEllipsoid) {
  editor.set_proj4_string("+proj=tmerc +towgs84=9,8,7 +ellps=krass");
  editor.choose_datum(3);
  EXPECT_EQ(editor.state().ellipse_id, 14U);
  EXPECT_EQ(editor.state().shift, (std::array<double, 7>{1, 2, 3, 4, 5, 6, 7}));
  // Custom keeps them, to be changed from there.
  editor.choose_datum(zu::edit_state::custom_datum);
  editor.set_shift(0, 1.5);
  editor.choose_ellipse(2);
  EXPECT_NE(std::string(editor.get_proj4_string()).find("+towgs84=1.5,2,3,4,5,6,7 +ellps=krass"),
            std::string::npos);
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
