// Compares with PROJ's own program.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>
#include <sstream>

#include "basic/number.h"
#include "core_support.h"
#include "reproj/reproj_xy.h"
#include "reproj_cases.h"

namespace {

using reproj_test::point;

std::vector<std::string> words_of(std::string const& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<point> by_cs2cs(std::string const& source, std::string const& target,
                            std::vector<point> const& points) {
  core_test::command command{ZU_CS2CS, {}, ""};
  // The library adds this key: where longitudes wrap.
  command.arguments =
      words_of("-f %.13f " + source + " +lon_wrap=45 +to " + target + " +lon_wrap=45");
  for (auto const& one : points)
    command.input +=
        zu::number::format_double(one.x, 17) + " " + zu::number::format_double(one.y, 17) + "\n";
  auto const words = words_of(core_test::run(command).out);
  std::vector<point> results;
  for (std::size_t i = 0; i + 2 < words.size(); i += 3)
    results.push_back({zu::number::scan_double(words[i]).value_or(HUGE_VAL),
                       zu::number::scan_double(words[i + 1]).value_or(HUGE_VAL)});
  return results;
}

// Also longitudes are equal, not only equal up to a turn: Russia stays in one piece.
void expect_near(std::vector<point> const& points, std::vector<point> const& wanted,
                 std::string const& target) {
  double const allowed = target.starts_with("+proj=longlat") ? 1e-9 : 1e-5;
  ASSERT_EQ(points.size(), wanted.size());
  for (std::size_t i = 0; i < points.size(); ++i)
    ASSERT_LE(std::hypot(points[i].x - wanted[i].x, points[i].y - wanted[i].y), allowed) << i;
}

TEST(Reproj_linux, agrees_with_cs2cs_both_ways_and_no_thread_outlives_its_array) {
  auto const threads = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
  };
  for (auto const& one : reproj_test::pairs()) {
    SCOPED_TRACE(one.name);
    auto points = reproj_test::points_of(one);
    Tzu_reproj_xy_exec exec;
    ASSERT_TRUE(exec.init(one.source.c_str(), one.target.c_str()));
    auto const before = threads();
    Tzu_xy_array array;
    array.set_size(points.size());
    exec.apply(array);
    EXPECT_EQ(threads(), before);
    auto const transform = [&](auto way) {
      for (auto& each : points) EXPECT_TRUE(exec.apply(&each.x, &each.y, way));
    };
    auto wanted = by_cs2cs(one.source, one.target, points);
    transform(reproj_direction::forward);
    expect_near(points, wanted, one.target);
    // The heights that the shift has given are gone.
    wanted = by_cs2cs(one.target, one.source, points);
    transform(reproj_direction::backward);
    expect_near(points, wanted, one.source);
  }
}

}  // namespace
