// Conversions by the command-line program, as a shell sees them.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "basic/str.h"
#include "cli_support.h"
#include "esri_text.h"

namespace {

namespace fs = std::filesystem;
using cli_test::expect_lines;
using cli_test::expect_outcome;
using core_test::get_file;
using core_test::put_file;
using core_test::zone_7_wkt;

constexpr char const* zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";
// As GDAL writes what it read.
constexpr char const* zone_7_back =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs";
std::string const epsg_28407 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs\n";
std::string const nonsense =
    "cannot convert \"+proj=nonsense\" to ESRI WKT: PROJ: proj_create: Error 1027 (Invalid value "
    "for an argument): Unknown projection\n";
std::string const no_crs =
    "PROJ: proj_create_from_database: crs not found; proj_create: crs not found\n";

std::string line(std::string const& text) { return text + "\n"; }

class Cli_conversions : public cli_test::Cli {};

TEST_F(Cli_conversions, LinesStayBesideThoseTheyAreMadeOf) {
  expect_lines(run({"to-esri", zone_7, "-"}, line(zone_7) + "\r\n" + zone_7 + "\r\n"),
               line(zone_7_wkt) + line(zone_7_wkt) + "\n" + line(zone_7_wkt));
  expect_outcome(run({"to-esri", "+proj=nonsense", "-"}, line("two\r") + zone_7), 1,
                 "\n\n" + line(zone_7_wkt),
                 "Error: " + nonsense +
                     "Error: cannot convert \"two\" to ESRI WKT: PROJ: proj_create: unrecognized "
                     "format / unknown name\n");
  expect_lines(run({"import", "+init=epsg:28407", zone_7_wkt, "-"},
                   line("urn:ogc:def:crs:EPSG::28407") + "WGS84"),
               epsg_28407 + epsg_28407 + epsg_28407 + "+proj=longlat +datum=WGS84 +no_defs\n");
  expect_outcome(run({"import", "EPSG:1", "EPSG:28407", "/etc\n/passwd"}), 1,
                 "\n" + epsg_28407 + "\n",
                 "Error: cannot import \"EPSG:1\": " + no_crs +
                     "Error: cannot import \"/etc /passwd\": proj_create: unrecognized format / "
                     "unknown name\n");
}

TEST_F(Cli_conversions, EsriFilesAreLoadedAndSavedByTheirExtension) {
  std::string const file = path("a b.PRJ");
  put_file(file, "an older and longer content of the file, which has to go");
  expect_lines(run({"save", zone_7, file}), "");
  EXPECT_EQ(get_file(file), zone_7_wkt);
  expect_lines(run({"load", file}), line(zone_7_back));
  expect_lines(run({"from-esri", file}), line(zone_7_back));
  expect_lines(run({"from-esri", "-"}, zone_7_wkt), line(zone_7_back));

  put_file(path("text.prj"), "some\ntext");
  put_file(path("bad.pj4"), "+init=epsg:1");
  fs::create_directory(path("folder.prj"));
  expect_outcome(run({"from-esri", "-"}, "GEOGCS[\"x\""), 2, "",
                 "Error: standard input: no ESRI WKT: missing , or ]\n");
  for (auto const& [name, error] :
       {std::pair<std::string, std::string>{"text.prj", "no ESRI WKT\n"},
        {"none.prj", "no such file\n"},
        {"folder.prj", "cannot be read\n"},
        {"bad.pj4", "no PROJ.4 definition: " + no_crs}})
    expect_outcome(run({"load", path(name)}), 2, "", "Error: " + path(name) + ": " + error);
  expect_outcome(run({"save", "+proj=nonsense", file}), 2, "", "Error: " + nonsense);
  EXPECT_EQ(get_file(file), zone_7_wkt) << "a failed save touches the file";
  expect_outcome(run({"save", zone_7, path("none/a.prj")}), 2, "",
                 "Error: cannot write " + path("none/a.prj") + "\n");
}

TEST_F(Cli_conversions, ConvertsManyFilesAndTellsWhichItCannot) {
  core_test::Tenvironment const environment{{"LC_ALL", "ru_RU.UTF-8"}};
  std::string const letters = "\u0437\u043E\u043D\u0430 7";
  put_file(path("plain"), zone_7);
  fs::copy_file(path("plain"), core_test::shell_path(path(letters + ".pj4")));
  put_file(path("b.pj4"), "[projection]\npj4=+init=epsg:28407\n");
  put_file(path("c.prj"), zone_7_wkt);
  put_file(path("bad.pj4"), "+proj=nonsense");
  put_file(path("text.prj"), "text");
  std::string const out = path("new/out dir/");
  expect_outcome(
      run({"convert", path(letters + ".pj4"), path("bad.pj4"), path("text.prj"), path("none.pj4"),
           path("c.prj"), path("b.pj4"), "--to", "prj", "--out-dir", out}),
      1, "",
      "Error: " + path("bad.pj4") + ": " + nonsense + "Error: " + path("text.prj") +
          ": no ESRI WKT\nError: " + path("none.pj4") +
          ": no such file\nError: 3 of 6 files not converted\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(out), {}), 3);
  // What came back of ESRI WKT has its keys in another order, which does not count.
  EXPECT_EQ(get_file(out + "c.prj"), zone_7_wkt);
  EXPECT_TRUE(fs::exists(out + "b.prj"));
  fs::rename(core_test::shell_path(out + letters + ".prj"), path("renamed.prj"));
  EXPECT_EQ(get_file(path("renamed.prj")), zone_7_wkt);

  expect_lines(run({"convert", path("c.prj"), "--to", "pj4"}), "");
  EXPECT_EQ(get_file(path("c.pj4")), "[projection]\n\npj4=" + line(zone_7_back));
  expect_outcome(run({"convert", path("c.prj"), "--to", "prj", "--out-dir", path("plain")}), 2, "",
                 "Error: cannot make the folder " + path("plain") + "\n");
}

TEST_F(Cli_conversions, ConvertingLosesNoFileOfTheRun) {
  put_file(path("a.pj4"), zone_7);
  put_file(path("a.prj"), "GEOGCS");
  put_file(path("b.pj4"), zone_7);
  fs::create_directory(path("sub"));
  put_file(path("sub/b.pj4"), "+proj=longlat +ellps=krass");
  std::string const again = path("sub/../b.pj4");
  auto const overwrites = [](std::string const& one, std::string const& other) {
    return "Error: " + one + ": would overwrite " + other;
  };
  expect_outcome(
      run({"convert", path("a.pj4"), path("sub/../a.prj"), path("b.pj4"), again, "--to", "prj"}), 1,
      "",
      overwrites(path("a.pj4"), path("a.prj")) + ", which is to be converted, too\n" +
          overwrites(path("sub/../a.prj"), "itself\n") + overwrites(again, path("sub/../b.prj")) +
          ", which was made of " + path("b.pj4") + "\nError: 3 of 4 files not converted\n");
  EXPECT_EQ(get_file(path("a.prj")), "GEOGCS");
  EXPECT_EQ(get_file(path("b.prj")), zone_7_wkt);
  expect_outcome(
      run({"convert", path("b.pj4"), path("sub/b.pj4"), "--to", "prj", "--out-dir", path("out/")}),
      1, "",
      overwrites(path("sub/b.pj4"), path("out/b.prj")) + ", which was made of " + path("b.pj4") +
          "\nError: 1 of 2 files not converted\n");
  EXPECT_EQ(get_file(path("out/b.prj")), zone_7_wkt);
}

// The dialog writes seven numbers beside a datum's key, which two of them have not.
TEST_F(Cli_conversions, KnowsSystemsByNameAndByDefinitionAlsoAfterTheDialog) {
  auto const lines_of = [](std::string const& text) { return zu::str::split(text, "\n"); };
  auto const list = run({"known", "--list"}).out;
  EXPECT_EQ(std::ranges::count(list, '\n'), 442);
  EXPECT_NE(list.find(std::string("\n73\tPulkovo_1942_GK_Zone_7\tconfirmed\t") + zone_7),
            std::string::npos);
  std::string definitions;
  for (auto const row : lines_of(list)) {
    // Placeholders are not for use.
    if (row.empty() || row.ends_with("\tunconfirmed\t")) continue;
    EXPECT_NE(row.find("\tconfirmed\t+proj="), std::string_view::npos) << row;
    definitions.append(row.substr(row.rfind('\t') + 1)).append("\n");
  }
  EXPECT_EQ(std::ranges::count(definitions, '\n'), 381);
  auto const direct = run({"to-esri", "-"}, definitions).out;
  auto const edited = run({"to-esri", "-"}, run({"apply", "-"}, definitions).out).out;
  auto const before = lines_of(direct);
  auto const after = lines_of(edited);
  ASSERT_EQ(before.size(), after.size());
  std::vector<std::string> changed;
  for (std::size_t i = 0; i < before.size(); ++i)
    for (auto const text : {before[i], after[i]})
      if (before[i] != after[i]) changed.emplace_back(text.substr(0, text.find(',')));
  EXPECT_EQ(changed, (std::vector<std::string>{"GEOGCS[\"GCS_WGS_1984\"", "GEOGCS[\"GCS_unknown\"",
                                               "PROJCS[\"Russia_Cadastre_77_1\"", ""}));

  expect_lines(run({"known", "pulkovo_1942_gk_zone_7"}), line(zone_7) + line(zone_7_wkt));
  expect_lines(run({"known", zone_7_back}), "Pulkovo_1942_GK_Zone_7\n");
  for (auto const& [asked, error] : std::vector<std::pair<std::string, std::string>>{
           {"Russia_Cadastre_87_4_N", "nobody has published the numbers of Russia_Cadastre_87_4_N"},
           {"+proj=longlat", "no known system: +proj=longlat"},
           {"", "known takes --list, a definition or a name"}})
    expect_outcome(run({"known", asked}), 2, "", "Error: " + error + "\n");
}

}  // namespace
