// The commands about coordinates beside PROJ's own program, and before a terminal.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli_support.h"
#include "terminal_support_posix.h"

namespace {

using core_test::put_file;

// As the library hands it to PROJ.
constexpr char const* wgs84 =
    "+proj=longlat +towgs84=0,0,0,0,0,0,0 +ellps=WGS84 +lon_wrap=45 +no_defs";

class Cli_transformations_posix : public cli_test::Cli {};

// The first two columns.
std::string points_of(std::string const& text) {
  std::istringstream lines(text);
  std::string points;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream columns(line);
    std::string x;
    std::string y;
    columns >> x >> y;
    points.append(x).append(" ").append(y).append("\n");
  }
  return points;
}

TEST_F(Cli_transformations_posix, GivesTheDigitsOfCs2cs) {
  std::string input;
  for (int lon = 30; lon < 126; lon += 3)
    for (int lat = -80; lat < 90; lat += 5)
      input.append(std::to_string(lon)).append(".125 ").append(std::to_string(lat)).append(".5\n");
  std::string const there{cli_test::local_system};
  for (auto const& [from, to] : {std::pair(std::string(wgs84), there), {there, wgs84}}) {
    auto const ours = run({"transform", "--from", from, "--to", to, "--digits", "9"}, input);
    core_test::command cs2cs{ZU_CS2CS, {"-f", "%.9f"}, input};
    std::istringstream words(std::string(from).append(" +to ").append(to));
    for (std::string word; words >> word;) cs2cs.arguments.push_back(word);
    EXPECT_EQ(ours.err, "");
    EXPECT_EQ(ours.out, points_of(core_test::run(cs2cs).out));
    input = ours.out;
  }
}

TEST_F(Cli_transformations_posix, ProgressIsOfLongInputBeforeATerminal) {
  std::string const start =
      std::string(ZU_PJ4) + " transform --from EPSG:4326 --to EPSG:32637 " + path("points.txt");
  put_file(path("points.txt"), "39 0\nx\n");
  auto result = core_test::run_before_terminal(start);
  if (!result) GTEST_SKIP() << "no terminals here";
  EXPECT_EQ(result->out, "500000.0000 0.0000\n* * x\n");
  EXPECT_EQ(result->err, "Error: 1 of 2 points not transformed\n");
  std::string points;
  while (points.size() < std::size_t{10} << 20U) points += "39 0  x\n";
  put_file(path("points.txt"), points);
  result = core_test::run_before_terminal(start + " >/dev/null");
  EXPECT_TRUE(
      result->err.starts_with("Wait: [########............]  40% transforming"
                              "Wait: [#########...........]  45% transforming"))
      << result->err;
  EXPECT_TRUE(
      result->err.ends_with("Wait: [####################] 100% transforming\n"
                            "Finished: 1310720 points\n"))
      << result->err;
}

}  // namespace
