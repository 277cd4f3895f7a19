#include <gtest/gtest.h>
#include <shapefil.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "catalogue/catalogue.h"
#include "catalogue/pj_dbf.h"
#include "core_support.h"
#include "proj4/proj4_param.h"
#include "proj4/short_text.h"
#include "text/string_adapter.h"

namespace {

using core_test::recorded;
using core_test::Ttemp_folder;

using columns = std::vector<std::string>;
using row = std::map<std::string, std::string>;

columns const ellipse_columns{"ELLPS_ID", "ELLPS_NAME", "ELLPS", "A", "B", "RF"};
columns const datum_columns{"DATUM_NAME", "DATUM",    "SHIFT_X0", "SHIFT_Y0", "SHIFT_Z0",
                            "ROTAT_X0",   "ROTAT_Y0", "ROTAT_Z0", "SCALE_F0", "ELLPS_ID"};

columns proj_columns() {
  columns names{"PRJ_NAME", "PRJ_ALIAS", "PROJ", "SOUTH"};
  for (char const* key :
       {"LAT_1", "LAT_2", "LAT_TS", "LAT_0", "LON_0", "LONC", "ALPHA", "K", "K_0", "X_0", "Y_0"})
    for (char const* part : {"", "_V", "_MIN", "_MAX"}) names.push_back(std::string(key) + part);
  for (char const* name : {"UNITS", "UNITS_V", "ZONE", "ZONE_V", "ZONE_N", "DATUM"})
    names.emplace_back(name);
  return names;
}

// A row from "COLUMN=text;COLUMN=text".
row cells(std::string const& text) {
  row result;
  std::istringstream parts(text);
  for (std::string part; std::getline(parts, part, ';');)
    result[part.substr(0, part.find('='))] = part.substr(part.find('=') + 1);
  return result;
}

// Writes a table with shapelib, so that its reader and ours are strangers.
// Names and keys are text, all others numbers; a number that a row does not
// give becomes shapelib's null, which is asterisks.
void write_table(std::string const& name, columns const& names, std::vector<row> const& rows) {
  std::unique_ptr<DBFInfo, void (*)(DBFInfo*)> const table(DBFCreateEx(name.c_str(), nullptr),
                                                           DBFClose);
  ASSERT_TRUE(table) << name;
  columns const texts{"PRJ_NAME", "PRJ_ALIAS",  "PROJ",       "UNITS_V", "ZONE_N",
                      "DATUM",    "ELLPS_NAME", "DATUM_NAME", "ELLPS"};
  for (std::string const& column : names) {
    bool const is_text = std::ranges::find(texts, column) != texts.end();
    ASSERT_GE(DBFAddField(table.get(), column.c_str(), is_text ? FTString : FTDouble, 22,
                          is_text ? 0 : 6),
              0);
  }
  for (std::size_t i = 0; i < rows.size(); ++i)
    for (std::size_t k = 0; k < names.size(); ++k) {
      int const record = static_cast<int>(i);
      int const field = static_cast<int>(k);
      auto const cell = rows[i].find(names[k]);
      if (cell == rows[i].end()) {
        DBFWriteNULLAttribute(table.get(), record, field);
      } else {
        std::string text = cell->second;
        DBFWriteAttributeDirectly(table.get(), record, field, text.data());
      }
    }
}

class Catalogue : public testing::Test {
 protected:
  Catalogue() { Tzu_pj_dbf::set_catalogue_folder(folder.file("")); }
  ~Catalogue() override { Tzu_pj_dbf::set_catalogue_folder(""); }

  void write_usual(std::vector<row> const& rows) {
    write_table(folder.file("pj_proj1.dbf"), proj_columns(), rows);
  }
  void write_zonal(std::vector<row> const& rows) {
    write_table(folder.file("pj_proj2.dbf"), proj_columns(), rows);
  }
  void write_datums(std::vector<row> const& rows) {
    write_table(folder.file("pj_datum.dbf"), datum_columns, rows);
  }
  void write_ellipses(std::vector<row> const& rows) {
    write_table(folder.file("pj_ellps.dbf"), ellipse_columns, rows);
  }

