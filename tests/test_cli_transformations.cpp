// The commands about coordinates, as a shell sees them.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cli_support.h"

namespace {

using cli_test::expect_lines;
using cli_test::expect_outcome;
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
  expect_lines(run({"describe", "EPSG:4326", "--lang", "en"}),
               "Projection = longlat\nDatum = WGS84\n");
  expect_lines(run({"describe", "EPSG:4326", "--lang", "ru"}),
               "\u041F\u0440\u043E\u0435\u043A\u0446\u0438\u044F = longlat\n"
               "\u0414\u0430\u0442\u0443\u043C = WGS84\n");
  expect_lines(run({"describe", "--short", "+proj=merc +lon_0=39"}), "Mercator; 39; \n");
}

// The origin of a zone is known without any transformation.
TEST_F(Cli_transformations, ReplacesTheFirstTwoColumnsAndNothingElse) {
  std::vector<std::pair<char const*, char const*>> const lines{
      {"\xEF\xBB\xBF;39;55", "\xEF\xBB\xBF* * ;39;55"},
      {"39,0", "500000.0000,0.0000"},
      {"39\t\t0\t4 5", "500000.0000\t\t0.0000\t4 5"},
      {" 39 , 0 , name ", " 500000.0000 , 0.0000 , name "},
      {"+39.0 0e5,x\r", "500000.0000 0.0000,x\r"},
      {"\t# 39 0", "\t# 39 0"},
      {"", ""},
      {" \t\r", " \t\r"},
      {"39 91", "* *"},
      {"39 1e300;x\r", "* *;x\r"},
      // The degrees alone would be another point.
      {"39-30 55", "* * 39-30 55"},
      {"39\xC2\xB0 55", "* * 39\xC2\xB0 55"},
      {"39 55.5.5", "* * 39 55.5.5"},
      // And so would the column behind an empty one.
      {"39,,55", "* * 39,,55"},
      {"39\r", "* * 39\r"},
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
  for (auto const& result : {transform({}, input), transform({path("points.txt")})})
    expect_outcome(result, 1, output, "Error: 11 of 15 points not transformed\n");
  expect_lines(transform({}, "\xEF\xBB\xBF" + std::string("39 0")),
               "\xEF\xBB\xBF" + std::string("500000.0000 0.0000"));
  expect_lines(transform({}, ""), "");
}

TEST_F(Cli_transformations, TakesCodesDigitsAndTheWayBack) {
  // A code without a shift stays without one; the point would be another with it.
  expect_lines(run({"transform", "--from", "EPSG:4326", "--to", "epsg:28407"}, "39 0\n"),
               "7500000.0000 0.0000\n");
  expect_lines(transform({"--digits", "0"}, "39 0\n"), "500000 0\n");
  expect_lines(transform({"--inverse"}, "500000 0\n"), "39.000000000 0.000000000\n");
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
  put_file(path("long.txt"), input);
  words arguments{"transform", "--from", wgs84, "--to", utm_37};
  EXPECT_TRUE(core_test::run({ZU_PJ4, arguments, input}).out == output);
  EXPECT_EQ(core_test::run({ZU_PJ4, arguments, input, true}).status, 2) << "output is lost";
  arguments.push_back(path("long.txt"));
  auto const result = core_test::run({ZU_PJ4, arguments, ""});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(result.out == output);

  put_file(path("line.txt"), std::string(std::size_t{40} << 20U, '1'));
  EXPECT_EQ(transform({path("line.txt")}).err,
            "Error: this is no text of points: it has a line of more than 32 MB\n");
}

// Of equal systems the box is only widened, by a thousandth of its size.
TEST_F(Cli_transformations, TransformsABox) {
  expect_lines(run({"box", "--from", wgs84, "--to", wgs84, "-10", "20", "40", "60"}),
               "-10.050000000 19.960000000 40.050000000 60.040000000\n");
  expect_lines(run({"box", "--from", wgs84, "--to", utm_37, "39", "0", "39", "0", "--digits", "1"}),
               "500000.0 0.0 500000.0 0.0\n");
  expect_lines(
      run({"box", "--from", wgs84, "--to", utm_37, "--inverse", "500000", "0", "500000", "0"}),
      "39.000000000 0.000000000 39.000000000 0.000000000\n");
}

TEST_F(Cli_transformations, TellsInOneLineWhatCannotBeDone) {
  std::string const no_use = "PROJ cannot transform coordinates of ";
  for (auto const& [arguments, error] : std::vector<std::pair<words, std::string>>{
           {{"describe", "EPSG:1"}, "no coordinate system EPSG:1"},
           {{"describe", "--short", "+ellps=krass"}, "no projection in +ellps=krass"},
           {{"transform", "--from", wgs84, "--to", "+proj=x"}, no_use + "\"+proj=x\""},
           {{"transform", "--from", "", "--to", utm_37}, no_use + "\"\""},
           {{"transform", "--from", wgs84, "--to", utm_37, path("none")},
            "cannot read " + path("none")},
           {{"transform", "--from", wgs84, "--to", utm_37, path("")}, "cannot read " + path("")},
           {{"box", "--from", wgs84, "--to", "+proj=x", "1", "2", "3", "4"},
            no_use + "\"+proj=x\""},
           {{"box", "--from", wgs84, "--to", utm_37, "1", "2", "3,5", "4"}, "no number: 3,5"},
           {{"box", "--from", wgs84, "--to", utm_37, "39", "91", "40", "92"},
            "no point of the box can be transformed"}})
    expect_outcome(run(arguments, "39 0\n"), 2, "", "Error: " + error + "\n");
}

}  // namespace
