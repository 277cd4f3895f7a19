// Opens every coordinate system that PROJ can write as a definition in the editor, and
// tells whether Apply changes its meaning.
#pragma once

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

}  // namespace epsg_survey
