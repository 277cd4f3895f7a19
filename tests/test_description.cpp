#include <gtest/gtest.h>

#include <vector>

#include "core_support.h"
#include "proj4/proj4_str.h"
#include "proj4/short_text.h"
#include "text/rc.h"
#include "text/strconv.h"
#include "text/string_adapter.h"

namespace {

using core_test::recorded;

constexpr int russian = 1;
constexpr int english = 0;

constexpr char const* sample =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";
// Every parameter that is told, in the reverse of the order in which it is.
constexpr char const* everything =
    "+nadgrids=n +units=m +south +rf=298.3 +b=6356863.01877 +a=6378245 +ellps=krass "
    "+towgs84=1,2,3 +datum=d +alpha=-9.5 +k=0.9996 +lat_2=1e-7 +lat_ts=6 +lat_1=5 +y_0=4 "
    "+x_0=123456789.012345 +lat_0=2 +lonc=1 +lon_0=0 +zone=37 +proj=omerc";

// The host's own language is taken over first.
void speak(int lang) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(lang);
}

// The bytes of a description.
std::string description(int lang, std::string const& definition) {
  speak(lang);
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  return recorded(std::string(set.get_text()));
}

TEST(Description, in_english) {
  std::vector<std::pair<char const*, char const*>> const cases{
      {sample,
       "Projection = tmerc\r\n"
       "Central Meridian = 78.05\r\n"
       "Latitude of Origin = 0\r\n"
       "False Easting = 4500000\r\n"
       "False Northing = -5811057.628\r\n"
       "Scale Factor = 1\r\n"
       "Datum parameters = 24.82,-131.21,-82.66,0,0,0.16,-0.12\r\n"
       "Spheroid = krass\r\n"},
      {everything,
       "Projection = omerc\r\n"
       "Zone = 37\r\n"
       "Central Meridian = 0\r\n"
       "Central Meridian = 1\r\n"
       "Latitude of Origin = 2\r\n"
       "False Easting = 123456789.012\r\n"
       "False Northing = 4\r\n"
       "1st Standart Parallel = 5\r\n"
       "1st Standart Parallel = 6\r\n"
       "2nd Standart Parallel = 1e-07\r\n"
       "Scale Factor = 0.9996\r\n"
       "Alpha = -9.5\r\n"
       "Datum = d\r\n"
       "Datum parameters = 1,2,3,0,0,0,0\r\n"
       "Spheroid = krass\r\n"
       "Semimajor axis = 6378245\r\n"
       "Semiminor axis = 6356863.01877\r\n"
       "Inverse flattering = 298.3\r\n"},
      {"+proj=merc", "Projection = merc\r\n"},
      {"+ellps=krass +proj", "Spheroid = krass\r\n"},
      {"", "Projection = Unknown\r\n"},
      {"+south +units=m +nadgrids=@null +lon_0=east", "Projection = Unknown\r\n"}};
  for (auto const& [definition, text] : cases)
    EXPECT_EQ(description(english, definition), text) << definition;
}

TEST(Description, in_russian) {
  std::vector<std::pair<char const*, wchar_t const*>> const cases{
      {sample,
       L"Проекция = tmerc\r\n"
       L"Центральный меридиан = 78.05\r\n"
       L"Широта начала коорд. = 0\r\n"
       L"Сдвиг к востоку = 4500000\r\n"
       L"Сдвиг к северу = -5811057.628\r\n"
       L"Масштабный коэфф. = 1\r\n"
       L"Параметры датума = 24.82,-131.21,-82.66,0,0,0.16,-0.12\r\n"
       L"Эллипсоид = krass\r\n"},
      {everything,
       L"Проекция = omerc\r\n"
       L"Номер зоны = 37\r\n"
       L"Центральный меридиан = 0\r\n"
       L"Меридиан центра проекции = 1\r\n"
       L"Широта начала коорд. = 2\r\n"
       L"Сдвиг к востоку = 123456789.012\r\n"
       L"Сдвиг к северу = 4\r\n"
       L"1я стандартная параллель = 5\r\n"
       L"1я стандартная параллель = 6\r\n"
       L"2я стандартная параллель = 1e-07\r\n"
       L"Масштабный коэфф. = 0.9996\r\n"
       L"Альфа = -9.5\r\n"
       L"Датум = d\r\n"
       L"Параметры датума = 1,2,3,0,0,0,0\r\n"
       L"Эллипсоид = krass\r\n"
       L"Большая полуось = 6378245\r\n"
       L"Малая полуось = 6356863.01877\r\n"
       L"Обратный коэфф. сжатия = 298.3\r\n"},
      {"  ", L"Проекция = Не определена\r\n"}};
  for (auto const& [definition, text] : cases)
    EXPECT_EQ(zu::strconv::from_interface(description(russian, definition)), text) << definition;
  EXPECT_EQ(description(russian, "+proj=merc"), "\xCF\xF0\xEE\xE5\xEA\xF6\xE8\xFF = merc\r\n");
}

