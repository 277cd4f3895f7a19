#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "core_support.h"
#include "proj4/proj4_str.h"
#include "proj4/proj4_str_correct.h"

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

constexpr char const* tail = " +lon_wrap=45 +no_defs";

TEST(Proj4_str, new_set_is_empty) {
  Tzu_proj4_str set;
  EXPECT_STREQ(set.get(), "");
  for (auto* const param : set.get_list()) {
    EXPECT_FALSE(param->get_def()) << param->get_name();
    EXPECT_STREQ(param->get_out_str(), "");
  }
  set.compose();
  EXPECT_STREQ(set.get(), "");
  set.set(nullptr);
  EXPECT_STREQ(set.get(), "");
}

TEST(Proj4_str, reading_and_writing_normalises) {
  struct Tcase {
    std::string text;
    std::string result;  // before the closing keys
  };
  std::vector<Tcase> const cases{
      {"+units=m +k=1 +proj=tmerc +ellps=WGS84 +lon_0=39 +towgs84=1,2,3 +x_0=7500000",
       "+proj=tmerc +lon_0=39 +x_0=7500000 +k_0=1 +towgs84=1,2,3,0,0,0,0 +ellps=WGS84 +units=m"},
      {"+proj=utm +zone=35 +ellps=WGS84 +units=m +no_defs",
       "+proj=utm +zone=35 +ellps=WGS84 +units=m"},
      {"+proj=longlat +datum=WGS84 +no_defs +towgs84=0,0,0",
       "+proj=longlat +datum=WGS84 +towgs84=0,0,0,0,0,0,0"},
      {"+PROJ=TMERC +LAT_1=30 +ellps=WGS84", "+proj=TMERC +lat_1=30 +ellps=WGS84"},
      {"+nadgrids=@null +units=m +ellps=krass +rf=3 +b=2 +a=1 +datum=d +alpha=9 +k_0=8 +south "
       "+lat_2=7"
       " +lat_ts=6 +lat_1=5 +y_0=4 +x_0=3 +lat_0=2 +lonc=1 +lon_0=0 +zone=1 +proj=omerc",
       "+proj=omerc +zone=1 +lon_0=0 +lonc=1 +lat_0=2 +x_0=3 +y_0=4 +lat_1=5 +lat_ts=6 +lat_2=7 "
       "+south"
       " +k_0=8 +alpha=9 +datum=d +a=1 +b=2 +rf=3 +ellps=krass +units=m +nadgrids=@null"},
      {"EPSG proj=merc +lat_1=10 +lat_1=20", "+lat_1=10"},
      {"+k_0=0.9996 +k=1", "+k_0=0.9996"},
      {"+k=1 +k_0=x", ""},
      {"+a=6378137 +R=6371000", "+a=6378137 +b=6371000"},
      {"+R=6371000 +towgs84=1,2,3 +proj=merc", "+proj=merc +a=6371000 +b=6371000"},
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
      {"", ""},
      {"   ", ""},
      {"+++ + =", ""},
      {"+", ""},
      {"+zone=0 +a=0 +k_0=0", "+zone=0 +k_0=0 +a=0"},
      {"+zone=-1 +a=-1 +b=1 +rf=0", "+zone=-1 +a=-1 +b=1 +rf=0"},
      {"+zone=0x10 +x_0=0x10 +y_0=1,5", "+zone=0 +x_0=16 +y_0=1"},
      {"+towgs84=nan,inf,1e999,-inf,0x1", "+towgs84=0,0,0,0,1,0,0"},
      {"+towgs84=,,1", "+towgs84=0,0,1,0,0,0,0"},
      {"+towgs84=" + many("1,", 1000), "+towgs84=1,1,1,1,1,1,1"},
      {"+ellps=\xC3\x28 +units=\xF0\x9F", "+ellps=\xC3\x28 +units=\xF0\x9F"},
      {std::string("+zone=1\0+zone=2", 15), "+zone=1"}};
  for (auto const& c : cases) {
    std::string const wanted = c.result.empty() ? "" : c.result + tail;
    EXPECT_EQ(composed(c.text), wanted) << c.text;
    EXPECT_EQ(composed(wanted), wanted) << "again: " << c.text;
  }
}

