// PROJ's own program, as a shell runs it, beside the transformer.

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

using libproj::point;

std::vector<std::string> words_of(std::string const& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<point> by_cs2cs(reproj_test::pair const& which, std::vector<point> const& points) {
  core_test::command command{ZU_CS2CS, {"-f", "%.13f"}, ""};
  // As the library hands a definition over: where it breaks the circle.
  for (auto const& word : words_of(which.source.definition + " +lon_wrap=45 +to " +
                                   which.target.definition + " +lon_wrap=45"))
    command.arguments.push_back(word);
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

TEST(Reproj_linux, agrees_with_cs2cs_and_no_thread_outlives_its_array) {
  auto const threads = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
  };
  libproj::Tcontext const context;
  for (auto const& one : reproj_test::pairs()) {
    auto points = reproj_test::points_of(context, one);
    auto const wanted = by_cs2cs(one, points);
    Tzu_reproj_xy_exec exec;
    ASSERT_TRUE(exec.init(one.source.definition.c_str(), one.target.definition.c_str()));
    auto const before = threads();
    Tzu_xy_array array;
    array.set_size(points.size());
    exec.apply(array);
    EXPECT_EQ(threads(), before);
    for (auto& each : points) EXPECT_TRUE(exec.apply(&each.x, &each.y));
    EXPECT_LT(apart(one, points, wanted), 1) << one.name;
  }
}

}  // namespace
