#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
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

TEST(Description, in_both_languages) {
  std::vector<std::array<wchar_t const*, 3>> const rows{
      {L"Projection", L"Проекция", L"omerc"},
      {L"Zone", L"Номер зоны", L"37"},
      {L"Central Meridian", L"Центральный меридиан", L"0"},
      {L"Central Meridian", L"Меридиан центра проекции", L"1"},
      {L"Latitude of Origin", L"Широта начала коорд.", L"2"},
      {L"False Easting", L"Сдвиг к востоку", L"123456789.012"},
      {L"False Northing", L"Сдвиг к северу", L"4"},
      {L"1st Standart Parallel", L"1я стандартная параллель", L"5"},
      {L"1st Standart Parallel", L"1я стандартная параллель", L"6"},
      {L"2nd Standart Parallel", L"2я стандартная параллель", L"1e-07"},
      {L"Scale Factor", L"Масштабный коэфф.", L"0.9996"},
      {L"Alpha", L"Альфа", L"-9.5"},
      {L"Datum", L"Датум", L"d"},
      {L"Datum parameters", L"Параметры датума", L"1,2,3,0,0,0,0"},
      {L"Spheroid", L"Эллипсоид", L"krass"},
      {L"Semimajor axis", L"Большая полуось", L"6378245"},
      {L"Semiminor axis", L"Малая полуось", L"6356863.01877"},
      {L"Inverse flattering", L"Обратный коэфф. сжатия", L"298.3"}};
  for (int const lang : {english, russian}) {
    std::wstring wanted;
    for (auto const& row : rows)
      wanted.append(row.at(static_cast<std::size_t>(lang))).append(L" = ").append(row[2]) +=
          L"\r\n";
    EXPECT_EQ(zu::strconv::from_interface(description(lang, everything)), wanted);
  }
  EXPECT_EQ(description(english, "+ellps=krass +proj"), "Spheroid = krass\r\n");
  EXPECT_EQ(description(english, "+south +units=m +nadgrids=@null +lon_0=east"),
            "Projection = Unknown\r\n");
  EXPECT_EQ(zu::strconv::from_interface(description(russian, "  ")),
            L"Проекция = Не определена\r\n");
  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const now(page);
    auto const definition = "+datum=" + zu::strconv::to_system(L"\u20AC");
    if (!zu::strconv::has_system_spelling(L"\u20AC")) continue;
    EXPECT_EQ(description(english, definition), "Datum = \x88\r\n")
        << page.encoding << ": spelled in the page of the captions";
  }
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
      {"+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 +ellps=krass",
       "Transverse Mercator; 78.05; 0; 4500000; -5811057.628; 1; krass; "},
      {everything,
       "omerc; 0; 1; 2; 123456789.012; 4; 5; 6; 1e-07; 0.9996; -9.5; d; (1,2,3,0,0,0,0); krass; "
       "6378245; 6356863.01877; 298.3; "},
      {"+proj=LatLong +a=6378245 +rf=298.3", "Latitude/Longitude; 6378245; 298.3; "},
      {"+proj=lcc +lat_1=45 +lon_0=3", "Lambert Conformal Conic (1SP); 3; 45; "},
      {"+proj=lcc +lat_2=60 +k=0.5 +lat_1=45",
       "Lambert Conformal Conic (2SP, scale factor); 45; 60; 0.5; "},
      {"+proj=merc +k=1", "Mercator; 1; "},
      {"+proj=merc +k=1 +lat_ts=42", "Mercator (standard parallel); 42; 1; "},
      {"+proj=omerc +lonc=50 +alpha=30 +R=6371000", "Oblique Mercator; 50; 30; 6371000; 6371000; "},
      {"+proj=ups +south", "Universal Polar Stereographic (South); "},
      {"+proj=UTM +zone=37 +south +ellps=krass", "UTM South; krass; "},
      // The zone alone brings the numbers that its row fixes.
      {"+proj=tmerc +zone=7 +x_0=7500000", "Gauss-Kruger; 39; 0; 7500000; 0; 1; "},
      {"+proj=tmerc +zone=61", "tmerc; "},
      {"+proj=nowhere +y_0=4", "nowhere; 4; "},
      {"+datum=WGS84 +ellps=krass", "unfed"},
      {nullptr, "unfed"}};
  for (int const lang : {english, russian}) {
    speak(lang);
    for (auto const& [definition, text] : cases) EXPECT_EQ(summary(definition), text);
  }
}

TEST(Short_text, parts_that_the_summary_leaves_out) {
  Tzu_pj4_parts parts;
  EXPECT_TRUE(parts.init("+proj=utm +zone=37"));
  EXPECT_EQ(parts.get_pj4_name() + parts.get_pj4_zone(), "utm; 37; ");
  EXPECT_TRUE(parts.init("+proj=tmerc")) << "what was read before does not count";
  EXPECT_EQ(parts.get_pj4_caption() + parts.get_pj4_zone(), "Transverse Mercator; ");
  EXPECT_FALSE(parts.init("+lon_0=39"));
  EXPECT_EQ(parts.get_def(), nullptr);
}

}  // namespace
