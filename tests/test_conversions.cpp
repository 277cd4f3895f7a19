// ESRI WKT and other notations, as a host gets them.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "basic/number.h"
#include "basic/str.h"
#include "core_support.h"
#include "fed_by.h"
#include "interchange/known_systems.h"
#include "interchange/proj4_conv.h"
#include "text/strconv.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

using zu::known_system;
using zu::known_systems;
using zu::proj4_conv;
using texts = std::vector<std::pair<std::string, std::string>>;

// What a conversion makes of an ASCII text; "failed" when it says so, which has to
// feed nothing then.
std::string made_by(int (*convert)(wchar_t const*, Izu_string_adp*), std::string const& text) {
  bool done = false;
  std::wstring const wide(text.begin(), text.end());
  auto const result = core_test::fed_by(
      [&](Izu_string_adp* adapter) { done = convert(wide.c_str(), adapter) != 0; });
  EXPECT_EQ(done, result != L"unfed") << text;
  return done ? zu::strconv::to_utf8(result) : "failed";
}

std::string to_esri(std::string const& definition) {
  return made_by(&zu_pj4_export_esri, definition);
}
std::string from_esri(std::string const& wkt) { return made_by(&zu_pj4_import_esri_prj, wkt); }
std::string import_crs(std::string const& text) { return made_by(&zu_pj4_import_crs, text); }

// The keys from the last to the first, "k" for "k_0", other blanks and capitals.
std::string rewritten(std::string const& definition) {
  auto pieces = zu::str::split(definition, " ");
  std::ranges::reverse(pieces);
  std::string text;
  for (auto const piece : pieces) {
    auto const [key, value] = zu::str::divide_str(piece, '=');
    text.append(key == "+k_0" ? "+K" : key);
    if (!value.empty()) text.append(" = ").append(value);
    text.append("\t ");
  }
  return text;
}

// The definition once for each of its numbers, that number changed by 1e-5.
std::vector<std::string> with_a_number_changed(std::string const& definition) {
  std::vector<std::string> changed;
  for (std::size_t at = 0; (at = definition.find_first_of("=,", at)) != std::string::npos;) {
    auto const end = definition.find_first_of(" ,", ++at);
    auto const value = zu::number::scan_double(definition.substr(at, end - at));
    if (!value || definition.substr(0, at).ends_with("lon_wrap=")) continue;
    changed.push_back(definition.substr(0, at) + zu::number::format_double(*value + 1e-5, 15) +
                      definition.substr(end));
  }
  return changed;
}

TEST(Known_system, is_written_byte_for_byte) {
  std::map<std::string, char const*> first_of;
  std::size_t confirmed = 0;
  std::size_t changes = 0;
  for (known_system const& row : known_systems) {
    std::string const definition = row.proj4;
    if (!row.confirmed) {
      // Its placeholder may be another row's definition.
      EXPECT_NE(to_esri(definition), row.wkt);
      continue;
    }
    ++confirmed;
    char const* const wkt = first_of.emplace(definition, row.wkt).first->second;
    EXPECT_EQ(to_esri(definition), wkt);
    EXPECT_EQ(to_esri(rewritten(definition)), wkt) << rewritten(definition);
    for (std::string const& other : with_a_number_changed(definition)) {
      auto const look_up = [&](auto* adapter) { proj4_conv::lookup_db(other, adapter); };
      EXPECT_EQ(core_test::fed_by(look_up), L"unfed") << other;
      ++changes;
    }
  }
  EXPECT_EQ(confirmed, 381U);
  // lon_0, lat_0, x_0, y_0, k_0 and seven of the shift, but for WGS 84 and Moscow.
  EXPECT_EQ(changes, 379U * 12 + 5);
}

constexpr char const* agreed_1942 = "23.57,-140.95,-79.8,0,0.35,0.79,-0.22";
constexpr char const* agreed_2011 = "0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074";