TEST(Description, values_are_spelled_in_the_page_of_the_captions) {
  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const now(page);
    auto const definition = "+datum=" + zu::strconv::to_system(L"\u20AC");
    EXPECT_EQ(description(english, definition), "Datum = \x88\r\n") << page.encoding;
  }
}

TEST(Description, is_built_anew_by_each_call) {
  speak(english);
  Tzu_proj4_str set;
  set.set("+proj=merc +k=1");
  set.decompose();
  EXPECT_STREQ(set.get_text(), "Projection = merc\r\nScale Factor = 1\r\n");
  set.get_proj().set_str("aea");
  set.get_k().set_def(false);
  EXPECT_STREQ(set.get_text(), "Projection = aea\r\n");
  EXPECT_STREQ(set.get(), "+proj=merc +k=1");
}

// The summary of a definition, "unfed" when the adapter got nothing.
std::string summary(char const* definition) {
  std::string text = "unfed";
  Tzu_std_string_adapter target(&text);
  zu::string_adp const adapter(target);
  bool const fed = Tzu_short_text_helper::get_short_text(definition, adapter.get());
  EXPECT_EQ(fed, text != "unfed") << text;
  return recorded(text);
}

TEST(Short_text, of_the_catalogue_that_ships) {
  std::vector<std::pair<char const*, char const*>> const cases{
      {sample,
       "Transverse Mercator; 78.05; 0; 4500000; -5811057.628; 1; "
       "(24.82,-131.21,-82.66,0,0,0.16,-0.12); krass; "},
      {everything,
       "omerc; 0; 1; 2; 123456789.012; 4; 5; 6; 1e-07; 0.9996; -9.5; d; (1,2,3,0,0,0,0); krass; "
       "6378245; 6356863.01877; 298.3; "},
      {"+proj=longlat +datum=WGS84", "Longitude/Latitude; WGS84; "},
      {"+proj=LatLong +a=6378245 +rf=298.3", "Latitude/Longitude; 6378245; 298.3; "},
      {"+proj=lcc +lat_1=45 +lon_0=3", "Lambert Conformal Conic (1SP); 3; 45; "},
      {"+proj=lcc +lat_2=60 +lat_1=45", "Lambert Conformal Conic (2SP); 45; 60; "},
      {"+proj=lcc +lat_2=60 +k=0.5 +lat_1=45",
       "Lambert Conformal Conic (2SP, scale factor); 45; 60; 0.5; "},
      {"+proj=merc +k=1", "Mercator; 1; "},
      {"+proj=merc +k=1 +lat_ts=42", "Mercator (standard parallel); 42; 1; "},
      {"+proj=merc +lat_1=5", "merc; 5; "},
      {"+proj=cea +k_0=1", "Cylindrical Equal Area (scale factor); 1; "},
      {"+proj=omerc +lonc=50 +alpha=30 +R=6371000", "Oblique Mercator; 50; 30; 6371000; 6371000; "},
      {"+proj=ups +south", "Universal Polar Stereographic (South); "},
      {"+proj=ups", "Universal Polar Stereographic; "},
      {"+proj=utm +zone=37 +datum=WGS84", "UTM North; WGS84; "},
      {"+proj=UTM +zone=37 +south +ellps=krass", "UTM South; krass; "},
      // The zone alone brings the numbers that its row fixes.
      {"+proj=tmerc +zone=7 +x_0=7500000", "Gauss-Kruger; 39; 0; 7500000; 0; 1; "},
      {"+proj=tmerc +zone=61", "tmerc; "},
      {"+proj=utm", "utm; "},
      {"+proj=nowhere +y_0=4", "nowhere; 4; "},
      {"+datum=WGS84 +ellps=krass", "unfed"},
      {"", "unfed"},
      {nullptr, "unfed"}};
  for (int const lang : {english, russian}) {
    speak(lang);
    for (auto const& [definition, text] : cases) EXPECT_EQ(summary(definition), text);
  }
  EXPECT_FALSE(Tzu_short_text_helper::get_short_text(sample, nullptr));
}

TEST(Short_text, parts_that_the_summary_leaves_out) {
  Tzu_pj4_parts parts;
  EXPECT_TRUE(parts.init("+proj=utm +zone=37"));
  EXPECT_EQ(parts.get_pj4_name() + parts.get_pj4_zone(), "utm; 37; ");
  ASSERT_NE(parts.get_def(), nullptr);
  EXPECT_EQ(parts.get_def()->get_zone().get_default(), 37);
  EXPECT_TRUE(parts.init("+proj=tmerc")) << "what was read before does not count";
  EXPECT_EQ(parts.get_pj4_caption() + parts.get_pj4_zone(), "Transverse Mercator; ");
  EXPECT_FALSE(parts.init("+proj=nowhere"));
  EXPECT_TRUE(parts.init("+proj=merc"));
  EXPECT_FALSE(parts.init("+lon_0=39"));
  EXPECT_EQ(parts.get_def(), nullptr);
  EXPECT_EQ(parts.get_pj4_caption() + parts.get_pj4_name(), "");
}

}  // namespace
