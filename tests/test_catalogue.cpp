#include <gtest/gtest.h>

#include "catalogue/catalogue.h"
#include "catalogue/pj_dbf.h"
#include "catalogue_tables.h"
#include "core_support.h"

namespace {

using core_test::columns_of;
using core_test::Ttemp_folder;
using core_test::write_table;

TEST(Catalogue, every_column_is_required_in_any_order) {
  Ttemp_folder const folder;
  auto const check = [&](char const* table, auto list, auto load) {
    std::string const name = folder.file("t.dbf");
    auto const all = columns_of(table);
    list.add();
    for (std::size_t left_out = 0; left_out <= all.size(); ++left_out) {
      core_test::table_columns names(all.rbegin(), all.rend());
      names.emplace_back("EXTRA");
      if (left_out < all.size()) std::erase(names, all[left_out]);
      write_table(name, names, {"", ""});
      bool const whole = left_out == all.size();
      std::string missing;
      EXPECT_EQ(load(name, list, &missing), whole ? 0 : 200);
      EXPECT_EQ(missing, whole ? "" : all[left_out]);
      EXPECT_EQ(list.get_size(), whole ? 2U : 0U);
    }
    list.add();
    EXPECT_EQ(load(folder.file("missing.dbf"), list, nullptr), 1);
    EXPECT_EQ(list.get_size(), 0U);
  };
  check("pj_proj1", Tzu_pj_proj_defs(), &Tzu_pj_dbf::load_pj_proj);
  check("pj_datum", Tzu_pj_datum_defs(), &Tzu_pj_dbf::load_pj_datum);
  check("pj_ellps", Tzu_pj_ellipse_defs(), &Tzu_pj_dbf::load_pj_ellipse);
}

// How rows are matched is tested by way of the editing rules and of the summaries.
TEST(Catalogue, remembers_what_was_found_last) {
  Ttemp_folder const folder;
  write_table(
      folder.file("pj_proj1.dbf"), columns_of("pj_proj1"),
      {"PRJ_NAME=TM origin 0;PROJ=tmerc;LAT_0=1;LAT_0_V=0;K_0=1",
       "PRJ_NAME=TM south;PROJ=tmerc;SOUTH=1;LAT_0=1", "PRJ_NAME=TM;PROJ=tmerc;LAT_0=1;K_0=1"});
  std::string const zone = "PROJ=utm;ZONE=1;PRJ_NAME=";
  write_table(folder.file("pj_proj2.dbf"), columns_of("pj_proj2"),
              {zone + "UTM;ZONE_V=37", zone + " utm;ZONE_V=37;SOUTH=1", zone + "UTM;ZONE_V=38",
               zone + "Late;ZONE_V=37"});
  Tzu_pj_dbf::set_catalogue_folder(folder.file(""));
  Tzu_pj_def_dbf catalogue;
  // With k_0 given and by latitude of origin, zone and hemisphere.
  auto const find = [&](double lat_0, int number, bool south) {
    auto const* const found = catalogue.get_def(number == 0 ? "TMERC" : "UTM", lat_0, false, false,
                                                false, true, number, south);
    EXPECT_EQ(number == 0 ? catalogue.get_last_proj() : catalogue.get_last_zone(), found);
    return found == nullptr ? "none" : core_test::recorded(found->get_caption());
  };
  EXPECT_EQ(find(0.00005, 0, false), "TM origin 0");
  EXPECT_EQ(find(0.0002, 0, false), "TM");
  EXPECT_EQ(find(0, 37, false), "UTM");
  EXPECT_EQ(find(0, 37, true), "utm");
  EXPECT_EQ(find(0, 39, false), "none");
  EXPECT_EQ(find(0, -1, false), "none");
  EXPECT_EQ(catalogue.proj_caption_common("tmerc", 0, true, false, false, false, false), "");
  EXPECT_EQ(catalogue.proj_caption_common("tmerc", 0, false, false, false, false, false),
            "TM origin 0");
  EXPECT_EQ(catalogue.proj_caption_zonal("utm", 38, true), "");
  EXPECT_EQ(catalogue.proj_caption_zonal("utm", 38, false), "UTM");
  EXPECT_EQ(catalogue.get_last_zone()->get_index(), 3U);
  EXPECT_EQ(catalogue.get_proj_defs().find_by_name_south("tmerc", true)->get_caption(), "TM south");
  catalogue.load();
  EXPECT_TRUE(catalogue.get_last_proj() == nullptr && catalogue.get_last_zone() == nullptr);
  Tzu_pj_dbf::set_catalogue_folder("");
}

}  // namespace