// Each row of the mapping out to ESRI WKT, and what comes back of that: only the
// agreed sets return as they went.
TEST(Mapping, names_systems_by_their_numbers) {
  std::string const krass = "+ellps=krass";
  struct Tcase {
    std::string numbers;
    std::string shape;
    std::string geogcs;
    std::string datum;
    std::string spheroid;
    std::string back;
  };
  std::vector<Tcase> const cases{
      {"28,-130,-95,0,0,0,0", krass, "GCS_Pulkovo_1942", "D_Pulkovo_1942", "Krasovsky_1940",
       agreed_1942},
      {"33.4,-146.6,-76.3,-0.359,-0.053,0.844,-0.84", krass, "GCS_Pulkovo_1942_Adj_1958",
       "D_Pulkovo_1942_Adj_1958", "Krasovsky_1940", ""},
      {"24,-123,-94,-0.02,0.25,0.13,1.1", krass, "GCS_Pulkovo_1942_Adj_1983",
       "D_Pulkovo_1942_Adj_1983", "Krasovsky_1940", ""},
      {agreed_1942, krass, "GCS_Pulkovo_1942", "D_Pulkovo_1942", "Krasovsky_1940", agreed_1942},
      {"24.82,-131.21,-82.66,0,0,-0.16,-0.12", krass, "GCS_Pulkovo_1995", "D_Pulkovo_1995",
       "Krasovsky_1940", ""},
      {"0,0,1.5,0,0,-0.076,0", "+a=6378136 +rf=298.257839", "GCS_PZ_1990", "D_Parametrop_Zemp_1990",
       "PZ_1990", "0,0,1.5,0,0,0.076,0"},
      {agreed_2011, "+ellps=GSK2011", "GCS_RUSSIA_2011", "D_RUSSIA_2011", "S_RUSSIA_2011",
       agreed_2011},
      // Off by less than a millionth.
      {"23.5700005,-140.95,-79.8,0,0.35,0.79,-0.22", krass, "GCS_Pulkovo_1942", "D_Pulkovo_1942",
       "Krasovsky_1940", agreed_1942}};
  auto const geographic = [](std::string const& numbers, std::string const& shape) {
    return to_esri("+proj=longlat +towgs84=" + numbers + " " + shape + " +no_defs");
  };
  for (auto const& c : cases) {
    std::string const wkt = geographic(c.numbers, c.shape);
    EXPECT_EQ(proj4_conv::extract_wkt_tag(wkt, "GEOGCS"), c.geogcs) << c.numbers;
    EXPECT_EQ(proj4_conv::extract_wkt_tag(wkt, "DATUM"), c.datum) << c.numbers;
    EXPECT_EQ(proj4_conv::extract_wkt_tag(wkt, "SPHEROID"), c.spheroid) << c.numbers;
    std::string const back = from_esri(wkt);
    auto const shift = back.find("+towgs84=");
    EXPECT_EQ(shift == std::string::npos ? "" : back.substr(shift + 9, back.rfind(' ') - shift - 9),
              c.back)
        << back;
  }
  // The signs that the data of the EPSG have, and one number off by more than a millionth.
  for (auto const& [numbers, shape] : texts{{"24,-123,-94,0.02,-0.25,-0.13,1.1", krass},
                                            {"24.82,-131.21,-82.66,0,0,0.16,-0.12", krass},
                                            {"23.570002,-140.95,-79.8,0,0.35,0.79,-0.22", krass},
                                            {"23.57,-140.95,-79.8,0,0.35,0.79,-0.220002", krass},
                                            {agreed_1942, "+a=6378245.00001 +rf=298.3"}})
    EXPECT_NE(geographic(numbers, shape).find("nknown"), std::string::npos) << numbers;
}

std::string esri_geographic(std::string const& name, std::string const& datum,
                            std::string const& numbers = "") {
  std::string const shift = numbers.empty() ? "" : ",TOWGS84[" + numbers + "]";
  return R"(GEOGCS[")" + name + R"(",DATUM[")" + datum +
         R"(",SPHEROID["Krasovsky_1940",6378245.0,298.3])" + shift +
         R"(],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]])";
}

TEST(Esri_import, gives_a_datum_its_agreed_shift) {
  std::string const other = "23.92,-141.27,-80.9,0,0.35,0.82,-0.12001";
  for (auto const& [wkt, numbers] :
       texts{{esri_geographic("GCS_Pulkovo_1942", "D_Pulkovo_1942"), agreed_1942},
             // Another shift in the text itself does not count for this datum.
             {esri_geographic("GCS_Pulkovo_1942", "Pulkovo_1942", "1,2,3,0,0,0,0"), agreed_1942},
             // Other published sets stand for the agreed one under any name.
             {esri_geographic("GCS_x", "x", "25,-141,-78.5,0,0.35,0.736,0"), agreed_1942},
             {esri_geographic("GCS_x", "x", "23.92,-141.27,-80.9,0,0.35,0.82,-0.12"), agreed_1942},
             {esri_geographic("GCS_x", "x", other), other},
             {esri_geographic("GCS_RUSSIA_2011", "D_RUSSIA_2011"), agreed_2011},
             {esri_geographic("GSK-2011", "D_GSK-2011"), agreed_2011},
             {esri_geographic("GSK-2011", "Geodezicheskaya_Sistema_Koordinat_2011"), agreed_2011},
             {esri_geographic("GCS_x", "d_russia_2011"), ""},
             {esri_geographic("GCS_Pulkovo_1995", "D_Pulkovo_1995"), ""}}) {
    std::string const shift = numbers.empty() ? "" : "+towgs84=" + numbers + " ";
    EXPECT_EQ(from_esri(wkt), "+proj=longlat +ellps=krass " + shift + "+no_defs") << wkt;
  }
  // As the library writes it for the Moscow region: GDAL guesses another shift.
  EXPECT_EQ(from_esri(known_systems[278].wkt),
            "+proj=tmerc +lat_0=0 +lon_0=35.4833333333 +k=1 +x_0=1250000 +y_0=-5712900.566 "
            "+ellps=krass +towgs84=24.47,-130.89,-81.56,0,0,0.13,-0.22 +units=m +no_defs");
  // Row 0 says its ellipsoid twice; what comes back says it once.
  EXPECT_EQ(from_esri(known_systems[0].wkt), "+proj=longlat +datum=WGS84 +no_defs");
  for (char const* wkt : {"", "PROJCS[", "GEOGCS[\"x\"]", "text"})
    EXPECT_EQ(from_esri(wkt), "failed") << wkt;
}

