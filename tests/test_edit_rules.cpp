// The editing rules over many definitions, with the catalogue of the installation.
// cases/test_cases has single definitions and the user's choices.

#include <gtest/gtest.h>

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
    for (auto const& definition : untouched_definitions()) {
      EXPECT_EQ(open_and_apply(editor, definition), definition) << name;
      bool const is_zone = definition.find("-5811057.628") == std::string::npos &&
                           definition.find("-4511057.628") == std::string::npos;
      EXPECT_EQ(editor.state().kind == definition_kind::zonal, is_zone) << definition;
    }
  }
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

TEST_F(Shipped, NeverOffersAScaleOfZero) {
  for (auto const& record : editor.lists().usual) {
    editor.set_proj4_string("");
    editor.choose_kind(definition_kind::usual);
    editor.choose_usual(record.get_index());
    EXPECT_NE(editor.state().number(proj_number::k_0).value, 0) << record.get_caption();
    EXPECT_EQ(std::string(editor.get_proj4_string()).find("+k_0=0 "), std::string::npos);
  }
}

// The definition before changes nothing, and a second Apply changes nothing.
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
  editor.set_proj4_string(nullptr);
  EXPECT_STREQ(editor.get_proj4_string(), "");
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

}  // namespace
