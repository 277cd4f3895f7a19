// The build of GDAL that goes into the library holds spatial references alone.
// What conversions need of it has to be there, and find its data.

#include <cpl_conv.h>
#include <gtest/gtest.h>
#include <ogr_srs_api.h>

#include <array>
#include <memory>
#include <string>

namespace {

struct Tdestroy {
  void operator()(OGRSpatialReferenceH system) const { OSRDestroySpatialReference(system); }
};
using Tsystem = std::unique_ptr<void, Tdestroy>;

template <class Export>
std::string text_of(Tsystem const& system, Export export_text) {
  char* text = nullptr;
  EXPECT_EQ(OGRERR_NONE, export_text(system.get(), &text));
  std::string result = text == nullptr ? "" : text;
  VSIFree(text);
  return result;
}

// ESRI's own text of the zone, as its programs write it.
constexpr char const* esri_zone_7 =
    R"(PROJCS["Pulkovo_1942_GK_Zone_7",GEOGCS["GCS_Pulkovo_1942",DATUM["D_Pulkovo_1942",)"
    R"(SPHEROID["Krasovsky_1940",6378245.0,298.3]],PRIMEM["Greenwich",0.0],)"
    R"(UNIT["Degree",0.0174532925199433]],PROJECTION["Gauss_Kruger"],)"
    R"(PARAMETER["False_Easting",7500000.0],PARAMETER["False_Northing",0.0],)"
    R"(PARAMETER["Central_Meridian",39.0],PARAMETER["Scale_Factor",1.0],)"
    R"(PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0]])";

TEST(spatial_references, epsg_code_to_proj4_and_esri) {
  Tsystem const system(OSRNewSpatialReference(nullptr));
  ASSERT_EQ(OGRERR_NONE, OSRImportFromEPSGA(system.get(), 28407)) << "proj.db is not found";
  EXPECT_EQ(
      "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs",
      text_of(system, OSRExportToProj4));
  ASSERT_EQ(OGRERR_NONE, OSRMorphToESRI(system.get()));
  EXPECT_EQ(esri_zone_7, text_of(system, OSRExportToWkt));
}

TEST(spatial_references, esri_to_proj4) {
  Tsystem const system(OSRNewSpatialReference(nullptr));
  std::string wkt = esri_zone_7;
  std::array<char*, 2> lines{wkt.data(), nullptr};
  ASSERT_EQ(OGRERR_NONE, OSRImportFromESRI(system.get(), lines.data()));
  EXPECT_NE(std::string::npos, text_of(system, OSRExportToProj4).find("+lon_0=39"));
  EXPECT_STREQ("Pulkovo_1942", OSRGetAttrValue(system.get(), "DATUM", 0));
}

TEST(spatial_references, seven_numbers_of_a_datum) {
  Tsystem const system(OSRNewSpatialReference(nullptr));
  ASSERT_EQ(OGRERR_NONE, OSRSetFromUserInput(system.get(),
                                             "+proj=longlat +ellps=krass "
                                             "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22"));
  std::array<double, 7> numbers{};
  ASSERT_EQ(OGRERR_NONE,
            OSRGetTOWGS84(system.get(), numbers.data(), static_cast<int>(numbers.size())));
  EXPECT_EQ((std::array{23.57, -140.95, -79.8, 0., 0.35, 0.79, -0.22}), numbers);
  EXPECT_EQ(6378245, OSRGetSemiMajor(system.get(), nullptr));
  EXPECT_NE(0, OSRIsGeographic(system.get()));
}

}  // namespace