// GDAL would take the parallel that is not there for 0.
TEST(Esri_export, completes_a_lambert_conic_of_one_parallel) {
  for (auto const& [keys, numbers] :
       texts{{"+lat_1=45", R"(Parallel_2",45.0],PARAMETER["Latitude_Of_Origin",45.0])"},
             {"+lat_0=1 +lat_1=45", R"(Parallel_2",45.0],PARAMETER["Latitude_Of_Origin",1.0])"},
             {"+lat_1=45 +lat_2=50", R"(Parallel_2",50.0],PARAMETER["Latitude_Of_Origin",0.0])"}}) {
    auto const wkt = to_esri("+proj=lcc " + keys + " +lon_0=10 +datum=WGS84 +units=m");
    EXPECT_NE(wkt.find(numbers), std::string::npos) << wkt;
    EXPECT_NE(wkt.find(R"(Parallel_1",45.0])"), std::string::npos) << wkt;
  }
}

TEST(Crs_import, takes_every_notation_and_reaches_for_nothing) {
  std::string const zone_7 =
      "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs";
  std::string const wgs_84 = "+proj=longlat +datum=WGS84 +no_defs";
  for (auto const& [text, definition] : texts{
           {"EPSG:28407", zone_7},
           {"EPSGA:28407", zone_7},
           {"urn:ogc:def:crs:EPSG::28407", zone_7},
           {"http://www.opengis.net/def/crs/EPSG/0/28407", zone_7},
           {"+init=epsg:28407", zone_7},
           {"WGS84", wgs_84},
           {"OGC:CRS84", wgs_84},
           {known_systems[73].wkt, zone_7},
           {std::string("ESRI::") + known_systems[0].wkt, wgs_84},
           {"ESRI:102025",
            "+proj=aea +lat_0=30 +lon_0=95 +lat_1=15 +lat_2=65 +x_0=0 +y_0=0 +datum=WGS84 "
            "+units=m +no_defs"},
           // What GDAL refuses and PROJ takes.
           {"WGS 84 / UTM zone 37N", "+proj=utm +zone=37 +datum=WGS84 +units=m +no_defs +type=crs"},
           {" ", "failed"},
           {"EPSG:", "failed"},
           {"EPSG:99999999999999999999", "failed"},
           // Addresses and files.
           {R"(C:\Windows\win.ini)", "failed"},
           {R"(\\host\share\a.prj)", "failed"},
           {"//host/share/a.prj", "failed"},
           {"http://localhost:1/a.prj", "failed"},
           {"+init=../epsg:4326", "failed"},
           {"proj=vgridshift grids=./passwd", "failed"},
           // The grids of a datum shift are noted.
           {"+proj=longlat +ellps=krass +nadgrids=a.gsb",
            "+proj=longlat +ellps=krass +nadgrids=a.gsb +no_defs"}})
    EXPECT_EQ(import_crs(text), definition) << text;

  std::string const with_grid =
      R"(GEOGCS["x",DATUM["x",SPHEROID["x",6378245,298.3],EXTENSION["PROJ4_GRIDS","@a.gsb"]],)"
      R"(PRIMEM["Greenwich",0],UNIT["degree",0.0174532925199433]])";
  std::string with_path = with_grid;
  with_path.replace(with_path.find('@'), 1, R"(\\host\)");
  for (auto const& import : {&import_crs, &from_esri}) {
    EXPECT_EQ(import(with_grid), "+proj=longlat +ellps=krass +nadgrids=@a.gsb +no_defs");
    EXPECT_EQ(import(with_path), "failed");
  }
}

// PROJ would be busy for minutes.
TEST(Crs_import, refuses_brackets_without_end) {
  constexpr int levels = 30000;
  std::string text;
  for (int i = 0; i < levels; ++i) text += R"({"type":"BoundCRS","source_crs":)";
  EXPECT_EQ(import_crs(text + "1" + std::string(levels, '}')), "failed");
}

// Which PROJ would take the systems from.
TEST(Crs_import, does_not_ask_a_file_of_an_authoritys_name) {
  core_test::Ttemp_folder const folder;
  core_test::put_file(folder.file("epsg"), "<28407> +proj=longlat +ellps=krass <>\n");
  auto const before = std::filesystem::current_path();
  std::filesystem::current_path(folder.file(""));
  EXPECT_EQ(import_crs("+init=epsg:28407"), "failed");
  std::filesystem::current_path(before);
  EXPECT_TRUE(import_crs("+init=epsg:28407").starts_with("+proj=tmerc"));
}

}  // namespace