// Work that grew with the square of these lengths would outlast the test's time.
TEST(Proj4_str, long_texts_take_time_in_proportion) {
  constexpr std::size_t count = 2000000;
  EXPECT_EQ(composed(many("+a=1 ", count)), std::string("+a=1") + tail);
  EXPECT_EQ(composed(many("+", count)), "");
  EXPECT_EQ(composed(many("=", count)), "");
  EXPECT_EQ(composed("+towgs84=" + many("2,", count)),
            std::string("+towgs84=2,2,2,2,2,2,2") + tail);
  EXPECT_EQ(composed("+lat_1=" + many("0", count) + "5"), std::string("+lat_1=5") + tail);
  EXPECT_EQ(composed("+proj=" + many(" ", count) + "utm"), std::string("+proj=utm") + tail);
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
  struct Tcase {
    char const* text;
    char const* plain;
    char const* by_radius;
  };
  std::vector<Tcase> const cases{
      {"+proj=merc +R=6371000 +towgs84=1,2,3", "+proj=merc +a=6371000 +b=6371000",
       "+proj=merc +R=6371000"},
      {"+proj=merc +ellps=Sphere +a=6371000 +b=6356752",
       "+proj=merc +a=6371000 +b=6356752 +ellps=Sphere", "+proj=merc +R=6371000 +ellps=Sphere"},
      {"+proj=merc +a=6371000 +rf=0", "+proj=merc +a=6371000 +rf=0", "+proj=merc +R=6371000"},
      {"+proj=merc +ellps=sphere +towgs84=1", "+proj=merc +ellps=sphere",
       "+proj=merc +ellps=sphere"},
      {"+proj=merc +a=2 +b=1 +towgs84=1", "+proj=merc +towgs84=1,0,0,0,0,0,0 +a=2 +b=1",
       "+proj=merc +towgs84=1,0,0,0,0,0,0 +a=2 +b=1"}};
  for (auto const& c : cases) {
    Tzu_proj4_str set;
    read(set, c.text);
    set.compose_for_proj4();
    EXPECT_EQ(set.get(), std::string(c.by_radius) + tail) << c.text;
    set.compose();
    EXPECT_EQ(set.get(), std::string(c.plain) + tail) << c.text;
  }
}

TEST(Proj4_str, kinds_of_definitions) {
  struct Tcase {
    char const* text;
    bool sphere;
    bool valid;
    bool long_lat;
  };
  std::vector<Tcase> const cases{{"+proj=LatLong +datum=WGS84", false, true, true},
                                 {"+proj=longlat", false, false, true},
                                 {"+proj=merc +ellps=SPHERE", true, true, false},
                                 {"+proj=merc +a=5 +b=5.0000005", true, true, false},
                                 {"+proj=merc +a=5 +b=5.00001", false, true, false},
                                 {"+proj=merc +a=5 +rf=0.0000005", true, true, false},
                                 {"+proj=merc +a=5 +rf=300", false, true, false},
                                 {"+proj=merc +a=5", false, false, false},
                                 {"+proj=merc +b=5 +rf=0", false, false, false},
                                 {"+a=5 +b=5", true, false, false},
                                 {"", false, false, false}};
  for (auto const& c : cases) {
    Tzu_proj4_str set;
    read(set, c.text);
    EXPECT_EQ(set.is_sphere(), c.sphere) << c.text;
    EXPECT_EQ(set.is_valid(), c.valid) << c.text;
    EXPECT_EQ(set.get_is_long_lat(), c.long_lat) << c.text;
  }
}

TEST(Proj4_str, equality) {
  struct Tcase {
    char const* left;
    char const* right;
    bool equal;
  };
  std::vector<Tcase> const cases{{"", "", true},
                                 {"+lat_1=10.0000001", "+lat_1=10.0000002", true},
                                 {"+lat_1=10.00001", "+lat_1=10.00002", false},
                                 {"+lat_1=0", "", false},
                                 {"+nadgrids=a", "+nadgrids=b", true},
                                 {"+proj=UTM", "+proj=utm", true},
                                 {"+zone=1", "+zone=2", false},
                                 {"+south", "", false},
                                 {"+towgs84=1,2,3", "+towgs84=1,2,3,0,0,0,0.0000001", true},
                                 {"+towgs84=1,2,3", "+towgs84=1,2,3,0,0,0,0.00001", false},
                                 {"+datum=a", "+datum=b", false},
                                 {"+R=1", "+a=1 +b=1", true}};
  for (auto const& c : cases) {
    Tzu_proj4_str left;
    Tzu_proj4_str right;
    read(left, c.left);
    read(right, c.right);
    EXPECT_EQ(left.equal(right), c.equal) << c.left << " | " << c.right;
    EXPECT_EQ(right.equal(left), c.equal) << c.right << " | " << c.left;
    left.set_is_lon_wrap(false);
    EXPECT_EQ(left.equal(right), c.equal) << c.left << " | " << c.right;
  }
  // Every other key counts, and counts under its own name.
  Tzu_proj4_str set;
  for (auto* const param : set.get_list()) {
    std::string const name = param->get_name();
    Tzu_proj4_str one;
    Tzu_proj4_str none;
    read(one, "+" + name + "=1");
    EXPECT_EQ(one.equal(none), name == "nadgrids") << name;
  }
}

TEST(Proj4_str, becomes_geographic) {
  Tzu_proj4_str set;
  read(
      set,
      "+proj=tmerc +zone=1 +lon_0=1 +lonc=1 +lat_0=1 +x_0=1 +y_0=1 +lat_1=1 +lat_ts=1 +lat_2=1 "
      "+south"
      " +k=1 +alpha=1 +datum=d +towgs84=1,2,3 +a=3 +b=2 +rf=300 +ellps=krass +units=m +nadgrids=g");
  set.set_is_long_lat();
  set.compose();
  EXPECT_EQ(set.get(), std::string("+proj=longlat +datum=d +towgs84=1,2,3,0,0,0,0 +a=3 +b=2 +rf=300"
                                   " +ellps=krass +nadgrids=g") +
                           tail);
}

