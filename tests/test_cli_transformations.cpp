// The commands about coordinates, as a shell sees them.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cli_support.h"

namespace {

using cli_test::expect_lines;
using cli_test::local_system;
using core_test::put_file;

constexpr char const* wgs84 = "+proj=longlat +datum=WGS84";
constexpr char const* utm_37 = "+proj=utm +zone=37 +datum=WGS84";

class Cli_transformations : public cli_test::Cli {
 protected:
  using words = std::vector<std::string>;

  core_test::outcome transform(words more, std::string input = "") const {
    words arguments{"transform", "--from", wgs84, "--to", utm_37};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return run(std::move(arguments), std::move(input));
  }
};

TEST_F(Cli_transformations, DescribesADefinitionInBothLanguages) {
  core_test::Tenvironment const environment{{"LC_ALL", "ru_RU.UTF-8"}};
  expect_lines(run({"describe", local_system, "--lang", "en"}),
               "Projection = tmerc\nCentral Meridian = 78.05\nLatitude of Origin = 0\n"
               "False Easting = 4500000\nFalse Northing = -5811057.628\nScale Factor = 1\n"
               "Datum parameters = 24.82,-131.21,-82.66,0,0,0.16,-0.12\nSpheroid = krass\n");
  expect_lines(
      run({"describe", local_system, "--lang", "ru"}),
      "\u041F\u0440\u043E\u0435\u043A\u0446\u0438\u044F = tmerc\n"
      "\u0426\u0435\u043D\u0442\u0440\u0430\u043B\u044C\u043D\u044B\u0439 "
      "\u043C\u0435\u0440\u0438\u0434\u0438\u0430\u043D = 78.05\n"
      "\u0428\u0438\u0440\u043E\u0442\u0430 \u043D\u0430\u0447\u0430\u043B\u0430 "
      "\u043A\u043E\u043E\u0440\u0434. = 0\n"
      "\u0421\u0434\u0432\u0438\u0433 \u043A \u0432\u043E\u0441\u0442\u043E\u043A\u0443 = 4500000\n"
      "\u0421\u0434\u0432\u0438\u0433 \u043A \u0441\u0435\u0432\u0435\u0440\u0443 = -5811057.628\n"
      "\u041C\u0430\u0441\u0448\u0442\u0430\u0431\u043D\u044B\u0439 "
      "\u043A\u043E\u044D\u0444\u0444. = 1\n"
      "\u041F\u0430\u0440\u0430\u043C\u0435\u0442\u0440\u044B "
      "\u0434\u0430\u0442\u0443\u043C\u0430 = "
      "24.82,-131.21,-82.66,0,0,0.16,-0.12\n"
      "\u042D\u043B\u043B\u0438\u043F\u0441\u043E\u0438\u0434 = krass\n");
  for (char const* language : {"en", "ru"})
    expect_lines(run({"describe", "--short", local_system, "--lang", language}),
                 "Transverse Mercator; 78.05; 0; 4500000; -5811057.628; 1; "
                 "(24.82,-131.21,-82.66,0,0,0.16,-0.12); krass; \n");
  expect_lines(run({"describe", "EPSG:4326", "--lang", "en"}),
               "Projection = longlat\nDatum = WGS84\n");
  expect_lines(run({"describe", "", "--lang", "en"}), "Projection = Unknown\n");
}

// The origin of a zone is known without any transformation.
TEST_F(Cli_transformations, ReplacesTheFirstTwoColumnsAndNothingElse) {
  std::vector<std::pair<char const*, char const*>> const lines{
      {"\xEF\xBB\xBF"
       "39 0",
       "\xEF\xBB\xBF"
       "500000.0000 0.0000"},
      {"39,0", "500000.0000,0.0000"},
      {"39;0;a;\tb", "500000.0000;0.0000;a;\tb"},
      {"39\t\t0\t4 5", "500000.0000\t\t0.0000\t4 5"},
      {" 39 , 0 , name ", " 500000.0000 , 0.0000 , name "},
      {"+39.0 0e5,x\r", "500000.0000 0.0000,x\r"},
      {"3.9e1 .0 1 2 3", "500000.0000 0.0000 1 2 3"},
      {"# 39 0", "# 39 0"},
      {"\t# 39 0", "\t# 39 0"},
      {"", ""},
      {" \t\r", " \t\r"},
      {"39 91", "* *"},
      {"39 1e300;x\r", "* *;x\r"},
      // The degrees alone would be another point.
      {"39-30 55", "* * 39-30 55"},
      {"39\xC2\xB0"
       "30'00\" 55",
       "* * 39\xC2\xB0"
       "30'00\" 55"},
      {"39d30 55", "* * 39d30 55"},
      {"39:30 55", "* * 39:30 55"},
      {"39 55.5.5", "* * 39 55.5.5"},
      {"39E 55N", "* * 39E 55N"},
      // And so would the column behind an empty one.
      {"39,,55", "* * 39,,55"},
      {";39;55", "* * ;39;55"},
      {"39", "* * 39"},
      {"39\r", "* * 39\r"},
      {"x y", "* * x y"},
      {"nan 0", "* * nan 0"},
      {"inf inf", "* * inf inf"},
      {"1e999 0", "* * 1e999 0"},
      {"0x27 0", "* * 0x27 0"},
      {"last 0", "* * last 0"}};
  std::string input;
  std::string output;
  for (auto const& [before, after] : lines) {
    input.append(input.empty() ? "" : "\n").append(before);
    output.append(output.empty() ? "" : "\n").append(after);
  }
  put_file(path("points.txt"), input);
  for (auto const& result : {transform({}, input), transform({path("points.txt")})}) {
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, output);
    EXPECT_EQ(result.err, "Error: 18 of 25 points not transformed\n");
  }
  expect_lines(transform({}, "39 0"), "500000.0000 0.0000");
  expect_lines(transform({}, ""), "");
}

