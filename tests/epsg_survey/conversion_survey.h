// Converts the systems of PROJ's database by the library, and compares with the results
// of GDAL and PROJ alone.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace epsg_survey {

struct conversion_report {
  std::map<std::string, std::size_t> counts;  // systems by result
  std::vector<std::string> mistakes;          // wrong results, with the texts
  std::vector<std::string> texts;             // all results of the library
};

// Imports each system by its code: the definition must be GDAL's, or PROJ's where GDAL
// has none. Takes every `step`-th system of the database.
conversion_report survey_import(std::size_t step);

// Converts each definition to ESRI WKT and back. Its meaning must not change where GDAL
// alone, from the code to ESRI WKT and back, does not change it.
conversion_report survey_esri(std::size_t step);

}  // namespace epsg_survey
