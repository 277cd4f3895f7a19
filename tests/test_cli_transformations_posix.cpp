// The commands about coordinates beside PROJ's own program.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

#include "cli_support.h"

namespace {

// As the library hands it to PROJ.
constexpr char const* wgs84 =
    "+proj=longlat +towgs84=0,0,0,0,0,0,0 +ellps=WGS84 +lon_wrap=45 +no_defs";

class Cli_transformations_posix : public cli_test::Cli {};

// The first two columns.
std::string points_of(std::string const& text) {
  std::istringstream lines(text);
  std::string points;
  for (std::string x, y, rest; lines >> x >> y && std::getline(lines, rest);)
    points.append(x).append(" ").append(y).append("\n");
  return points;
}

TEST_F(Cli_transformations_posix, GivesTheDigitsOfCs2cs) {
  std::string input;
  for (int lon = 30; lon < 126; lon += 3)
    for (int lat = -80; lat < 90; lat += 5)
      input.append(std::to_string(lon)).append(".125 ").append(std::to_string(lat)).append(".5\n");
  std::string const there{cli_test::local_system};
  for (auto const& [from, to] : {std::pair(std::string(wgs84), there), {there, wgs84}}) {
    core_test::command cs2cs{ZU_CS2CS, {"-f", "%.9f"}, input};
    std::istringstream words(std::string(from).append(" +to ").append(to));
    for (std::string word; words >> word;) cs2cs.arguments.push_back(word);
    std::string const wanted = points_of(core_test::run(cs2cs).out);
    cli_test::expect_lines(run({"transform", "--from", from, "--to", to, "--digits", "9"}, input),
                           wanted);
    input = wanted;
  }
}

}  // namespace
