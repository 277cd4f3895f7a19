#include <gtest/gtest.h>

#include <cctype>
#include <sstream>
#include <tuple>

#include "catalogue/catalogue.h"
#include "catalogue_tables.h"
#include "proj4/proj4_param.h"

namespace {

using core_test::columns_of;
using core_test::recorded;

class Catalogue : public core_test::Tcatalogue_test {};

// Captions, for comparing what was found.
template <class Record>
std::string caption(Record const* record) {
  return record == nullptr ? "none" : recorded(record->get_caption());
}

// What a parameter offers; numbers that it does not have must be 0.
std::string describe(Tzu_pj_dbl_param const& param) {
  std::ostringstream text;
  if (!param.get_use_proj4()) text << "none";
  if (param.get_show()) text << "shown";
  for (auto const& [word, given, number] :
       {std::tuple("is ", param.get_def_default(), param.get_default()),
        std::tuple(", from ", param.get_def_min(), param.get_min()),
        std::tuple(", to ", param.get_def_max(), param.get_max())})
    if (given || number != 0) text << word << number;
  return recorded(text.str());
}

TEST_F(Catalogue, without_tables_has_the_geographic_systems_only) {
  Tzu_pj_def_dbf const projections;
  auto const& usual = projections.get_proj_defs();
  ASSERT_EQ(usual.get_size(), 2U);
  EXPECT_EQ(usual.get(0).get_caption() + usual.get(0).get_prj4_name(), "Longitude/Latitudelonglat");
  EXPECT_EQ(usual.get(1).get_caption() + usual.get(1).get_prj4_name(), "Latitude/Longitudelatlong");
  EXPECT_TRUE(usual.get(0).get_index() == 1 && usual.get(1).get_index() == 2);
  EXPECT_EQ(projections.get_zone_defs().get_size(), 0U);
  EXPECT_EQ(projections.get_last_proj(), nullptr);
}

TEST_F(Catalogue, folder_that_is_none_and_tables_that_are_none_are_no_tables) {
  write("pj_ellps", {});
  for (char const* name :
       {"tables/pj_proj1.dbf", "tables/pj_proj2.dbf", "tables/pj_datum.dbf", "tables/pj_ellps.dbf"})
    std::filesystem::create_directories(folder.file(name));
  for (char const* name : {"missing/", "pj_ellps.dbf", "pj_ellps.dbf/", "tables/"}) {
    Tzu_pj_dbf::set_catalogue_folder(folder.file(name));
    EXPECT_EQ(Tzu_pj_def_dbf().get_proj_defs().get_size(), 2U) << name;
    EXPECT_EQ(Tzu_pj_def_dbf().get_zone_defs().get_size(), 0U) << name;
    EXPECT_EQ(Tzu_datum_def_dbf().get_datum_defs().get_size(), 0U) << name;
    EXPECT_EQ(Tzu_datum_def_dbf().get_ellipse_defs().get_size(), 0U) << name;
  }
}

TEST_F(Catalogue, projection_row) {
  write("pj_proj1", {"PRJ_NAME= Lambert  conic *;PRJ_ALIAS=*;PROJ=lcc;SOUTH=1;DATUM=WGS84;"
                     "LON_0=1;LON_0_MIN=-180;LON_0_MAX=180;LAT_1=1;LAT_1_V=39.5;LAT_1_MAX=60;"
                     "LAT_0=0;LAT_0_V=5;LAT_0_MIN=1;LAT_2_V=7;LAT_TS=-1;ALPHA=many;K=1;K_V=3;"
                     "X_0=0.5;X_0_V=0;UNITS=1;UNITS_V=m;ZONE=1;ZONE_V=37.9;ZONE_N=Z",
                     "PRJ_NAME=Bare;PROJ=merc;SOUTH=0;UNITS_V=m;ZONE_V=5;ZONE_N=Z"});
  Tzu_pj_def_dbf const projections;
  auto const& list = projections.get_proj_defs();
  ASSERT_EQ(list.get_size(), 4U);
  EXPECT_EQ(list.get(2).get_index(), 3U) << "the geographic systems follow the table";
  EXPECT_EQ(list.get(3).get_prj4_name(), "latlong");

  auto const& full = list.get(0);
  EXPECT_EQ(full.get_index(), 1U);
  EXPECT_EQ(full.get_caption(), "Lambert  conic");
  EXPECT_EQ(full.get_add_caption() + full.get_prj4_name(), "lcc");
  EXPECT_TRUE(full.is_south() && full.get_south().get_def_default());
  for (auto const& [number, wanted] :
       {std::pair(proj_number::lon_0, "shown, from -180, to 180"),
        std::pair(proj_number::lat_1, "is 39.5, to 60"), std::pair(proj_number::x_0, "is 0"),
        std::pair(proj_number::lat_0, "none"), std::pair(proj_number::lat_2, "none"),
        std::pair(proj_number::lat_ts, "none"), std::pair(proj_number::alpha, "none"),
        std::pair(proj_number::k_0, "none"), std::pair(proj_number::y_0, "none")})
    EXPECT_EQ(describe(full.get_number(number)), wanted) << proj_number_key(number);
  EXPECT_TRUE(full.get_units().get_use_proj4() && !full.get_units().get_def_default());
  EXPECT_TRUE(full.get_zone().get_use_proj4() && full.get_zone().get_default() == 37);
  EXPECT_TRUE(full.get_zone_name().get_def_default() && full.get_datum().get_def_default());
  EXPECT_EQ(full.get_units().get_default() + full.get_zone_name().get_default() +
                full.get_datum().get_default(),
            "mZWGS84");
  auto const& bare = list.get(1);
  EXPECT_FALSE(bare.is_south() || bare.get_south().get_def_default());
  EXPECT_FALSE(bare.get_units().get_use_proj4() || bare.get_zone().get_use_proj4());
  EXPECT_FALSE(bare.get_zone_name().get_def_default() || bare.get_datum().get_def_default());
  EXPECT_EQ(bare.get_units().get_default() + bare.get_zone_name().get_default(), "");
  EXPECT_EQ(bare.get_zone().get_default(), 0);
}

TEST_F(Catalogue, each_number_comes_from_its_own_columns) {
  std::string values;
  std::vector<std::string> const keys{"lon_0", "lonc",  "lat_0", "lat_1", "lat_ts",
                                      "lat_2", "alpha", "k_0",   "x_0",   "y_0"};
  for (int base = 10; std::string column : keys) {
    for (char& c : column) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    values.append(column).append("=1;");
    for (auto const& [part, add] :
         {std::pair("_V=", 0), std::pair("_MIN=", 1), std::pair("_MAX=", 2)})
      values.append(column).append(part).append(std::to_string(base + add)).append(";");
    base += 10;
  }
  write("pj_proj2", {values});
  Tzu_pj_def_dbf const projections;
  ASSERT_EQ(projections.get_zone_defs().get_size(), 1U);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    auto const number = static_cast<proj_number>(i);
    auto const& param = projections.get_zone_defs().get(0).get_number(number);
    EXPECT_EQ(proj_number_key(number), keys[i]);
    EXPECT_EQ(param.get_default(), 10.0 * static_cast<double>(i + 1)) << keys[i];
    EXPECT_EQ(param.get_min(), param.get_default() + 1) << keys[i];
    EXPECT_EQ(param.get_max(), param.get_default() + 2) << keys[i];
  }
}