TEST(Proj4_str, undefined_parameters_keep_their_value) {
  Tzu_proj4_str set;
  read(set, "+proj=utm +zone=37 +lon_0=39 +towgs84=1,2,3");
  read(set, "+lon_0=abc");
  set.get_zone().set_def(true);
  set.get_lon_0().set_def(true);
  set.get_towgs84().set_def(true);
  set.compose();
  EXPECT_EQ(set.get(), std::string("+zone=37 +lon_0=39 +towgs84=1,2,3,0,0,0,0") + tail);
  set.set_all_undefined();
  set.compose();
  EXPECT_STREQ(set.get(), "");
  EXPECT_STREQ(set.get_proj().get_str(), "utm");
}

TEST(Proj4_param, result_of_reading) {
  Tzu_proj4_param_towgs84 shift("towgs84");
  EXPECT_TRUE(shift.val_from_str("1,x,3"));
  EXPECT_FALSE(shift.val_from_str("1,2,x")) << "the last one tried";
  EXPECT_TRUE(shift.get_def());
  Tzu_proj4_param_str text("proj");
  text.set_str("old");
  EXPECT_TRUE(text.val_from_str(""));
  EXPECT_FALSE(text.get_def());
  EXPECT_STREQ(text.get_str(), "");
  Tzu_proj4_param_bool flag("south");
  flag.set_def(true);
  EXPECT_STREQ(flag.get_out_str(), "+south ") << "written whatever its value";
}

TEST(Proj4_param, copies) {
  Tzu_pj_dbl_param catalogue;
  catalogue.set_default(5);
  Tzu_proj4_param_dbl number("k_0");
  number.set_dbl(7);
  number.set_def(true);
  number.set_param(catalogue);
  EXPECT_FALSE(number.get_def());
  EXPECT_EQ(number.get_dbl(), 7) << "the catalogue has no value to give";
  catalogue.set_def_default(true);
  number.set_param(catalogue);
  EXPECT_TRUE(number.get_def());
  EXPECT_EQ(number.get_dbl(), 5);

  Tzu_proj4_param_dbl copy("k_0");
  number.set_def(false);
  copy.set_param(number);
  EXPECT_FALSE(copy.get_def());
  EXPECT_EQ(copy.get_dbl(), 5) << "a copy takes the stored value along";
}

TEST(Proj4_str_correct, completes_a_conic_and_leaves_the_wrap_out) {
  struct Tcase {
    char const* text;
    char const* patched;
  };
  std::vector<Tcase> const cases{
      {"+proj=lcc +lat_1=45", "+proj=lcc +lat_0=45 +lat_1=45 +lat_2=45 +no_defs"},
      {"+proj= LCC +lat_1=45 +lat_2=0", "+proj=LCC +lat_0=45 +lat_1=45 +lat_2=0 +no_defs"},
      {"+proj=lcc +lat_1=45 +lat_0=1 +lat_2=2", "+proj=lcc +lat_0=1 +lat_1=45 +lat_2=2 +no_defs"},
      {"+proj=lcc", "+proj=lcc +lat_0=0 +lat_2=0 +no_defs"},
      {"+proj=merc +lat_1=45", "+proj=merc +lat_1=45 +no_defs"},
      {"+wktext", ""}};
  for (auto const& c : cases)
    EXPECT_STREQ(Tzu_proj4_str_correct().patch_proj4_for_gdal(c.text), c.patched) << c.text;
  EXPECT_STREQ(Tzu_proj4_str_correct().patch_proj4_for_gdal(nullptr), "");
}

TEST(Proj4_str_correct, reports_changes) {
  Tzu_proj4_str_correct correct;
  correct.set_proj4("+lat_1=45 +proj=lcc");
  EXPECT_FALSE(correct.get_changed());
  EXPECT_TRUE(correct.patch_lcc_1sp_for_gdal());
  EXPECT_FALSE(correct.patch_lcc_1sp_for_gdal()) << "complete already";
  EXPECT_TRUE(correct.get_changed());
  EXPECT_EQ(correct.get_proj4(), std::string("+proj=lcc +lat_0=45 +lat_1=45 +lat_2=45") + tail);
  correct.load_src();
  EXPECT_FALSE(correct.get_changed());
  EXPECT_EQ(correct.get_proj4(), std::string("+proj=lcc +lat_1=45") + tail);
  EXPECT_TRUE(correct.patch_lon_wrap_for_gdal());
  EXPECT_TRUE(correct.get_changed());
  EXPECT_STREQ(correct.get_proj4(), "+proj=lcc +lat_1=45 +no_defs");
}

}  // namespace
