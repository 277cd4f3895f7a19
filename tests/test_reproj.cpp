#include <gtest/gtest.h>
#include <proj.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <utility>
#include <vector>

#include "core_support.h"
#include "failing_allocator.h"
#include "reproj/reproj_d2.h"
#include "reproj/reproj_xy.h"
#include "reproj_cases.h"
#include "suite/zuk_prg.h"
#include "text/strconv.h"

namespace {

using reproj_test::point;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

constexpr char const* zone =
    "+proj=tmerc +lon_0=39 +k=1 +x_0=7500000 +ellps=krass "
    "+towgs84=23.57,-140.95,-79.8,0,-0.35,-0.79,-0.22";
constexpr char const* wgs84 = "+proj=longlat +datum=WGS84";

Tzu_xy_array array_of(std::vector<point> const& points) {
  Tzu_xy_array array;
  array.set_size(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    array.set_x(i, points[i].x);
    array.set_y(i, points[i].y);
  }
  return array;
}

std::vector<point> points_of(Tzu_xy_array const& array) {
  std::vector<point> points(array.get_size());
  for (std::size_t i = 0; i < points.size(); ++i) points[i] = {array.get_x(i), array.get_y(i)};
  return points;
}

void expect_at(point const& one, point const& wanted, double digit, char const* what = "") {
  EXPECT_NEAR(one.x, wanted.x, digit) << what;
  EXPECT_NEAR(one.y, wanted.y, digit) << what;
}

void expect_brings(Tzu_reproj_xy& reproj, point one, point const& wanted, double digit,
                   char const* what = "") {
  EXPECT_TRUE(reproj.apply(&one.x, &one.y)) << what;
  expect_at(one, wanted, digit, what);
}

// Threads change no result.
TEST(Reproj, a_long_array_becomes_what_its_pieces_become) {
  for (auto const& one : reproj_test::pairs()) {
    auto const points = reproj_test::points_of(one);
    ASSERT_GT(points.size(), 2 * Tzu_reproj_xy_exec::get_parallel_size());
    Tzu_reproj_xy reproj;
    ASSERT_TRUE(reproj.init(one.source.c_str(), one.target.c_str())) << one.name;
    auto array = array_of(points);
    auto in_pieces = array;
    for (auto const way : {reproj_direction::forward, reproj_direction::backward}) {
      EXPECT_TRUE(reproj.apply_array(array, way)) << one.name;
      constexpr std::size_t piece = 1000;
      for (std::size_t i = 0; i < points.size(); i += piece)
        EXPECT_TRUE(
            reproj.apply_xy(piece, in_pieces.get_x_ptr() + i, in_pieces.get_y_ptr() + i, way));
      for (std::size_t i = 0; i < points.size(); ++i)
        ASSERT_TRUE(array.get_x(i) == in_pieces.get_x(i) && array.get_y(i) == in_pieces.get_y(i))
            << one.name;
    }
  }
}

// All, every other and one of many are bad.
TEST(Reproj, bad_points_fail_alone) {
  core_test::Tenvironment const loud({{"PROJ_DEBUG", "3"}});
  constexpr std::size_t size = 1000000;
  constexpr std::array<point, 7> bad{{{not_a_number, 55},
                                      {39, infinity},
                                      {-infinity, 55},
                                      {39, 95},
                                      {1e300, 1e300},
                                      {39, -90.5},
                                      {129, 0}}};
  auto const log_level = proj_log_level(nullptr, PJ_LOG_TELL);
  testing::internal::CaptureStderr();
  Tzu_reproj_xy reproj;
  ASSERT_TRUE(reproj.init(wgs84, zone));
  std::vector<point> good(size);
  for (std::size_t i = 0; i < size; ++i) good[i] = {36 + 6e-6 * static_cast<double>(i), 55};
  Tzu_xy_array clean = array_of(good);
  ASSERT_TRUE(reproj.apply_array(clean));
  expect_brings(reproj, good[size / 2], {clean.get_x(size / 2), clean.get_y(size / 2)}, 0);
  for (std::size_t const every : {std::size_t{1}, std::size_t{2}, size}) {
    auto const is_bad = [&](std::size_t i) { return i % every == every - 1; };
    std::vector<point> mixed = good;
    for (std::size_t i = 0; i < size; ++i)
      if (is_bad(i)) mixed[i] = bad[i % bad.size()];
    Tzu_xy_array array = array_of(mixed);
    EXPECT_FALSE(reproj.apply_array(array));
    for (std::size_t i = 0; i < size; ++i) {
      bool const is_finite = std::isfinite(array.get_x(i)) && std::isfinite(array.get_y(i));
      bool const is_same = array.get_x(i) == clean.get_x(i) && array.get_y(i) == clean.get_y(i);
      ASSERT_TRUE(is_bad(i) ? !is_finite : is_same) << i << " of every " << every;
    }
  }
  for (point one : bad) EXPECT_FALSE(reproj.apply(&one.x, &one.y)) << one.x << ' ' << one.y;
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(proj_log_level(nullptr, PJ_LOG_TELL), log_level) << "the host's";
}

TEST(Reproj, without_an_operation_everything_fails) {
  testing::internal::CaptureStderr();
  // The degrees of a geographic source become radians before the failure.
  Tzu_reproj_xy reproj;
  EXPECT_FALSE(reproj.init(wgs84, "+proj=nonsense"));
  point one{180, 90};
  EXPECT_FALSE(reproj.apply(&one.x, &one.y));
  expect_at(one, {3.141592653589793, 1.5707963267948966}, 1e-15);
  EXPECT_FALSE(reproj.init_to_latlong(static_cast<char const*>(nullptr)));
  EXPECT_FALSE(Tzu_reproj_xy_exec::verify_pj4str(nullptr));

  // A grid that is not there: PROJ may make an operation, which does nothing.
  Tzu_reproj_d2 d2;
  static_cast<void>(d2.init_ex("+proj=utm +zone=37 +ellps=krass +nadgrids=missing.gsb", wgs84));
  Tzu_vtx_d2 vertex{500000, 6000000};
  EXPECT_FALSE(d2.apply_vtx(&vertex));
  Tzu_box_d2 box{400000, 6000000, 600000, 7000000};
  EXPECT_FALSE(d2.apply_box_approx(&box));
  EXPECT_EQ(box.max_x, 600000);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

double degrees(double whole, double minutes, double seconds) {
  return whole + minutes / 60 + seconds / 3600;
}

// 3.4.1 of the EPSG Guidance Note 7-2, Oblique Mercator B: RSO Borneo. A definition has
// no key for the angle from the rectified to the skew grid: an affine step turns the grid.
TEST(Reproj, gives_the_published_numbers_of_a_turned_grid) {
  Tzu_reproj_xy reproj;
  ASSERT_TRUE(reproj.init_from_latlong(
      "+proj=omerc +lat_0=4 +lonc=115 +alpha=53.3158204722222 +k=0.99984 +x_0=0 +y_0=0 "
      "+a=6377298.556 +rf=300.8017"));
  double const turn = (degrees(53, 18, 56.9537) - degrees(53, 7, 48.3685)) / 57.29577951308232;
  reproj.set_affine_after({{std::cos(turn), -std::sin(turn), 590476.87, std::sin(turn),
                            std::cos(turn), 442857.65, 0, 0, 1}});
  reproj.set_use_affine_after(true);
  expect_brings(reproj, {degrees(115, 48, 19.8196), degrees(5, 23, 14.1129)},
                {679245.73, 596562.78}, 0.01);
}

TEST(Reproj, is_needed_where_proj_gets_other_texts) {
  EXPECT_FALSE(Tzu_reproj_xy::rpj_is_needed("+proj=merc +R=1", "+R=1 +proj=merc +no_defs"));
  EXPECT_TRUE(Tzu_reproj_xy::rpj_is_needed("+proj=merc +R=1", "+proj=merc +R=2"));
  EXPECT_TRUE(Tzu_reproj_xy::rpj_is_needed(nullptr, "+proj=merc +R=2"));
}

// A grid file made by hand: everywhere +1e-5 radian north, 2e-5 east. Its name
// is in the letters of the system's code page.
TEST(Reproj, finds_a_grid_file_by_any_name) {
  constexpr std::array<double, 4> corner_and_step{-0.1, 0.8, 0.2, 0.2};
  constexpr std::array<std::int32_t, 2> counts{12, 3};
  std::string image(160, '\0');
  image.replace(0, 9, "CTABLE V2");
  std::memcpy(image.data() + 96, corner_and_step.data(), sizeof corner_and_step);
  std::memcpy(image.data() + 128, counts.data(), sizeof counts);
  constexpr std::array<float, 2> shift{-2e-5F, 1e-5F};
  for (int i = 0; i < 36; ++i)
    image.append(reinterpret_cast<char const*>(shift.data()), sizeof shift);
  constexpr point shifted{39 + 2e-5 * 57.29577951308232, 55 + 1e-5 * 57.29577951308232};
  for (auto const& page : core_test::system_pages()) {
    core_test::Ttemp_folder const folder;
    core_test::Tsystem_page const system(page);
    std::string const name = zu::strconv::to_utf8(folder.wide(page.letters));
    std::ofstream(std::filesystem::path(std::u8string(name.begin(), name.end())), std::ios::binary)
        << image;
    std::string const narrow = "+proj=longlat +ellps=krass +nadgrids=" + folder.file(page.bytes);
    std::wstring const wide = L"+proj=longlat +ellps=krass +nadgrids=" + folder.wide(page.letters);
    Tzu_reproj_xy reproj;
    ASSERT_TRUE(reproj.init(narrow.c_str(), wgs84));
    expect_brings(reproj, {39, 55}, shifted, 1e-9, page.encoding);
    reproj.clear();
    ASSERT_TRUE(reproj.init(wide.c_str(), L"+proj=longlat +datum=WGS84"));
    expect_brings(reproj, {39, 55}, shifted, 1e-9, page.encoding);
  }
}

TEST(Reproj, affine_steps_surround_the_projection) {
  Tzu_reproj_xy reproj;
  reproj.set_affine_before({{0, 2, 1, -3, 0, 5, 7, 7, 7}});
  reproj.set_affine_after({{1, 1, -4, 0, 0.5, 2, 0, 0, 0}});
  reproj.set_use_affine_before(true);
  reproj.set_use_affine_after(true);
  point failed{10, 20};
  EXPECT_FALSE(reproj.apply(&failed.x, &failed.y)) << "there is no operation";
  // (10, 20) -> (41, -25) -> (12, -10.5): both steps all the same.
  expect_at(failed, {12, -10.5}, 0);
  reproj.set_use_reproj(false);
  auto array = array_of({{10, 20}, {0, 0}});
  EXPECT_TRUE(reproj.apply_array(array));
  expect_at(points_of(array)[0], {12, -10.5}, 0);
  expect_at(points_of(array)[1], {2, 4.5}, 0);
  EXPECT_TRUE(reproj.apply_array(array, reproj_direction::backward));
  expect_at(points_of(array)[0], {10, 20}, 1e-12);
  for (Tzu_matrix3x3 const& singular : {Tzu_matrix3x3{{1, 2, 3, 2, 4, 6, 0, 0, 1}},
                                        {{0.1, 0.3, 0, 0.2, 0.6, 0, 0, 0, 1}},
                                        {{0, 0, 0, 0, 0, 0, 0, 0, 0}},
                                        {{1, 0, 0, 0, not_a_number, 0, 0, 0, 1}},
                                        {{infinity, 0, 0, 0, 1, 0, 0, 0, 1}}}) {
    reproj.set_affine_after(singular);
    EXPECT_FALSE(reproj.apply_array(array, reproj_direction::backward)) << singular.e[0];
    expect_at(points_of(array)[0], {10, 20}, 1e-12);
  }
  reproj.clear();
  EXPECT_TRUE(reproj.get_use_reproj());
  EXPECT_FALSE(reproj.get_use_affine_before() || reproj.get_use_affine_after());
}

TEST(Reproj, costs_no_memory_a_second_time) {
  using failing_allocator::lack;
  Tzu_reproj_d2 d2;
  auto const sequence = zu::prg::pv_d2(zu_pv_d2_create(100000));
  Tzu_vtx_d2 const vertex{7500000, 6000000};
  for (bool const is_first : {true, false}) {
    // To make an operation takes thousands of blocks.
    failing_allocator::arm(is_first ? SIZE_MAX : 100, lack::once);
    EXPECT_TRUE(d2.init_ex(zone, wgs84)) << "the operation is kept";
    EXPECT_FALSE(failing_allocator::disarm());
    for (std::size_t i = 0; i < 100000; ++i) zu_pv_d2_set_vtx(sequence.get(), i, &vertex);
    failing_allocator::arm(is_first ? SIZE_MAX : 1, lack::once);
    EXPECT_TRUE(d2.apply_pv(sequence.get()));
    EXPECT_FALSE(failing_allocator::disarm());
  }
}

}  // namespace