  Ttemp_folder const folder;
};

// Captions, for comparing what was found.
template <class Record>
std::string caption(Record const* record) {
  return record == nullptr ? "none" : recorded(record->get_caption());
}

// What a parameter offers; numbers that it does not have must be 0.
std::string describe(Tzu_pj_dbl_param const& param) {
  auto const value = [](char const* word, bool given, double number) {
    std::ostringstream text;
    if (given || number != 0) text << word << number;
    return text.str();
  };
  std::string const text = (param.get_show() ? "shown" : "") +
                           value("is ", param.get_def_default(), param.get_default()) +
                           value(", from ", param.get_def_min(), param.get_min()) +
                           value(", to ", param.get_def_max(), param.get_max());
  return recorded(param.get_use_proj4() ? text : "none" + text);
}

TEST_F(Catalogue, without_tables_has_the_geographic_systems_only) {
  Tzu_pj_def_dbf const projections;
  ASSERT_EQ(projections.get_proj_defs().get_size(), 2U);
  auto const& first = projections.get_proj_defs().get(0);
  auto const& second = projections.get_proj_defs().get(1);
  EXPECT_EQ(first.get_caption(), "Longitude/Latitude");
  EXPECT_EQ(first.get_prj4_name(), "longlat");
  EXPECT_EQ(first.get_index(), 1U);
  EXPECT_EQ(second.get_caption(), "Latitude/Longitude");
  EXPECT_EQ(second.get_prj4_name(), "latlong");
  EXPECT_EQ(second.get_index(), 2U);
  EXPECT_EQ(projections.get_zone_defs().get_size(), 0U);
  EXPECT_EQ(projections.get_last_proj(), nullptr);
  Tzu_datum_def_dbf const datums;
  EXPECT_EQ(datums.get_datum_defs().get_size() + datums.get_ellipse_defs().get_size(), 0U);
}

TEST_F(Catalogue, folder_that_is_none_and_tables_that_are_none_are_no_tables) {
  write_ellipses({});
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

// The lists are read once: what becomes of the folder then does not matter to them.
TEST_F(Catalogue, lists_outlive_their_tables) {
  write_ellipses({cells("ELLPS_NAME=Here;A=6378245;RF=298.3")});
  Tzu_datum_def_dbf const before;
  core_test::put_file(folder.file("pj_ellps.dbf"), "no table");
  ASSERT_EQ(before.get_ellipse_defs().get_size(), 1U);
  EXPECT_EQ(before.get_ellipse_defs().get(0).get_caption(), "Here");
  EXPECT_EQ(Tzu_datum_def_dbf().get_ellipse_defs().get_size(), 0U);
}

TEST_F(Catalogue, projection_row) {
  write_usual({cells("PRJ_NAME= Lambert  conic *;PRJ_ALIAS=*;PROJ=lcc;SOUTH=1;DATUM=WGS84;"
                     "LON_0=1;LON_0_MIN=-180;LON_0_MAX=180;LAT_1=1;LAT_1_V=39.5;LAT_1_MAX=60;"
                     "LAT_0=0;LAT_0_V=5;LAT_0_MIN=1;LAT_2_V=7;LAT_TS=-1;ALPHA=many;K=1;K_V=3;"
                     "X_0=0.5;X_0_V=0;UNITS=1;UNITS_V=m;ZONE=1;ZONE_V=37.9;ZONE_N=Z"),
               cells("PRJ_NAME=Bare;PROJ=merc;SOUTH=0;UNITS_V=m;ZONE_V=5;ZONE_N=Z")});
  Tzu_pj_def_dbf const projections;
  auto const& list = projections.get_proj_defs();
  ASSERT_EQ(list.get_size(), 4U);
  EXPECT_EQ(list.get(2).get_index(), 3U) << "the geographic systems follow the table";
  EXPECT_EQ(list.get(3).get_prj4_name(), "latlong");

  auto const& full = list.get(0);
  EXPECT_EQ(full.get_index(), 1U);
  EXPECT_EQ(full.get_caption(), "Lambert  conic");
  EXPECT_EQ(full.get_add_caption(), "");
  EXPECT_EQ(full.get_prj4_name(), "lcc");
  EXPECT_TRUE(full.is_south());
  EXPECT_TRUE(full.get_south().get_def_default() && !full.get_south().get_show());
  for (auto const& [number, wanted] :
       {std::pair(proj_number::lon_0, "shown, from -180, to 180"),
        std::pair(proj_number::lat_1, "is 39.5, to 60"), std::pair(proj_number::x_0, "is 0"),
        std::pair(proj_number::lat_0, "none"), std::pair(proj_number::lat_2, "none"),
        std::pair(proj_number::lat_ts, "none"), std::pair(proj_number::alpha, "none"),
        std::pair(proj_number::lonc, "none"), std::pair(proj_number::k_0, "none"),
        std::pair(proj_number::y_0, "none")})
    EXPECT_EQ(describe(full.get_number(number)), wanted) << proj_number_key(number);
  EXPECT_TRUE(full.get_units().get_use_proj4() && !full.get_units().get_def_default());
  EXPECT_EQ(full.get_units().get_default(), "m");
  EXPECT_TRUE(full.get_zone().get_use_proj4() && !full.get_zone().get_show());
  EXPECT_EQ(full.get_zone().get_default(), 37);
  EXPECT_TRUE(full.get_zone_name().get_def_default() && !full.get_zone_name().get_use_proj4());
  EXPECT_EQ(full.get_zone_name().get_default(), "Z");
  EXPECT_TRUE(full.get_datum().get_def_default() && !full.get_datum().get_use_proj4());
  EXPECT_EQ(full.get_datum().get_default(), "WGS84");

  auto const& bare = list.get(1);
  EXPECT_FALSE(bare.is_south() || bare.get_south().get_def_default());
  EXPECT_FALSE(bare.get_units().get_use_proj4() || bare.get_zone().get_use_proj4());
  EXPECT_EQ(bare.get_units().get_default(), "");
  EXPECT_EQ(bare.get_zone().get_default(), 0);
  EXPECT_FALSE(bare.get_zone_name().get_def_default() || bare.get_datum().get_def_default());
  EXPECT_EQ(bare.get_zone_name().get_default(), "");
}

TEST_F(Catalogue, each_number_comes_from_its_own_columns) {
  row values;
  columns const keys{"lon_0", "lonc",  "lat_0", "lat_1", "lat_ts",
                     "lat_2", "alpha", "k_0",   "x_0",   "y_0"};
  for (std::size_t i = 0; i < keys.size(); ++i) {
    std::string column = keys[i];
    for (char& c : column) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    values[column] = "1";
    int const base = static_cast<int>(10 * (i + 1));
    for (auto const& [part, add] : {std::pair("_V", 0), std::pair("_MIN", 1), std::pair("_MAX", 2)})
      values[column + part] = std::to_string(base + add);
  }
  write_zonal({values});
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
  auto const check = [this](columns const& all, auto list, auto load) {
    std::string const name = folder.file("t.dbf");
    list.add();
    for (std::size_t left_out = 0; left_out <= all.size(); ++left_out) {
      columns names(all.rbegin(), all.rend());
      names.emplace_back("EXTRA");
      if (left_out < all.size()) std::erase(names, all[left_out]);
      write_table(name, names, {{}, {}});
      bool const whole = left_out == all.size();
      EXPECT_EQ(load(name, list), whole ? 0 : 200) << (whole ? "whole" : all[left_out]);
      EXPECT_EQ(list.get_size(), whole ? 2U : 0U);
    }
    list.add();
    EXPECT_EQ(load(folder.file("missing.dbf"), list), 1);
    EXPECT_EQ(list.get_size(), 0U);
  };
  check(proj_columns(), Tzu_pj_proj_defs(), &Tzu_pj_dbf::load_pj_proj);
  check(datum_columns, Tzu_pj_datum_defs(), &Tzu_pj_dbf::load_pj_datum);
  check(ellipse_columns, Tzu_pj_ellipse_defs(), &Tzu_pj_dbf::load_pj_ellipse);
}

TEST_F(Catalogue, datum_and_ellipsoid_rows) {
  write_datums({cells("DATUM_NAME=Pulkovo 1942;DATUM=PULKOVO_1942;ELLPS_ID=7024.9;"
                      "SHIFT_X0=23.57;SHIFT_Y0=-140.95;SHIFT_Z0=-79.8;"
                      "ROTAT_X0=0.1;ROTAT_Y0=0.35;ROTAT_Z0=0.79;SCALE_F0=-0.22"),
                cells("DATUM_NAME=Nothing known")});
  write_ellipses({cells("ELLPS_ID=7024;ELLPS_NAME=Krassowsky;ELLPS=krass;A=6378245;RF=298.3"),
                  cells("ELLPS_ID=none;A=6371000;B=0")});
  Tzu_datum_def_dbf const catalogue;
  auto const& datums = catalogue.get_datum_defs();
  ASSERT_EQ(datums.get_size(), 2U);
  EXPECT_EQ(datums.get(0).get_caption(), "Pulkovo 1942");
  EXPECT_EQ(datums.get(0).get_prj4_name(), "PULKOVO_1942");
  EXPECT_EQ(datums.get(0).get_towgs84(),
            (std::array{23.57, -140.95, -79.8, 0.1, 0.35, 0.79, -0.22}));
  EXPECT_EQ(datums.get(0).get_shift_z(), -79.8);
  EXPECT_EQ(datums.get(0).get_rotate_x(), 0.1);
  EXPECT_EQ(datums.get(0).get_scale_factor(), -0.22);
  EXPECT_EQ(datums.get(0).get_ellipse_index(), 7024U);
  EXPECT_EQ(datums.get(1).get_index(), 2U);
  EXPECT_EQ(datums.get(1).get_towgs84(), (std::array<double, 7>{}));

  auto const& ellipses = catalogue.get_ellipse_defs();
  ASSERT_EQ(ellipses.get_size(), 2U);
  EXPECT_EQ(ellipses.get(0).get_index(), 7024U);
  EXPECT_EQ(ellipses.get(0).get_semi_major(), 6378245);
  EXPECT_FALSE(ellipses.get(0).get_def_semi_minor());
  EXPECT_TRUE(ellipses.get(0).get_def_inv_flattening());
  EXPECT_EQ(ellipses.get(0).get_inv_flattening(), 298.3);
  EXPECT_EQ(ellipses.get(1).get_index(), 0U);
  EXPECT_TRUE(ellipses.get(1).get_def_semi_minor()) << "a zero is a value";
  EXPECT_EQ(caption(ellipses.find_by_index(7024)), "Krassowsky");
  EXPECT_EQ(ellipses.find_by_index(1), nullptr);
}

TEST(Ellipse_defs, look_ups) {
  Tzu_pj_ellipse_defs list;
  auto const add = [&list](char const* caption, char const* name, double a, std::optional<double> b,
                           std::optional<double> rf) {
    auto& record = list.add();
    record.set_caption(caption);
    record.set_prj4_name(name);
    record.set_semi_major(a);
    record.set_def_semi_minor(b.has_value());
    record.set_semi_minor(b.value_or(0));
    record.set_def_inv_flattening(rf.has_value());
    record.set_inv_flattening(rf.value_or(0));
  };
  double const krass_b = 6378245 * (1 - 1 / 298.3);
  add("no shape", "none", 6378245, {}, {});
  add("by rf", "krass", 6378245, {}, 298.3);
  add("by b", "clrk66", 6378206.4, 6356583.8, {});
  add("both", "both", 6377000, 6356000, 300.0);
  add("sphere", "sphere", 6371000, 6371000, {});
  add("again", "KRASS", 6378245, {}, 298.3);
  EXPECT_EQ(caption(list.find_by_name("Krass")), "by rf") << "the earlier row";
  EXPECT_EQ(caption(list.find_by_name("krass ")), "none");
  double const clarke_rf = 6378206.4 / (6378206.4 - 6356583.8);
  struct Tcase {
    std::optional<double> a, b, rf;
    char const* found = "";
  };
  std::vector<Tcase> const cases{
      {6378245, krass_b, {}, "by rf"},
      {6378245, krass_b + 1e-3, {}, "none"},
      {6378245, {}, 298.3, "by rf"},
      {6378245, {}, 298.3000001, "none"},  // compared as stored
      {6378245, 1, 298.3, "by rf"},        // b does not fit, rf does
      {6378245.1, krass_b, 298.3, "none"},
      {{}, krass_b, 298.3, "none"},
      {6378245, {}, {}, "none"},
      {6378206.4, 6356583.8, {}, "by b"},
      {6378206.4, 6356583.8000001, {}, "none"},
      {6378206.4, {}, clarke_rf, "by b"},
      {6378206.4, {}, clarke_rf + 1e-4, "none"},
      {6377000, 6356000, {}, "both"},
      {6377000, {}, 300, "both"},
      {6377000, {}, 6377000.0 / 21000, "none"},  // its own rf counts, not b's
      {6371000, 6371000, {}, "sphere"},
      {6371000, {}, 0, "none"}};
  for (auto const& c : cases)
    EXPECT_EQ(caption(list.find_by_params(c.a.has_value(), c.a.value_or(6378245), c.b.has_value(),
                                          c.b.value_or(0), c.rf.has_value(), c.rf.value_or(0))),
              c.found)
        << c.a.value_or(0) << " " << c.b.value_or(0) << " " << c.rf.value_or(0);
}

TEST(Datum_defs, look_ups) {
  Tzu_pj_datum_defs list;
  for (auto const& [caption, name] :
       {std::pair("", ""), std::pair("First", "WGS84"), std::pair("Second", "wgs84")}) {
    auto& record = list.add();
    record.set_caption(caption);
    record.set_prj4_name(name);
    record.set_index(static_cast<std::uint32_t>(list.get_size()));
  }
  EXPECT_EQ(caption(list.find_by_name("Wgs84")), "First");
  EXPECT_EQ(list.find_by_name(""), nullptr);
  EXPECT_EQ(list.find_by_caption(""), nullptr);
  EXPECT_EQ(caption(list.find_by_caption("SECOND")), "Second");
  EXPECT_EQ(list.find_by_caption("Third"), nullptr);
  EXPECT_EQ(caption(list.find_by_index(3)), "Second");
}

TEST_F(Catalogue, projection_look_ups) {
  write_usual({
      cells("PRJ_NAME=TM origin 0;PROJ=tmerc;LAT_0=1;LAT_0_V=0;K_0=1"),
      cells("PRJ_NAME=TM south;PROJ=tmerc;SOUTH=1;LAT_0=1;K_0=1"),
      cells("PRJ_NAME=TM;PROJ=tmerc;LAT_0=1;K_0=1"),
      cells("PRJ_NAME=Stereo;PROJ=stere;LAT_0=1"),
      cells("PRJ_NAME=Stereo ts;PROJ=stere;LAT_0=1;LAT_TS=1"),
      cells("PRJ_NAME=Conic 1;PROJ=lcc;LAT_1=1"),
      cells("PRJ_NAME=Conic 2;PROJ=lcc;LAT_1=1;LAT_2=1"),
  });
  auto const zone = [](char const* caption, char const* number, char const* south) {
    return cells(std::string("PROJ=utm;ZONE=1;PRJ_NAME=") + caption + ";ZONE_V=" + number +
                 ";SOUTH=" + south);
  };
  write_zonal({zone("UTM", "37", "0"), zone(" utm", "37", "1"), zone("UTM", "38", "0"),
               zone("Late", "37", "0")});
  Tzu_pj_def_dbf catalogue;
  struct Tcase {
    char const* name = "";
    double lat_0;
    bool lat_1, lat_2, lat_ts, k_0;
    int zone;
    bool south;
    char const* found = "";
  };
  std::vector<Tcase> const cases{
      {"TMERC", 0.00005, false, false, false, true, 0, false, "TM origin 0"},
      {"tmerc", 0.0002, false, false, false, true, 0, false, "TM"},
      {"tmerc", -55, false, false, false, false, 0, true, "TM south"},
      {"tmerc", 0, true, false, false, false, 0, false, "none"},
      {"stere", 90, false, false, false, false, 0, false, "Stereo"},
      {"stere", 90, false, false, true, false, 0, false, "Stereo ts"},
      {"stere", 90, false, false, false, true, 0, false, "none"},
      {"stere", 90, false, false, true, true, 0, false, "Stereo ts"},
      {"lcc", 0, true, false, false, false, 0, false, "Conic 1"},
      {"lcc", 0, true, true, false, false, 0, false, "Conic 2"},
      {"longlat", 3, false, false, false, false, 0, true, "Longitude/Latitude"},
      {"utm", 0, false, false, false, false, 0, false, "none"},
      {"UTM", 0, false, false, false, false, 37, false, "UTM"},
      {"utm", 0, true, true, true, true, 37, true, "utm"},
      {"utm", 0, false, false, false, false, 39, false, "none"},
      {"utm", 0, false, false, false, false, -1, false, "none"}};
  for (auto const& c : cases) {
    auto const* const found =
        catalogue.get_def(c.name, c.lat_0, c.lat_1, c.lat_2, c.lat_ts, c.k_0, c.zone, c.south);
    EXPECT_EQ(caption(found), c.found) << c.name << " " << c.lat_0 << " " << c.zone;
    EXPECT_EQ(c.zone == 0 ? catalogue.get_last_proj() : catalogue.get_last_zone(), found);
  }
  EXPECT_EQ(catalogue.proj_caption_common("tmerc", 0, false, false, false, false, false),
            "TM origin 0");
  EXPECT_EQ(caption(catalogue.get_last_proj()), "TM origin 0");
  EXPECT_EQ(catalogue.get_last_zone(), nullptr) << "the last search of zones found none";
  EXPECT_EQ(catalogue.proj_caption_zonal("utm", 38, false), "UTM");
  EXPECT_EQ(catalogue.get_last_zone()->get_index(), 3U);
  EXPECT_EQ(catalogue.proj_caption_zonal("utm", 38, true), "");
  EXPECT_EQ(catalogue.proj_caption_common("nowhere", 0, false, false, false, false, false), "");

  auto const& zones = catalogue.get_zone_defs();
  EXPECT_EQ(zones.find_by_caption_and_zone("\tUtm ", 38)->get_index(), 3U);
  EXPECT_EQ(zones.find_by_caption_and_zone("UTM", 37)->get_index(), 1U);
  EXPECT_EQ(zones.find_by_caption_and_zone("UTM", 0), nullptr);
  EXPECT_EQ(caption(catalogue.get_proj_defs().find_by_name_south("tmerc", true)), "TM south");
  EXPECT_EQ(caption(catalogue.get_proj_defs().find_by_name_south("lcc", true)), "none");

  catalogue.proj_caption_zonal("utm", 38, false);
  catalogue.proj_caption_common("lcc", 0, true, false, false, false, false);
  write_usual({});
  catalogue.load();
  EXPECT_EQ(catalogue.get_last_proj(), nullptr);
  EXPECT_EQ(catalogue.get_last_zone(), nullptr);
  EXPECT_EQ(catalogue.get_proj_defs().get_size(), 2U);
  EXPECT_EQ(catalogue.get_zone_defs().get_size(), 4U);
}

// A parameter of a definition takes a row's value where the row has one.
template <class Param, class From, class Value>
void expect_taken(Value value, char const* text) {
  Param param("key");
  Param copy("key");
  From given;
  given.set_default(value);
  param.val_from_str("1");
  param.set_param(given);
  EXPECT_FALSE(param.get_def()) << text;
  given.set_def_default(true);
  param.set_param(given);
  copy.set_param(param);
  EXPECT_TRUE(copy.get_def() && copy.equal(param)) << text;
  EXPECT_STREQ(copy.get_out_str(), text);
}

TEST(Proj_defs, values_go_into_definitions) {
  expect_taken<Tzu_proj4_param_str, Tzu_pj_str_param>("krass", "+key=krass ");
  expect_taken<Tzu_proj4_param_int, Tzu_pj_int_param>(37, "+key=37 ");
  expect_taken<Tzu_proj4_param_dbl, Tzu_pj_dbl_param>(-0.5, "+key=-0.5 ");
  expect_taken<Tzu_proj4_param_bool, Tzu_pj_bool_param>(true, "+key ");
  Tzu_proj4_param_towgs84 shift("key");
  Tzu_proj4_param_towgs84 copy("key");
  shift.val_from_str("1,2,3,4,5,6,7");
  copy.set_param(shift);
  EXPECT_STREQ(copy.get_out_str(), "+key=1,2,3,4,5,6,7 ");
  EXPECT_STREQ(Tzu_proj4_traits::dbl2str(-5811057.6280000001), "-5811057.628");
}

TEST_F(Catalogue, deleted_rows_and_foreign_letters_are_kept) {
  std::string const name = folder.file("pj_ellps.dbf");
  write_ellipses({cells("ELLPS_NAME=\xCA\xF0\xE0\xF1;ELLPS=krass"), cells("ELLPS=other")});
  {
    std::unique_ptr<DBFInfo, void (*)(DBFInfo*)> const table(DBFOpen(name.c_str(), "rb+"),
                                                             DBFClose);
    ASSERT_TRUE(table);
    DBFMarkRecordDeleted(table.get(), 0, 1);
  }
  Tzu_datum_def_dbf const catalogue;
  ASSERT_EQ(catalogue.get_ellipse_defs().get_size(), 2U);
  EXPECT_EQ(caption(catalogue.get_ellipse_defs().find_by_name("krass")), "\xCA\xF0\xE0\xF1");
}

TEST_F(Catalogue, summaries_tell_captions_and_the_numbers_that_a_row_fixes) {
  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const now(page);
    write_usual(
        {cells(std::string("PRJ_NAME=")
                   .append(page.bytes)
                   .append(";PROJ=tmerc;DATUM=WGS84;LAT_0=1;LAT_0_V=52;LON_0=1;LON_0_MIN=5;K_0=1;"
                           "K_0_V=0.5;X_0=0;X_0_V=9")),
         cells("PRJ_NAME=any origin;PROJ=tmerc;LAT_0=1")});
    Tzu_pj_def_dbf::instance().load();
    std::wstring const letters = page.letters;
    std::vector<std::pair<char const*, std::wstring>> const cases{
        {"+proj=tmerc +lat_0=51.99995 +lon_0=39", letters + L"; 39; 51.99995; 0.5; "},
        {"+proj=tmerc +lat_0=52 +k=2 +datum=d", letters + L"; 52; 2; d; "},
        {"+proj=tmerc +lat_0=52.0002", L"any origin; 52.0002; "},
        {"+proj=tmerc", L"any origin; "},
        {"+proj=tmerc +k=2", L"tmerc; 2; "},
        {"+proj=tmerc +lat_0=52 +zone=1", L"tmerc; 52; "}};
    for (auto const& [definition, text] : cases) {
      std::wstring summary;
      Tzu_std_wstring_adapter target(&summary);
      zu::string_adp const adapter(target);
      EXPECT_TRUE(Tzu_short_text_helper::get_short_text(definition, adapter.get()));
      EXPECT_EQ(recorded(summary), text) << definition;
    }
  }
}

}  // namespace
