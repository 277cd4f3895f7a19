// Long input of the command about coordinates; cases has the rest of them.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli_support.h"

namespace {

using core_test::put_file;

constexpr char const* wgs84 = "+proj=longlat +datum=WGS84";
constexpr char const* utm_37 = "+proj=utm +zone=37 +datum=WGS84";

class Cli_transformations : public cli_test::Cli {};

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
  std::vector<std::string> arguments{"transform", "--from", wgs84, "--to", utm_37};
  EXPECT_TRUE(core_test::run({ZU_PJ4, arguments, input}).out == output);
  EXPECT_EQ(core_test::run({ZU_PJ4, arguments, input, true}).status, 2) << "output is lost";
  arguments.push_back(path("long.txt"));
  auto const result = core_test::run({ZU_PJ4, arguments, ""});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(result.out == output);

  put_file(path("line.txt"), std::string(std::size_t{40} << 20U, '1'));
  arguments.back() = path("line.txt");
  EXPECT_EQ(run(arguments).err,
            "Error: this is no text of points: it has a line of more than 32 MB\n");
}

}  // namespace