TEST_F(Cli_transformations, TakesCodesDigitsAndTheWayBack) {
  expect_lines(run({"transform", "--from", "EPSG:4326", "--to", "epsg:32637"}, "39 0\n"),
               "500000.0000 0.0000\n");
  // A code without a shift stays without one; the point would be another with it.
  expect_lines(run({"transform", "--from", "EPSG:4326", "--to", "EPSG:28407"}, "39 0\n"),
               "7500000.0000 0.0000\n");
  expect_lines(transform({"--digits", "0"}, "39 0\n"), "500000 0\n");
  expect_lines(transform({"--inverse"}, "500000 0\n"), "39.000000000 0.000000000\n");
  expect_lines(transform({"--inverse", "--digits", "2"}, "500000 0\n"), "39.00 0.00\n");
}

// Longer than what is read at a time, with a line that is so, too.
TEST_F(Cli_transformations, KeepsTheOrderOfLongInput) {
  std::string input;
  std::string output;
  auto const add = [&](std::string const& rest) {
    input.append("39 0 ").append(rest).append("\n");
    output.append("500000.0000 0.0000 ").append(rest).append("\n");
  };
  for (int i = 0; i < 400000; ++i) add(std::to_string(i) + " a name");
  add(std::string(std::size_t{5} << 20U, 'x'));
  for (int i = 0; i < 100000; ++i) add(std::to_string(i));
  ASSERT_GT(input.size(), std::size_t{8} << 20U);
  put_file(path("long.txt"), input);
  std::vector<std::string> arguments{"transform", "--from", wgs84, "--to", utm_37};
  EXPECT_TRUE(core_test::run({ZU_PJ4, arguments, input}).out == output);
  arguments.push_back(path("long.txt"));
  auto const result = core_test::run({ZU_PJ4, arguments, ""});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(result.out == output);

  put_file(path("line.txt"), std::string(std::size_t{40} << 20U, '1'));
  EXPECT_EQ(transform({path("line.txt")}).err,
            "Error: this is no text of points: it has a line of more than 32 MB\n");
  EXPECT_EQ(
      core_test::run({ZU_PJ4, {"transform", "--from", wgs84, "--to", utm_37}, input, true}).status,
      2);
}

// Of equal systems the box is only widened, by a thousandth of its size.
TEST_F(Cli_transformations, TransformsABox) {
  auto const box = [this](words const& more) {
    words arguments{"box", "--from", wgs84};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return run(arguments);
  };
  expect_lines(box({"--to", wgs84, "-10", "20", "40", "60"}),
               "-10.050000000 19.960000000 40.050000000 60.040000000\n");
  expect_lines(box({"--to", utm_37, "39", "0", "39", "0", "--digits", "1"}),
               "500000.0 0.0 500000.0 0.0\n");
  expect_lines(box({"--to", utm_37, "--inverse", "500000", "0", "500000", "0"}),
               "39.000000000 0.000000000 39.000000000 0.000000000\n");
  EXPECT_EQ(box({"--to", utm_37, "39", "91", "40", "92"}).err,
            "Error: no point of the box can be transformed\n");
}

TEST_F(Cli_transformations, TellsInOneLineWhatCannotBeDone) {
  std::vector<std::pair<words, std::string>> const cases{
      {{"describe", "EPSG:1"}, "no coordinate system EPSG:1"},
      {{"describe", "--short", "+ellps=krass"}, "no projection in +ellps=krass"},
      {{"transform", "--from", "EPSG:1", "--to", utm_37}, "no coordinate system EPSG:1"},
      {{"transform", "--from", wgs84, "--to", "+proj=nonsense"},
       "PROJ cannot transform coordinates of \"+proj=nonsense\""},
      {{"transform", "--from", "", "--to", utm_37}, "PROJ cannot transform coordinates of \"\""},
      {{"transform", "--from", wgs84, "--to", utm_37, path("none")}, "cannot read " + path("none")},
      {{"transform", "--from", wgs84, "--to", utm_37, path("")}, "cannot read " + path("")},
      {{"box", "--from", wgs84, "--to", "+proj=nonsense", "1", "2", "3", "4"},
       "PROJ cannot transform coordinates of \"+proj=nonsense\""},
      {{"box", "--from", wgs84, "--to", utm_37, "1", "2", "3,5", "4"}, "no number: 3,5"}};
  for (auto const& [arguments, error] : cases) {
    auto const result = run(arguments, "39 0\n");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "Error: " + error + "\n");
  }
}

}  // namespace
