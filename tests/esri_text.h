// A Gauss-Kruger zone as ESRI's programs write it.
#pragma once

namespace core_test {

constexpr char const* zone_7_wkt =
    R"(PROJCS["Pulkovo_1942_GK_Zone_7",GEOGCS["GCS_Pulkovo_1942",DATUM["D_Pulkovo_1942",)"
    R"(SPHEROID["Krasovsky_1940",6378245.0,298.3]],PRIMEM["Greenwich",0.0],)"
    R"(UNIT["Degree",0.0174532925199433]],PROJECTION["Gauss_Kruger"],)"
    R"(PARAMETER["False_Easting",7500000.0],PARAMETER["False_Northing",0.0],)"
    R"(PARAMETER["Central_Meridian",39.0],PARAMETER["Scale_Factor",1.0],)"
    R"(PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0],AUTHORITY["EPSG",28407]])";

}  // namespace core_test