TEST_F(Catalogue, every_column_is_required_in_any_order) {
  auto const check = [this](char const* table, auto list, auto load) {
    std::string const name = folder.file("t.dbf");
    auto const all = columns_of(table);
    list.add();
    for (std::size_t left_out = 0; left_out <= all.size(); ++left_out) {
      core_test::table_columns names(all.rbegin(), all.rend());
      names.emplace_back("EXTRA");
      if (left_out < all.size()) std::erase(names, all[left_out]);
      core_test::write_table(name, names, {"", ""});
      bool const whole = left_out == all.size();
      EXPECT_EQ(load(name, list), whole ? 0 : 200) << (whole ? "whole" : all[left_out]);
      EXPECT_EQ(list.get_size(), whole ? 2U : 0U);
    }
    list.add();
    EXPECT_EQ(load(folder.file("missing.dbf"), list), 1);
    EXPECT_EQ(list.get_size(), 0U);
  };
  check("pj_proj1", Tzu_pj_proj_defs(), &Tzu_pj_dbf::load_pj_proj);
  check("pj_datum", Tzu_pj_datum_defs(), &Tzu_pj_dbf::load_pj_datum);
  check("pj_ellps", Tzu_pj_ellipse_defs(), &Tzu_pj_dbf::load_pj_ellipse);
}

