// The tables that ship, as another program reads them.

#include <gtest/gtest.h>
#include <proj.h>
#include <shapefil.h>

#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "basic/number.h"
#include "basic/str.h"
#include "core_support.h"

namespace {

using record = std::map<std::string, std::string>;

// All records of a table, by shapelib; fields trimmed.
std::vector<record> dump(std::string const& table) {
  std::string const path = ZU_PRJ_DEF "/" + table + ".dbf";
  core_test::get_file(path);  // for the record
  std::unique_ptr<DBFInfo, decltype(&DBFClose)> const file(DBFOpen(path.c_str(), "rb"), DBFClose);
  if (!file) return {};
  std::vector<record> records(static_cast<std::size_t>(DBFGetRecordCount(file.get())));
  for (int field = 0; field < DBFGetFieldCount(file.get()); ++field) {
    std::array<char, XBASE_FLDNAME_LEN_READ + 1> name{};
    DBFGetFieldInfo(file.get(), field, name.data(), nullptr, nullptr);
    for (int row = 0; row < static_cast<int>(records.size()); ++row)
      records[static_cast<std::size_t>(row)].emplace(
          name.data(), zu::str::trim(DBFReadStringAttribute(file.get(), row, field)));
  }
  return records;
}

double number(record const& from, std::string const& field) {
  return zu::number::scan_double(from.at(field)).value_or(std::nan(""));
}

TEST(Shipped_tables, have_every_ellipsoid_of_proj_with_its_numbers) {
  std::map<std::string, record> by_key;
  for (record const& row : dump("pj_ellps")) by_key.emplace(row.at("ELLPS"), row);
  for (PJ_ELLPS const* ellipsoid = proj_list_ellps(); ellipsoid->id != nullptr; ++ellipsoid) {
    ASSERT_TRUE(by_key.contains(ellipsoid->id)) << ellipsoid->id;
    record const& row = by_key[ellipsoid->id];
    for (std::string_view const text : {ellipsoid->major, ellipsoid->ell}) {
      auto const [key, value] = zu::str::divide_str(text, '=');
      std::string const field = key == "a" ? "A" : key == "b" ? "B" : "RF";
      EXPECT_EQ(number(row, field), zu::number::scan_double(value)) << ellipsoid->id;
    }
    EXPECT_NE(std::isnan(number(row, "B")), std::isnan(number(row, "RF"))) << ellipsoid->id;
  }
}

TEST(Shipped_tables, have_the_datums_that_their_users_need) {
  std::set<std::string> ids;
  for (record const& row : dump("pj_ellps")) EXPECT_TRUE(ids.insert(row.at("ELLPS_ID")).second);
  auto const datums = dump("pj_datum");
  EXPECT_GE(datums.size(), 120U);
  std::map<std::string, std::string> numbers;
  std::map<std::string, std::string> keys;
  for (record const& row : datums) {
    EXPECT_TRUE(ids.contains(row.at("ELLPS_ID"))) << row.at("DATUM_NAME");
    std::string text;
    for (char const* field :
         {"SHIFT_X0", "SHIFT_Y0", "SHIFT_Z0", "ROTAT_X0", "ROTAT_Y0", "ROTAT_Z0", "SCALE_F0"})
      text.append(text.empty() ? "" : ",").append(row.at(field));
    EXPECT_TRUE(numbers.emplace(row.at("DATUM_NAME"), text).second) << row.at("DATUM_NAME");
    if (!row.at("DATUM").empty()) keys.emplace(row.at("DATUM"), row.at("DATUM_NAME"));
  }
  // Published numbers, in PROJ's signs.
  EXPECT_EQ(numbers["PULKOVO_1942"], "23.57,-140.95,-79.8,0,0.35,0.79,-0.22");
  EXPECT_EQ(numbers["PULKOVO_1995"], "24.82,-131.21,-82.66,0,0,0.16,-0.12");
  EXPECT_EQ(numbers["GSK_2011"], "0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074");
  EXPECT_EQ(numbers["Pulkovo 1942(58)"], "33.4,-146.6,-76.3,-0.359,-0.053,0.844,-0.84");
  EXPECT_EQ(numbers["Pulkovo 1942(83)"], "24,-123,-94,0.02,-0.25,-0.13,1.1");
  EXPECT_EQ(keys["msc_bess"], "MOSCOW_BESSEL");
  for (char const* key : {"WGS84", "GGRS87", "NAD83", "NAD27", "potsdam", "carthage",
                          "hermannskogel", "ire65", "nzgd49", "OSGB36"})
    EXPECT_TRUE(keys.contains(key)) << key;
}

TEST(Shipped_tables, have_every_zone_on_its_meridian) {
  std::map<std::string, int> zones;
  for (record const& row : dump("pj_proj2")) {
    std::string const& name = row.at("PRJ_NAME");
    int const zone = ++zones[name];
    EXPECT_EQ(number(row, "ZONE_V"), zone) << name;
    if (row.at("PROJ") == "utm") continue;
    double const meridian = name.find("3-degree") == std::string::npos ? 6 * zone - 3 : 3 * zone;
    EXPECT_EQ(number(row, "LON_0_V"), meridian > 180 ? meridian - 360 : meridian) << name;
    double const millions = name.ends_with("(plus zone)") ? zone : 0;
    EXPECT_EQ(number(row, "X_0_V"), 500000 + millions * 1e6) << name << zone;
    EXPECT_EQ(number(row, "LAT_0_V") + number(row, "Y_0_V"), 0);
    EXPECT_EQ(number(row, "K_0_V"), 1);
  }
  EXPECT_EQ(zones, (std::map<std::string, int>{{"Gauss-Kruger", 60},
                                               {"Gauss-Kruger (plus zone)", 60},
                                               {"Gauss-Kruger 3-degree", 64},
                                               {"Gauss-Kruger 3-degree (plus zone)", 64},
                                               {"UTM North", 60},
                                               {"UTM South", 60}}));
}

}  // namespace
