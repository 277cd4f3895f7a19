#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "allocation_count.h"
#include "core_support.h"
#include "reproj/reproj_d2.h"
#include "reproj/reproj_xy.h"
#include "reproj_cases.h"
#include "suite/zuk_prg.h"
#include "text/strconv.h"

namespace {

using libproj::point;
using reproj_test::pairs;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

constexpr char const* zone =
    "+proj=tmerc +lon_0=39 +k=1 +x_0=7500000 +ellps=krass "
    "+towgs84=23.57,-140.95,-79.8,0,-0.35,-0.79,-0.22";
constexpr char const* wgs84 = "+proj=longlat +datum=WGS84";
constexpr char const* utm = "+proj=utm +zone=37 +datum=WGS84";
constexpr std::array<char const*, 7> unusable{"+proj=utm +zone=99 +ellps=WGS84",
                                              "+proj=nonsense +ellps=WGS84",
                                              "+proj=merc +ellps=krass geoidgrids=/a/b",
                                              "+proj=merc init=a:b",
                                              "+lon_0=39",
                                              "   ",
                                              ""};

Tzu_xy_array array_of(std::vector<point> const& points) {
  Tzu_xy_array array;
  array.set_size(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) array.set_xy(i, points[i].x, points[i].y);
  return array;
}

std::vector<point> points_of(Tzu_xy_array const& array) {
  std::vector<point> points(array.get_size());
  for (std::size_t i = 0; i < points.size(); ++i) points[i] = {array.get_x(i), array.get_y(i)};
  return points;
}

bool is_finite(point const& one) { return std::isfinite(one.x) && std::isfinite(one.y); }

// Equal to the last bit, NaNs included.
bool are_same(std::vector<point> const& left, std::vector<point> const& right) {
  return left.size() == right.size() &&
         std::memcmp(left.data(), right.data(), left.size() * sizeof(point)) == 0;
}

auto bits(Tzu_matrix3x3 const& matrix) {
  return std::bit_cast<std::array<std::uint64_t, 9>>(matrix);
}

double degrees(double whole, double minutes, double seconds) {
  return whole + minutes / 60 + seconds / 3600;
}

TEST(Reproj, agrees_with_pipelines_made_by_hand) {
  libproj::Tcontext const context;
  for (auto const& one : pairs()) {
    auto const points = reproj_test::points_of(context, one);
    Tzu_reproj_xy reproj;
    ASSERT_TRUE(reproj.init(one.source.definition.c_str(), one.target.definition.c_str()))
        << one.name;
    auto array = array_of(points);
    EXPECT_TRUE(reproj.apply_array(array)) << one.name;
    EXPECT_LT(apart(one, points_of(array), by_hand(context, one, points)), 1) << one.name;
    for (auto const& result : points_of(array))
      ASSERT_TRUE(!one.target.projection.empty() || (result.x >= -135 && result.x <= 225))
          << one.name << ": Russia in one piece";
    // And back; the heights that the shift has given are gone.
    reproj_test::pair turned = one;
    std::swap(turned.source, turned.target);
    auto const wanted = by_hand(context, turned, points_of(array));
    EXPECT_TRUE(reproj.apply_array(array, reproj_direction::backward)) << one.name;
    EXPECT_LT(apart(turned, points_of(array), wanted), 1) << one.name;
  }
}

// Numbers of the EPSG Guidance Note 7-2, "Coordinate Conversions and
// Transformations including Formulas", section by section, to the digits there.
TEST(Reproj, gives_the_published_numbers) {
  struct Tcase {
    char const* section;
    char const* definition;
    point geographic;
    point plane;
    double digit = 0.01;
  };
  std::vector<Tcase> const cases{
      {"3.2.1 Lambert conic, two parallels: NAD27 Texas South Central",
       "+proj=lcc +lat_1=28.38333333333333 +lat_2=30.28333333333333 +lat_0=27.83333333333333 "
       "+lon_0=-99 +x_0=609601.219202438 +ellps=clrk66 +units=us-ft",
       {-96, 28.5},
       {2963503.91, 254759.80}},
      {"3.2.1.1 Lambert conic, one parallel: JAD69 Jamaica",
       "+proj=lcc +lat_1=18 +lat_0=18 +lon_0=-77 +k_0=1 +x_0=250000 +y_0=150000 +ellps=clrk66",
       {-degrees(76, 56, 37.26), degrees(17, 55, 55.80)},
       {255966.58, 142493.51}},
      {"3.2.4 Krovak: S-JTSK",
       "+proj=krovak +lat_0=49.5 +lon_0=24.8333333333333 +alpha=30.2881397527778 +k=0.9999 "
       "+ellps=bessel",
       {degrees(16, 50, 59.179), degrees(50, 12, 32.442)},
       {-568991.00, -1050538.63}},
      {"3.3.1 Mercator A: Makassar",
       "+proj=merc +lon_0=110 +k=0.997 +x_0=3900000 +y_0=900000 +ellps=bessel",
       {120, -3},
       {5009726.58, 569150.82}},
      {"3.3.1 Mercator B: Pulkovo 1942, Caspian Sea",
       "+proj=merc +lat_ts=42 +lon_0=51 +ellps=krass",
       {53, 53},
       {165704.29, 5171848.07}},
      {"3.5.2 Transverse Mercator: British National Grid",
       "+proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +ellps=airy",
       {0.5, 50.5},
       {577274.99, 69740.50}},
      {"3.2.5 Oblique stereographic: RD New",
       "+proj=sterea +lat_0=52.1561605555556 +lon_0=5.38763888888889 +k=0.9999079 +x_0=155000 "
       "+y_0=463000 +ellps=bessel",
       {6, 53},
       {196105.283, 557057.739},
       0.001},
      {"3.2.6 Polar stereographic A: UPS North",
       "+proj=stere +lat_0=90 +lon_0=0 +k=0.994 +x_0=2000000 +y_0=2000000 +ellps=WGS84",
       {44, 73},
       {3320416.75, 632668.43}},
      {"3.2.6 Polar stereographic B: Australian Antarctic",
       "+proj=stere +lat_0=-90 +lat_ts=-71 +lon_0=70 +x_0=6000000 +y_0=6000000 +ellps=WGS84",
       {120, -75},
       {7255380.79, 7053389.56}},
      {"swisstopo's formulas for the Swiss projection: Rigi",
       "+proj=somerc +lat_0=46.9524055555556 +lon_0=7.43958333333333 +x_0=600000 +y_0=200000 "
       "+k_0=1 +ellps=bessel",
       {degrees(8, 29, 11.111273), degrees(47, 3, 28.956592)},
       {679520.05, 212273.44}}};
  for (auto const& c : cases) {
    Tzu_reproj_xy reproj;
    ASSERT_TRUE(reproj.init_from_latlong(c.definition)) << c.section;
    point to = c.geographic;
    EXPECT_TRUE(reproj.apply(&to.x, &to.y)) << c.section;
    EXPECT_NEAR(to.x, c.plane.x, c.digit) << c.section;
    EXPECT_NEAR(to.y, c.plane.y, c.digit) << c.section;
    ASSERT_TRUE(reproj.init_to_latlong(c.definition)) << c.section;
    point back = c.plane;
    EXPECT_TRUE(reproj.apply(&back.x, &back.y)) << c.section;
    EXPECT_NEAR(back.x, c.geographic.x, 3e-7) << c.section;
    EXPECT_NEAR(back.y, c.geographic.y, 3e-7) << c.section;
  }
  // 4.3.3 position vector transformation: WGS 72 to WGS 84.
  Tzu_reproj_xy reproj;
  ASSERT_TRUE(reproj.init("+proj=longlat +ellps=WGS72 +towgs84=0,0,4.5,0,0,0.554,0.219", wgs84));
  point one{4, 55};
  EXPECT_TRUE(reproj.apply(&one.x, &one.y));
  EXPECT_NEAR(one.x, degrees(4, 0, 0.554), 0.0005 / 3600);
  EXPECT_NEAR(one.y, degrees(55, 0, 0.090), 0.0005 / 3600);
  // 3.4.1 Oblique Mercator B: RSO Borneo. A definition has no key for the angle
  // from the rectified to the skew grid: the grid is turned by an affine step.
  ASSERT_TRUE(reproj.init_from_latlong(
      "+proj=omerc +lat_0=4 +lonc=115 +alpha=53.3158204722222 +k=0.99984 +x_0=0 +y_0=0 "
      "+a=6377298.556 +rf=300.8017"));
  double const turn = (degrees(53, 18, 56.9537) - degrees(53, 7, 48.3685)) / 57.29577951308232;
  reproj.set_affine_after({{std::cos(turn), -std::sin(turn), 590476.87, std::sin(turn),
                            std::cos(turn), 442857.65, 0, 0, 1}});
  reproj.set_use_affine_after(true);
  one = {degrees(115, 48, 19.8196), degrees(5, 23, 14.1129)};
  EXPECT_TRUE(reproj.apply(&one.x, &one.y));
  EXPECT_NEAR(one.x, 679245.73, 0.01);
  EXPECT_NEAR(one.y, 596562.78, 0.01);
}

// What is bad in the array, where it is and how long the array is.
TEST(Reproj, bad_points_fail_alone) {
  core_test::Tenvironment const loud({{"PROJ_DEBUG", "3"}});
  constexpr std::size_t size = 1000000;
  constexpr std::array<point, 9> bad{{{not_a_number, 55},
                                      {39, infinity},
                                      {-infinity, 55},
                                      {39, 95},
                                      {1e300, 1e300},
                                      {infinity, not_a_number},
                                      {39, -90.5},
                                      {129, 0},
                                      {-infinity, infinity}}};
  auto const log_level = proj_log_level(nullptr, PJ_LOG_TELL);
  testing::internal::CaptureStderr();
  Tzu_reproj_xy reproj;
  ASSERT_TRUE(reproj.init(wgs84, zone));
  Tzu_xy_array good;
  good.set_size(size);
  for (std::size_t i = 0; i < size; ++i) good.set_xy(i, 36 + 6e-6 * static_cast<double>(i), 55);
  Tzu_xy_array clean = good;
  ASSERT_TRUE(reproj.apply_array(clean));
  point alone{good.get_x(size / 2), good.get_y(size / 2)};
  EXPECT_TRUE(reproj.apply(&alone.x, &alone.y));
  EXPECT_EQ(alone.x, clean.get_x(size / 2));
  EXPECT_EQ(alone.y, clean.get_y(size / 2));
  for (std::size_t const every : {std::size_t{1}, std::size_t{2}, size}) {
    auto const is_bad = [&](std::size_t i) { return i % every == every - 1; };
    Tzu_xy_array array = good;
    for (std::size_t i = 0; i < size; ++i)
      if (is_bad(i)) array.set_xy(i, bad[i % bad.size()].x, bad[i % bad.size()].y);
    EXPECT_FALSE(reproj.apply_array(array));
    for (std::size_t i = 0; i < size; ++i) {
      if (is_bad(i)) {
        ASSERT_FALSE(is_finite({array.get_x(i), array.get_y(i)})) << i;
      } else {
        ASSERT_EQ(array.get_x(i), clean.get_x(i)) << i;
        ASSERT_EQ(array.get_y(i), clean.get_y(i)) << i;
      }
    }
  }
  for (point one : bad) EXPECT_FALSE(reproj.apply(&one.x, &one.y) || is_finite(one));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(proj_log_level(nullptr, PJ_LOG_TELL), log_level) << "the host's";
}

// Threads leave no trace in the numbers.
TEST(Reproj, long_arrays_give_the_bits_of_short_ones) {
  libproj::Tcontext const context;
  for (auto const& one : pairs()) {
    Tzu_reproj_xy_exec exec;
    ASSERT_TRUE(exec.init(one.source.definition.c_str(), one.target.definition.c_str()));
    auto const points = reproj_test::points_of(context, one);
    ASSERT_GT(points.size(), 2 * Tzu_reproj_xy_exec::get_parallel_size());
    auto at_once = array_of(points);
    auto in_pieces = at_once;
    EXPECT_TRUE(exec.apply(at_once));
    constexpr std::size_t piece = 1000;
    for (std::size_t i = 0; i < points.size(); i += piece)
      EXPECT_TRUE(exec.apply(std::min(piece, points.size() - i), in_pieces.get_x_ptr() + i,
                             in_pieces.get_y_ptr() + i));
    EXPECT_TRUE(are_same(points_of(at_once), points_of(in_pieces))) << one.name;
  }
}

TEST(Reproj, without_an_operation_everything_fails) {
  testing::internal::CaptureStderr();
  for (char const* const definition : unusable) {
    for (bool const as_source : {true, false}) {
      Tzu_reproj_xy_exec exec;
      EXPECT_FALSE(exec.init(as_source ? definition : utm, as_source ? utm : definition));
      EXPECT_FALSE(exec.has_operation());
      std::array<double, 2> x{1, 2};
      std::array<double, 2> y{3, 4};
      EXPECT_FALSE(exec.apply(x.data(), y.data()));
      EXPECT_FALSE(exec.apply(2, x.data(), y.data()));
      EXPECT_FALSE(exec.apply(0, nullptr, nullptr));
      EXPECT_EQ(x, (std::array<double, 2>{1, 2})) << definition;
      EXPECT_EQ(y, (std::array<double, 2>{3, 4})) << definition;
    }
  }
  // A geographic source has been brought to radians before it turns out.
  Tzu_reproj_xy reproj;
  EXPECT_FALSE(reproj.init(wgs84, "+proj=nonsense"));
  point one{180, 90};
  EXPECT_FALSE(reproj.apply(&one.x, &one.y));
  EXPECT_NEAR(one.x, 3.141592653589793, 1e-15);
  EXPECT_NEAR(one.y, 1.5707963267948966, 1e-15);
  EXPECT_FALSE(reproj.init(static_cast<char const*>(nullptr), utm));
  EXPECT_FALSE(reproj.init(static_cast<wchar_t const*>(nullptr), nullptr));
  EXPECT_FALSE(reproj.init_to_latlong(static_cast<char const*>(nullptr)));

  // A grid that is not there: PROJ may make an operation, which does nothing.
  Tzu_reproj_d2 d2;
  static_cast<void>(d2.init_ex("+proj=utm +zone=37 +ellps=krass +nadgrids=missing.gsb", wgs84));
  Tzu_vtx_d2 vertex{500000, 6000000};
  EXPECT_FALSE(d2.apply_vtx(&vertex));
  auto const sequence = zu::prg::pv_d2(zu_pv_d2_create(2));
  EXPECT_FALSE(d2.apply_pv(sequence.get()));
  Tzu_box_d2 box{400000, 6000000, 600000, 7000000};
  EXPECT_FALSE(d2.apply_box_approx(&box));
  EXPECT_EQ(box.max_x, 600000);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Reproj, verifies_a_definition_as_proj_does) {
  libproj::Tcontext const context;
  for (std::string const definition : {"+proj=utm +zone=37 +ellps=WGS84",
                                       "+proj=utm +zone=99 +ellps=WGS84",
                                       "+proj=longlat",
                                       "+proj=tmerc +a=1 +b=-1",
                                       "+proj=nonsense",
                                       "+proj=merc +R=6371000",
                                       "+proj=lcc +lat_1=30 +lat_2=-30 +ellps=krass",
                                       "+proj=stere +lat_0=95 +ellps=krass",
                                       "+proj=utm +zone=1 +ellps=nobody",
                                       "+proj=utm +zone=1 +datum=nobody",
                                       "+proj=merc +units=cubits +ellps=krass",
                                       "+lon_0=1",
                                       "+proj=tmerc +nadgrids=missing.gsb",
                                       "+proj=utm +zone=0 +ellps=krass",
                                       "+proj=utm +zone=-1 +ellps=krass",
                                       "+proj=merc +a=0 +b=0",
                                       "+proj=merc +a=-1 +b=1",
                                       "+proj=merc +a=6378245 +rf=-1",
                                       "+proj=tmerc +k_0=0 +ellps=krass",
                                       "+proj=tmerc +k_0=-1 +ellps=krass",
                                       "+proj=\xC3\x28 +ellps=krass",
                                       "+proj=lcc +lat_1=1e300 +ellps=krass"})
    EXPECT_EQ(Tzu_reproj_xy_exec::verify_pj4str(definition.c_str()),
              context.create(definition + " +lon_wrap=45 +no_defs") != nullptr)
        << definition;
  EXPECT_FALSE(Tzu_reproj_xy_exec::verify_pj4str(""));
  EXPECT_FALSE(Tzu_reproj_xy_exec::verify_pj4str(nullptr));
}

TEST(Reproj, pairs_a_definition_with_its_geographic_system) {
  EXPECT_EQ(core_test::recorded(Tzu_reproj_xy::convert_to_latlong(zone)),
            "+proj=longlat +towgs84=23.57,-140.95,-79.8,0,-0.35,-0.79,-0.22 +ellps=krass "
            "+lon_wrap=45 +no_defs");
  EXPECT_EQ(Tzu_reproj_xy::convert_to_latlong("+lon_0=39"), "");
  // Of its own datum: the origin of the zone has no shift.
  for (bool const wide : {false, true}) {
    Tzu_reproj_xy reproj;
    std::wstring const text(zone, zone + std::strlen(zone));
    ASSERT_TRUE(wide ? reproj.init_to_latlong(text.c_str()) : reproj.init_to_latlong(zone));
    point one{7500000, 0};
    EXPECT_TRUE(reproj.apply(&one.x, &one.y));
    EXPECT_NEAR(one.x, 39, 1e-9);
    EXPECT_NEAR(one.y, 0, 1e-9);
    ASSERT_TRUE(wide ? reproj.init_from_latlong(text.c_str()) : reproj.init_from_latlong(zone));
    EXPECT_TRUE(reproj.apply(&one.x, &one.y));
    EXPECT_NEAR(one.x, 7500000, 1e-5);
  }
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
  for (auto const& page : core_test::system_pages()) {
    core_test::Ttemp_folder const folder;
    core_test::Tsystem_page const system(page);
    std::string const name = zu::strconv::to_utf8(folder.wide(page.letters));
    std::ofstream(std::filesystem::path(std::u8string(name.begin(), name.end())), std::ios::binary)
        << image;
    std::string const narrow = "+proj=longlat +ellps=krass +nadgrids=" + folder.file(page.bytes);
    std::wstring const wide = L"+proj=longlat +ellps=krass +nadgrids=" + folder.wide(page.letters);
    for (bool const as_wide : {false, true}) {
      Tzu_reproj_xy reproj;
      ASSERT_TRUE(as_wide ? reproj.init(wide.c_str(), L"+proj=longlat +datum=WGS84")
                          : reproj.init(narrow.c_str(), wgs84));
      point one{39, 55};
      EXPECT_TRUE(reproj.apply(&one.x, &one.y)) << page.encoding;
      EXPECT_NEAR(one.x, 39 + 2e-5 * 57.29577951308232, 1e-9);
      EXPECT_NEAR(one.y, 55 + 1e-5 * 57.29577951308232, 1e-9);
    }
  }
}

TEST(Reproj, affine_steps_surround_the_projection) {
  constexpr Tzu_matrix3x3 before{{0, 2, 1, -3, 0, 5, 7, 7, 7}};
  constexpr Tzu_matrix3x3 after{{1, 1, -4, 0, 0.5, 2, 0, 0, 0}};
  Tzu_reproj_xy reproj;
  reproj.set_affine_before(before);
  reproj.set_affine_after(after);
  reproj.set_use_affine_before(true);
  reproj.set_use_affine_after(true);
  point failed{10, 20};
  EXPECT_FALSE(reproj.apply(&failed.x, &failed.y)) << "there is no operation";
  // (10, 20) -> (41, -25) -> (12, -10.5): both steps all the same.
  EXPECT_EQ(failed.x, 12);
  EXPECT_EQ(failed.y, -10.5);
  reproj.set_use_reproj(false);
  auto array = array_of({{10, 20}, {0, 0}});
  EXPECT_TRUE(reproj.apply_array(array));
  EXPECT_EQ(array.get_x(0), 12);
  EXPECT_EQ(array.get_y(0), -10.5);
  EXPECT_EQ(array.get_x(1), 2);
  EXPECT_EQ(array.get_y(1), 4.5);
  EXPECT_TRUE(reproj.apply_array(array, reproj_direction::backward));
  EXPECT_NEAR(array.get_x(0), 10, 1e-12);
  EXPECT_NEAR(array.get_y(0), 20, 1e-12);
  reproj.clear();
  EXPECT_TRUE(reproj.get_use_reproj());
  EXPECT_FALSE(reproj.get_use_affine_before() || reproj.get_use_affine_after());
}

TEST(Reproj, matrices_invert) {
  struct Tcase {
    Tzu_matrix3x3 matrix;
    bool regular;
  };
  std::vector<Tcase> const cases{{{{1, 0, 0, 0, 1, 0, 0, 0, 1}}, true},
                                 {{{2, 1, 5e6, -1, 3, 6e6, 0, 0, 1}}, true},
                                 {{{1e-9, 0, 3, 0, 1e-9, 4, 0, 0, 1}}, true},
                                 {{{0, 1, 2, 3, 4, 5, 6, 7, 9}}, true},
                                 {{{1, 2, 3, 2, 4, 6, 0, 0, 1}}, false},
                                 {{{0.1, 0.3, 0, 0.2, 0.6, 0, 0, 0, 1}}, false},
                                 {{{0, 0, 0, 0, 0, 0, 0, 0, 0}}, false},
                                 {{{1, 0, 0, 0, not_a_number, 0, 0, 0, 1}}, false},
                                 {{{infinity, 0, 0, 0, 1, 0, 0, 0, 1}}, false}};
  for (auto const& c : cases) {
    Tzu_matrix3x3 inverse = c.matrix;
    ASSERT_EQ(zu_matrix3x3_invert(&inverse) != 0, c.regular) << c.matrix.e[0];
    if (!c.regular) {
      EXPECT_EQ(bits(inverse), bits(c.matrix));
      continue;
    }
    for (std::size_t i = 0; i < 9; ++i) {
      double sum = 0;
      for (std::size_t k = 0; k < 3; ++k)
        sum += c.matrix.e[i / 3 * 3 + k] * inverse.e[k * 3 + i % 3];
      EXPECT_NEAR(sum, i % 4 == 0 ? 1 : 0, 1e-8);
    }
  }
}

TEST(Reproj, both_directions_undo_each_other) {
  constexpr Tzu_matrix3x3 swap{{0, 1, 100, 1, 0, -50, 0, 0, 1}};
  constexpr Tzu_matrix3x3 scale{{0.001, 0, 0, 0, 0.002, 7, 0, 0, 1}};
  constexpr Tzu_matrix3x3 singular{{1, 2, 0, 2, 4, 0, 0, 0, 1}};
  Tzu_reproj_fb_d2 d2;
  ASSERT_TRUE(d2.init_ex(zone, wgs84));
  auto& chain = d2.get_reproj();
  chain.set_affine_before(swap);
  chain.set_affine_after(scale);
  chain.set_use_affine_before(true);
  chain.set_use_affine_after(true);
  Tzu_vtx_d3 const start{6100000, 7450000, 123.5};
  Tzu_vtx_d3 vertex = start;
  EXPECT_TRUE(d2.apply_vtx3d(&vertex, true));
  // As the steps one by one.
  point by_steps{start.y + 100, start.x - 50};
  Tzu_reproj_xy plain;
  ASSERT_TRUE(plain.init(zone, wgs84));
  EXPECT_TRUE(plain.apply(&by_steps.x, &by_steps.y));
  EXPECT_NEAR(vertex.x, 0.001 * by_steps.x, 1e-12);
  EXPECT_NEAR(vertex.y, 0.002 * by_steps.y + 7, 1e-12);
  auto const sequence = zu::prg::pv_d3(zu_pv_d3_create(2));
  zu_pv_d3_set_vtx(sequence.get(), 1, &vertex);
  EXPECT_TRUE(d2.apply_vtx3d(&vertex, false));
  EXPECT_FALSE(d2.apply_pv3d(sequence.get(), false)) << "its first point is no place";
  zu_pv_d3_get_vtx(sequence.get(), 1, &vertex);
  // Nearly: the height that the shift gives a point is not kept.
  EXPECT_NEAR(vertex.x, start.x, 1e-3);
  EXPECT_NEAR(vertex.y, start.y, 1e-3);
  EXPECT_EQ(vertex.z, start.z);

  chain.set_affine_after(singular);
  Tzu_box_d2 box{1, 2, 3, 4};
  Tzu_vtx_d2 flat{5, 6};
  EXPECT_FALSE(d2.apply_vtx(&flat, false));
  EXPECT_FALSE(d2.apply_xy(1, &flat.x, &flat.y, false));
  EXPECT_FALSE(d2.apply_box(&box, false));
  EXPECT_FALSE(d2.apply_box_approx(&box, false));
  EXPECT_EQ(flat.x, 5);
  EXPECT_EQ(box.max_x, 3);
  chain.set_use_affine_after(false);
  chain.set_use_affine_before(false);
  Tzu_box_d2 corners{7400000, 6000000, 7600000, 6100000};
  EXPECT_TRUE(d2.apply_box(&corners, true));
  plain.apply(&(by_steps = {7400000, 6000000}).x, &by_steps.y);
  EXPECT_NEAR(corners.min_y, by_steps.y, 1e-9);
}

TEST(Reproj, boxes_are_approximated_by_a_grid) {
  Tzu_reproj_d2 d2;
  // The meridian bends outward between the corners: in the middle of the south.
  ASSERT_TRUE(d2.init_ex(wgs84, "+proj=lcc +lat_1=52 +lat_2=64 +lat_0=58 +lon_0=45 +datum=WGS84"));
  Tzu_box_d2 box{20, 50, 70, 60};
  EXPECT_TRUE(d2.apply_box_approx(&box));
  Tzu_vtx_d2 south{45, 50};
  Tzu_vtx_d2 corner{20, 60};
  d2.apply_vtx(&south);
  d2.apply_vtx(&corner);
  double const height = (corner.y - south.y);
  EXPECT_NEAR(box.min_y, south.y - 0.001 * height, 1e-6);
  EXPECT_NEAR(box.max_y, corner.y + 0.001 * height, 1e-6);

  // Wholly where the target is not: false and untouched.
  ASSERT_TRUE(d2.init_ex(wgs84, zone));
  box = {39, 91, 40, 95};
  EXPECT_FALSE(d2.apply_box_approx_ex(&box));
  EXPECT_EQ(box.min_y, 91);
  // Partly: the points that are count.
  box = {39, 85, 40, 95};
  EXPECT_TRUE(d2.apply_box_approx_ex(&box));
  EXPECT_TRUE(std::isfinite(box.max_y));

  // Of no width: not widened that way.
  ASSERT_TRUE(d2.init_ex("+proj=utm +zone=37 +ellps=WGS84", "+proj=longlat +ellps=WGS84"));
  box = {500000, 6000000, 500000, 6100000};
  EXPECT_TRUE(d2.apply_box_approx(&box));
  EXPECT_NEAR(box.min_x, 39, 1e-12);
  EXPECT_EQ(box.min_x, box.max_x);
  EXPECT_LT(box.min_y, box.max_y);

  // Over the antimeridian: in one piece, past 180.
  ASSERT_TRUE(d2.init_ex("+proj=tmerc +lon_0=180 +ellps=krass", "+proj=longlat +ellps=krass"));
  box = {-300000, 7200000, 300000, 7300000};
  EXPECT_TRUE(d2.apply_box_approx(&box));
  EXPECT_NEAR((box.min_x + box.max_x) / 2, 180, 1e-9);
  EXPECT_GT(box.max_x - box.min_x, 12);
  EXPECT_LT(box.max_x - box.min_x, 14);

  // Over the pole, which is the grid's middle: up to the pole and the margin
  // beyond, and from the first of the grid's longitudes to the last.
  ASSERT_TRUE(
      d2.init_ex("+proj=stere +lat_0=90 +lon_0=45 +ellps=WGS84", "+proj=longlat +ellps=WGS84"));
  box = {-600000, -600000, 600000, 600000};
  EXPECT_TRUE(d2.apply_box_approx(&box));
  EXPECT_GT(box.max_y, 90);
  EXPECT_LT(box.max_y, 90.01);
  EXPECT_NEAR(box.min_y, 82.4, 0.1);
  EXPECT_NEAR(box.max_x - box.min_x, 342, 1);
}

TEST(Reproj, sequences_and_sets_are_transformed_in_place) {
  Tzu_reproj_d2 d2;
  std::wstring const source(zone, zone + std::strlen(zone));
  ASSERT_TRUE(d2.init_crs(source.c_str(), L"+proj=longlat +datum=WGS84"));
  auto const set = zu::prg::ov_d3(zu_ov_d3_create(3));
  auto const flat_set = zu::prg::ov_d2(zu_ov_d2_create(3));
  std::vector<std::size_t> const sizes{4, 0, 2};
  auto const start = [](std::size_t i, std::size_t k) {
    return Tzu_vtx_d3{7400000 + 1000.0 * static_cast<double>(k), 6000000.0 + static_cast<double>(i),
                      static_cast<double>(i + k)};
  };
  for (std::size_t i = 0; i < 3; ++i) {
    zu_pv_d3_set_size(zu_ov_d3_get_pv_ptr(set.get(), i), sizes[i]);
    zu_pv_d2_set_size(zu_ov_d2_get_pv_ptr(flat_set.get(), i), sizes[i]);
    for (std::size_t k = 0; k < sizes[i]; ++k) {
      auto const vertex = start(i, k);
      Tzu_vtx_d2 const flat{vertex.x, vertex.y};
      zu_pv_d3_set_vtx(zu_ov_d3_get_pv_ptr(set.get(), i), k, &vertex);
      zu_pv_d2_set_vtx(zu_ov_d2_get_pv_ptr(flat_set.get(), i), k, &flat);
    }
  }
  EXPECT_TRUE(d2.apply_ov3d(set.get()));
  EXPECT_TRUE(d2.apply_ov(flat_set.get()));
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < sizes[i]; ++k) {
      Tzu_vtx_d3 wanted = start(i, k);
      EXPECT_TRUE(d2.apply_vtx3d(&wanted));
      Tzu_vtx_d3 vertex{};
      Tzu_vtx_d2 flat{};
      EXPECT_EQ(zu_pv_d3_get_vtx(zu_ov_d3_get_pv_ptr(set.get(), i), k, &vertex), 1);
      EXPECT_EQ(zu_pv_d2_get_vtx(zu_ov_d2_get_pv_ptr(flat_set.get(), i), k, &flat), 1);
      EXPECT_TRUE(vertex.x == wanted.x && vertex.y == wanted.y && vertex.z == wanted.z);
      EXPECT_TRUE(flat.x == wanted.x && flat.y == wanted.y);
    }
  }
}