TEST_F(Catalogue, datum_and_ellipsoid_rows) {
  write("pj_datum", {"DATUM_NAME=Pulkovo 1942;DATUM=PULKOVO_1942;ELLPS_ID=7024.9;"
                     "SHIFT_X0=23.57;SHIFT_Y0=-140.95;SHIFT_Z0=-79.8;"
                     "ROTAT_X0=0.1;ROTAT_Y0=0.35;ROTAT_Z0=0.79;SCALE_F0=-0.22",
                     "DATUM_NAME=Nothing known"});
  write("pj_ellps", {"ELLPS_ID=7024;ELLPS_NAME=Krassowsky;ELLPS=krass;A=6378245;RF=298.3",
                     "ELLPS_ID=none;A=6371000;B=0"});
  Tzu_datum_def_dbf const catalogue;
  auto const& datums = catalogue.get_datum_defs();
  ASSERT_EQ(datums.get_size(), 2U);
  EXPECT_EQ(datums.get(0).get_caption() + datums.get(0).get_prj4_name(),
            "Pulkovo 1942PULKOVO_1942");
  EXPECT_EQ(datums.get(0).get_towgs84(),
            (std::array{23.57, -140.95, -79.8, 0.1, 0.35, 0.79, -0.22}));
  EXPECT_EQ(datums.get(0).get_ellipse_index(), 7024U);
  EXPECT_EQ(datums.get(1).get_index(), 2U);
  EXPECT_EQ(datums.get(1).get_towgs84(), (std::array<double, 7>{}));

  auto const& ellipses = catalogue.get_ellipse_defs();
  ASSERT_EQ(ellipses.get_size(), 2U);
  EXPECT_EQ(caption(ellipses.find_by_index(7024)), "Krassowsky");
  EXPECT_FALSE(ellipses.get(0).get_def_semi_minor());
  EXPECT_EQ(ellipses.get(0).get_inv_flattening(), 298.3);
  EXPECT_EQ(ellipses.get(1).get_index(), 0U);
  EXPECT_TRUE(ellipses.get(1).get_def_semi_minor()) << "a zero is a value";
}

// How rows are matched is tested by way of the editing rules and of the summaries.
TEST_F(Catalogue, remembers_what_was_found_last) {
  write("pj_proj1",
        {"PRJ_NAME=TM origin 0;PROJ=tmerc;LAT_0=1;LAT_0_V=0;K_0=1",
         "PRJ_NAME=TM south;PROJ=tmerc;SOUTH=1;LAT_0=1", "PRJ_NAME=TM;PROJ=tmerc;LAT_0=1;K_0=1"});
  std::string const zone = "PROJ=utm;ZONE=1;PRJ_NAME=";
  write("pj_proj2", {zone + "UTM;ZONE_V=37", zone + " utm;ZONE_V=37;SOUTH=1",
                     zone + "UTM;ZONE_V=38", zone + "Late;ZONE_V=37"});
  Tzu_pj_def_dbf catalogue;
  // With k_0 given and by latitude of origin, zone and hemisphere.
  for (auto const& [lat_0, number, south, wanted] :
       {std::tuple(0.00005, 0, false, "TM origin 0"), std::tuple(0.0002, 0, false, "TM"),
        std::tuple(0.0, 37, false, "UTM"), std::tuple(0.0, 37, true, "utm"),
        std::tuple(0.0, 39, false, "none"), std::tuple(0.0, -1, false, "none")}) {
    auto const* const found = catalogue.get_def(number == 0 ? "TMERC" : "UTM", lat_0, false, false,
                                                false, true, number, south);
    EXPECT_EQ(caption(found), wanted) << lat_0 << " " << number;
    EXPECT_EQ(number == 0 ? catalogue.get_last_proj() : catalogue.get_last_zone(), found);
  }
  EXPECT_EQ(catalogue.proj_caption_common("tmerc", 0, true, false, false, false, false), "");
  EXPECT_EQ(catalogue.proj_caption_common("tmerc", 0, false, false, false, false, false),
            "TM origin 0");
  EXPECT_EQ(caption(catalogue.get_last_proj()), "TM origin 0");
  EXPECT_EQ(catalogue.get_last_zone(), nullptr) << "the last search of zones found none";
  EXPECT_EQ(catalogue.proj_caption_zonal("utm", 38, true), "");
  EXPECT_EQ(catalogue.proj_caption_zonal("utm", 38, false), "UTM");
  EXPECT_EQ(catalogue.get_last_zone()->get_index(), 3U);
  EXPECT_EQ(caption(catalogue.get_proj_defs().find_by_name_south("tmerc", true)), "TM south");
  catalogue.load();
  EXPECT_TRUE(catalogue.get_last_proj() == nullptr && catalogue.get_last_zone() == nullptr);
}

// A parameter of a definition takes a row's value where the row has one.
template <class Param, class From, class Value>
void expect_taken(Value value, char const* text) {
  Param param("key");
  From given;
  given.set_default(value);
  param.val_from_str("1");
  param.set_param(given);
  EXPECT_FALSE(param.get_def()) << text;
  given.set_def_default(true);
  param.set_param(given);
  EXPECT_STREQ(param.get_out_str(), text);
}

TEST(Proj_defs, values_go_into_definitions) {
  expect_taken<Tzu_proj4_param_str, Tzu_pj_str_param>("krass", "+key=krass ");
  expect_taken<Tzu_proj4_param_int, Tzu_pj_int_param>(37, "+key=37 ");
  expect_taken<Tzu_proj4_param_dbl, Tzu_pj_dbl_param>(-0.5, "+key=-0.5 ");
  expect_taken<Tzu_proj4_param_bool, Tzu_pj_bool_param>(true, "+key ");
}

}  // namespace
