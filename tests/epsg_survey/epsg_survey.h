// Opens every coordinate system that PROJ can write as a definition in the editor, and
// tells whether Apply changes its meaning. Converts the systems of PROJ's database by the
// library, and compares with GDAL and PROJ.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "libproj.h"
#include "pj_edit/edit_rules.h"

namespace epsg_survey {

enum class outcome { same, unknown, changed };

struct verdict {
  std::string code;
  std::string source;
  std::string written;
  std::string written_again;  // what opening that and pressing Apply gives
  outcome result = outcome::same;
  // Why it is unknown or changed; of a changed one, each cause that applies.
  std::vector<std::string> causes;
  // The rules of the editor do not explain one of the causes.
  bool unexplained = false;
};

struct report {
  std::size_t systems = 0;         // in the database
  std::size_t without_text = 0;    // PROJ cannot write them as a definition
  std::size_t not_computable = 0;  // PROJ cannot compute with its own text
  std::vector<verdict> verdicts;
};

// The codes of all projected and geographic systems, those withdrawn included.
std::vector<std::string> codes(libproj::Tcontext const& context, bool with_3d);
// Five points of a system's area of use, in degrees.
std::vector<libproj::point> points_in(libproj::Tcontext const& context, PJ const* crs);

report run(zu::Tzu_pj_editor& editor);
// Counts by outcome and cause, with an example of each.
std::string table(report const& survey);

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