TEST(Reproj, costs_no_memory_a_second_time) {
  Tzu_reproj_d2 d2;
  std::size_t before = allocation_count();
  ASSERT_TRUE(d2.init_ex(zone, wgs84));
  std::size_t const of_first = allocation_count() - before;
  before = allocation_count();
  ASSERT_TRUE(d2.init_ex(zone, wgs84));
  EXPECT_LT(10 * (allocation_count() - before), of_first) << "the operation is kept";

  auto const sequence = zu::prg::pv_d2(zu_pv_d2_create(100000));
  Tzu_vtx_d2 const vertex{7500000, 6000000};
  for (int pass = 0; pass < 3; ++pass) {
    for (std::size_t i = 0; i < 100000; ++i) zu_pv_d2_set_vtx(sequence.get(), i, &vertex);
    before = allocation_count();
    EXPECT_TRUE(d2.apply_pv(sequence.get()));
    std::size_t const taken = allocation_count() - before;
    EXPECT_TRUE(pass == 0 || taken == 0) << taken;
  }
}

TEST(Xy_array, grows_and_clears) {
  Tzu_xy_array array;
  array.set_capacity(100);
  EXPECT_GE(array.get_capacity(), 100U);
  EXPECT_EQ(array.get_size(), 0U);
  array.set_size(3);
  array.set_x(2, 5);
  array.set_y(2, 6);
  array.set_size(200);
  EXPECT_EQ(array.get_x_ptr()[2], 5);
  EXPECT_EQ(array.get_y(2), 6);
  EXPECT_EQ(array.get_x(199), 0);
  array.clear_xy();
  EXPECT_EQ(array.get_x(2), 0);
  EXPECT_EQ(array.get_size(), 200U);
  array.clear();
  EXPECT_EQ(array.get_size() + array.get_capacity(), 0U);
}

}  // namespace
