#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core_support.h"
#include "proj4/proj4_str.h"

namespace {

void read(Tzu_proj4_str& set, std::string const& text) {
  set.set(text.c_str());
  set.decompose();
}

std::string composed(std::string const& text) {
  Tzu_proj4_str set;
  read(set, text);
  set.compose();
  return core_test::recorded(std::string(set.get()));
}

std::string many(std::string_view piece, std::size_t count) {
  std::string text;
  while (count-- > 0) text += piece;
  return text;
}

std::string const tail = " +lon_wrap=45 +no_defs";

TEST(Proj4_str, reading_and_writing_normalises) {
  // What is read, and what is written before the closing keys.
  std::vector<std::pair<std::string, std::string>> const cases{
      {"+PROJ=TMERC +LAT_1=30 +ellps=WGS84", "+proj=TMERC +lat_1=30 +ellps=WGS84"},
      {"+nadgrids=@null +units=m +ellps=krass +rf=3 +b=2 +a=1 +datum=d +alpha=9 +k_0=8 +south "
       "+lat_2=7 +lat_ts=6 +lat_1=5 +y_0=4 +x_0=3 +lat_0=2 +lonc=1 +lon_0=0 +zone=1 +proj=omerc",
       "+proj=omerc +zone=1 +lon_0=0 +lonc=1 +lat_0=2 +x_0=3 +y_0=4 +lat_1=5 +lat_ts=6 +lat_2=7 "
       "+south +k_0=8 +alpha=9 +datum=d +a=1 +b=2 +rf=3 +ellps=krass +units=m +nadgrids=@null"},
      {"EPSG proj=merc +lat_1=10 +lat_1=20", "+lat_1=10"},
      {"+k_0=0.9996 +k=1", "+k_0=0.9996"},
      {"+k=1 +k_0=x", ""},
      {"+a=6378137 +R=6371000", "+a=6378137 +b=6371000"},
      {"+a=6371000 +rf=0 +towgs84=1", "+a=6371000 +rf=0"},
      {"+proj=tmerc lat_0=0", "+proj=tmerc lat_0=0"},
      {"+x_0=1e+06 +y_0=2e6", "+x_0=1 +y_0=2000000"},
      {"+south=false", "+south"},
      {"+lon_0=abc +zone=x +proj +datum= +units = m ", "+units=m"},
      {"+lon_0= 12.5abc +zone=37.9", "+zone=37 +lon_0=12.5"},
      {"+lon_0=nan +lat_0=inf +x_0=1e999", ""},
      {"+zone=99999999999", ""},
      {"+towgs84=1,x,3", "+towgs84=1,0,3,0,0,0,0"},
      {"+towgs84=1,2,3,4,5,6,7,8", "+towgs84=1,2,3,4,5,6,7"},
      {"+towgs84= 0.1 ,\t-1e-5, 123456789.0123456", "+towgs84=0.1,-1e-05,123456789.012,0,0,0,0"},
      {"+towgs84", "+towgs84=0,0,0,0,0,0,0"},
      {"+k_0=0.1234567890123456 +x_0=-5811057.628", "+x_0=-5811057.628 +k_0=0.123456789012"},
      {"+proj=a=b\r\n+ellps=\tGRS80\n", "+proj=a=b +ellps=GRS80"},
      {"+nadgrids=\xC6.gsb", "+nadgrids=\xC6.gsb"},
      {"+wktext +type=crs +init=epsg:4326 +lon_wrap=180 +no_defs +lat0=1", ""},
      {"   ", ""},
      {"+++ + =", ""},
      {"+", ""},
      {"+zone=0 +a=0 +k_0=0", "+zone=0 +k_0=0 +a=0"},
      {"+zone=-1 +a=-1 +b=1 +rf=0", "+zone=-1 +a=-1 +b=1 +rf=0"},
      {"+zone=0x10 +x_0=0x10 +y_0=1,5", "+zone=0 +x_0=16 +y_0=1"},
      {"+towgs84=nan,inf,1e999,-inf,0x1", "+towgs84=0,0,0,0,1,0,0"},
      {"+towgs84=" + many("1,", 1000), "+towgs84=1,1,1,1,1,1,1"},
      {"+ellps=\xC3\x28 +units=\xF0\x9F", "+ellps=\xC3\x28 +units=\xF0\x9F"},
      {std::string("+zone=1\0+zone=2", 15), "+zone=1"},
      // Work that grew with the square of these lengths would outlast the test's time.
      {many("+a=1 ", 2000000), "+a=1"},
      {many("+", 2000000), ""},
      {"+towgs84=" + many("2,", 2000000), "+towgs84=2,2,2,2,2,2,2"},
      {"+lat_1=" + many("0", 2000000) + "5", "+lat_1=5"},
      {"+proj=" + many(" ", 2000000) + "utm", "+proj=utm"}};
  for (auto const& [text, result] : cases) {
    std::string const wanted = result.empty() ? "" : result + tail;
    EXPECT_EQ(composed(text), wanted) << text.substr(0, 1000);
    EXPECT_EQ(composed(wanted), wanted) << "again: " << text.substr(0, 1000);
  }
  Tzu_proj4_str set;
  set.set(nullptr);
  set.decompose();
  set.compose();
  EXPECT_STREQ(set.get(), "");
}

TEST(Proj4_str, any_text_normalises_once) {
  std::mt19937 random(11);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
  constexpr std::array<char const*, 24> parts{
      "+",      "+",    "+proj=",  "+lon_0=", "+k=", "+R=",    "+towgs84=", "+south",
      "+zone=", "+a=",  "+ellps=", "+Units=", "=",   ",",      " ",         "\t",
      "\r\n",   "12.5", "-0.125",  "7",       "abc", "sphere", "\xFF",      "."};
  for (int i = 0; i < 5000; ++i) {
    std::string text;
    for (auto count = random() % 20; count > 0; --count) text += parts[random() % parts.size()];
    std::string const once = composed(text);
    ASSERT_EQ(composed(once), once) << text;
  }
}

TEST(Proj4_str, sphere_is_written_by_its_radius_for_the_transformation) {
  for (auto const& [text, plain, by_radius] : std::vector<std::array<char const*, 3>>{
           {"+R=6371000 +towgs84=1,2,3", "+a=6371000 +b=6371000", "+R=6371000"},
           {"+ellps=Sphere +a=6371000 +b=6356752", "+a=6371000 +b=6356752 +ellps=Sphere",
            "+R=6371000 +ellps=Sphere"},
           {"+ellps=sphere +towgs84=1", "+ellps=sphere", "+ellps=sphere"},
           {"+towgs84=1 +a=2 +b=1", "+towgs84=1,0,0,0,0,0,0 +a=2 +b=1",
            "+towgs84=1,0,0,0,0,0,0 +a=2 +b=1"}}) {
    Tzu_proj4_str set;
    read(set, text);
    set.compose_for_proj4();
    EXPECT_EQ(set.get(), by_radius + tail) << text;
    set.compose();
    EXPECT_EQ(set.get(), plain + tail) << text;
  }
}

TEST(Proj4_str, kinds_of_definitions) {
  // "s" of a sphere, "v" of a valid one, "l" of a geographic one.
  for (auto const& [text, kinds] : std::vector<std::pair<char const*, std::string_view>>{
           {"+proj=LatLong +datum=WGS84", "vl"},
           {"+proj=longlat", "l"},
           {"+proj=merc +ellps=SPHERE", "sv"},
           {"+proj=merc +a=5 +b=5.0000005", "sv"},
           {"+proj=merc +a=5 +b=5.00001", "v"},
           {"+proj=merc +a=5 +rf=0.0000005", "sv"},
           {"+proj=merc +a=5 +rf=300", "v"},
           {"+proj=merc +a=5", ""},
           {"+proj=merc +b=5 +rf=0", ""},
           {"+a=5 +b=5", "s"}}) {
    Tzu_proj4_str set;
    read(set, text);
    EXPECT_EQ(set.is_sphere(), kinds.starts_with('s')) << text;
    EXPECT_EQ(set.is_valid(), kinds.find('v') != kinds.npos) << text;
    EXPECT_EQ(set.get_is_long_lat(), kinds.ends_with('l')) << text;
  }
}

TEST(Proj4_str, equality) {
  std::vector<std::array<std::string, 2>> const equal{
      {"", ""},
      {"+lat_1=10.0000001", "+lat_1=10.0000002"},
      {"+proj=UTM", "+proj=utm"},
      {"+towgs84=1,2,3", "+towgs84=1,2,3,0,0,0,0.0000001"},
      {"+nadgrids=1", ""},
      {"+R=1", "+a=1 +b=1"}};
  std::vector<std::array<std::string, 2>> different{
      {"+lat_1=10.00001", "+lat_1=10.00002"},
      {"+zone=1", "+zone=2"},
      {"+towgs84=1,2,3", "+towgs84=1,2,3,0,0,0,0.00001"},
      {"+datum=a", "+datum=b"}};
  // Every other key counts, and counts under its own name.
  Tzu_proj4_str all;
  for (auto* const param : all.get_list())
    if (param->get_name() != std::string_view("nadgrids"))
      different.push_back({std::string("+") + param->get_name() + "=1", ""});
  for (bool const wanted : {true, false}) {
    for (auto const& [one, other] : wanted ? equal : different) {
      Tzu_proj4_str left;
      Tzu_proj4_str right;
      read(left, one);
      read(right, other);
      left.set_is_lon_wrap(false);
      EXPECT_EQ(left.equal(right), wanted) << one << " | " << other;
      EXPECT_EQ(right.equal(left), wanted) << other << " | " << one;
    }
  }
}

TEST(Proj4_str, becomes_geographic) {
  Tzu_proj4_str set;
  read(set,
       "+proj=tmerc +zone=1 +lon_0=1 +lonc=1 +lat_0=1 +x_0=1 +y_0=1 +lat_1=1 +lat_ts=1 +lat_2=1 "
       "+south +k=1 +alpha=1 +datum=d +towgs84=1,2,3 +a=3 +b=2 +ellps=krass +units=m +nadgrids=g");
  set.set_is_long_lat();
  set.compose();
  EXPECT_EQ(
      set.get(),
      "+proj=longlat +datum=d +towgs84=1,2,3,0,0,0,0 +a=3 +b=2 +ellps=krass +nadgrids=g" + tail);
}

TEST(Proj4_str, undefined_parameters_keep_their_value) {
  Tzu_proj4_str set;
  read(set, "+proj=utm +zone=37 +lon_0=39 +towgs84=1,2,3");
  read(set, "+lon_0=abc");
  set.get_zone().set_def(true);
  set.get_lon_0().set_def(true);
  set.get_towgs84().set_def(true);
  set.get_south().set_def(true);
  set.compose();
  EXPECT_EQ(set.get(), "+zone=37 +lon_0=39 +south +towgs84=1,2,3,0,0,0,0" + tail);
  EXPECT_TRUE(set.get_towgs84().val_from_str("1,x,3"));
  EXPECT_FALSE(set.get_towgs84().val_from_str("1,2,x")) << "the last one tried";
}

}  // namespace
