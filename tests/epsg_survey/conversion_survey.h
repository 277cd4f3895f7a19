// Converts the systems of PROJ's database by the library, and compares with GDAL and
// PROJ.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace epsg_survey {

struct conversion_report {
  std::map<std::string, std::size_t> counts;  // systems by what became of them
  std::vector<std::string> mistakes;          // what must not be, with the texts
  std::vector<std::string> texts;             // what the library gave
};

// Each system by its code: the same definition as GDAL's, or PROJ's where GDAL
// has none. Every `step`-th system of the database.
conversion_report survey_import(std::size_t step);

// Converts each definition to ESRI WKT and back. It must keep its meaning if GDAL keeps it
// from the code to ESRI WKT and back.
conversion_report survey_esri(std::size_t step);

}  // namespace epsg_survey
