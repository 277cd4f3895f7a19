// PROJ's own program, as a shell runs it, beside the transformer.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>
#include <sstream>

#include "basic/number.h"
#include "basic/str.h"
#include "core_support.h"
#include "reproj/reproj_xy.h"
#include "reproj_cases.h"

namespace {

using libproj::point;

std::vector<std::string> words_of(std::string const& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::vector<point> by_cs2cs(reproj_test::pair const& which, std::vector<point> const& points) {
  core_test::command command{ZU_CS2CS, {"-f", "%.13f"}, ""};
  // As the library hands a definition over: where it breaks the circle.
  for (auto const& text : {which.source.definition, std::string("+to"), which.target.definition}) {
    for (auto const& word : words_of(text)) command.arguments.push_back(word);
    if (text != "+to") command.arguments.emplace_back("+lon_wrap=45");
  }
  for (auto const& one : points)
    command.input.append(zu::number::format_double(one.x, 17))
        .append(" ")
        .append(zu::number::format_double(one.y, 17))
        .append("\n");
  auto const words = words_of(core_test::run(command).out);
  std::vector<point> results;
  for (std::size_t i = 0; i + 2 < words.size(); i += 3)
    results.push_back({zu::number::scan_double(words[i]).value_or(HUGE_VAL),
                       zu::number::scan_double(words[i + 1]).value_or(HUGE_VAL)});
  return results;
}

TEST(Reproj_posix, agrees_with_cs2cs) {
  libproj::Tcontext const context;
  for (auto const& one : reproj_test::pairs()) {
    auto points = reproj_test::points_of(context, one);
    auto const wanted = by_cs2cs(one, points);
    Tzu_reproj_xy_exec exec;
    ASSERT_TRUE(exec.init(one.source.definition.c_str(), one.target.definition.c_str()));
    for (auto& each : points) EXPECT_TRUE(exec.apply(&each.x, &each.y));
    EXPECT_LT(apart(one, points, wanted), 1) << one.name;
  }
}

TEST(Reproj_posix, no_thread_outlives_its_array) {
  auto const threads = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
  };
  auto const before = threads();
  Tzu_reproj_xy_exec exec;
  ASSERT_TRUE(exec.init("+proj=utm +zone=37 +ellps=WGS84", "+proj=longlat +ellps=WGS84"));
  Tzu_xy_array points;
  points.set_size(100000);
  exec.apply(points);
  EXPECT_EQ(threads(), before);
}

}  // namespace
