// The command-line program and no database of PROJ in its folder, or a bad one. The DLL's test
// has a good one.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "core_support.h"

namespace {

namespace fs = std::filesystem;
using core_test::outcome;

constexpr char const* known_zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";

// GDAL and PROJ convert some of these without the database and lose the datum. So the program
// must refuse them all.
TEST(Shipped_database, may_be_missing_or_damaged) {
  fs::path const program = ZU_PJ4;
  core_test::Ttemp_folder const folder;
  std::string const path = folder.file("\u041A\u0430\u0440\u0442\u0430 \u03B1 \u4E2D");
  fs::path const native = core_test::shell_path(path);
  fs::create_directory(native);
  fs::copy(program, native / program.filename());
  // A variable or another folder must not help.
  core_test::Tenvironment const environment{{"PROJ_DATA", nullptr}, {"PROJ_LIB", nullptr}};
  fs::current_path(program.parent_path());
  auto const run = [&](std::vector<std::string> arguments, std::string input = "") {
    return core_test::run(
        {path + "/" + program.filename().string(), std::move(arguments), std::move(input)});
  };
  std::string const whole = core_test::read_file("proj.db");
  fs::path const database = native / "proj.db";
  for (std::string const& content : {std::string("none"), std::string(), std::string("text"),
                                     whole.substr(0, whole.size() / 3)}) {
    SCOPED_TRACE(content.size());
    if (content != "none") std::ofstream(database, std::ios::binary) << content;
    std::string const known = run({"to-esri", known_zone_7}).out;
    EXPECT_TRUE(known.starts_with("PROJCS[\"Pulkovo_1942_GK_Zone_7\"")) << known;
    for (outcome const& result :
         {run({"import", "EPSG:28407"}), run({"import", "Pulkovo 1942"}),
          run({"to-esri", "+proj=utm +zone=37 +datum=WGS84"}), run({"from-esri", "-"}, known)}) {
      EXPECT_NE(result.status, 0);
      EXPECT_TRUE(result.out == "\n" || result.out.empty()) << result.out;
      // GDAL and PROJ must not print anything themselves.
      EXPECT_TRUE(result.err.starts_with("Error: ")) << result.err;
      EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
    }
  }
}

}  // namespace
