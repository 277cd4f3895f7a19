// The commands that transform coordinates and describe a definition. Texts are in the
// shell's encoding. Coordinates are degrees, longitude first, or in the unit of the
// projected system, easting first. A failure is Terror.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "basic/env.h"
#include "losses.h"

namespace transformations {

// Describes a definition in the interface's language: a line for each parameter, or all
// in one line. `where` stands before reports of losses.
std::string describe(std::string const& text, bool is_short, Tlosses const& losses,
                     std::string const& where);

struct request {
  std::string from;  // coordinate systems in any notation
  std::string to;
  bool by_library = false;    // transforms as the library does for hosts, not as PROJ does
  bool inverse = false;       // from `to` to `from`
  std::optional<int> digits;  // after the point; without a value the default of the system
  unsigned jobs = 0;          // threads; 0 stands for as many as keep all processors busy
};

// Copies the lines of a file to standard output and transforms the point in their first
// two columns; "-" and an empty name stand for standard input. The rest of a line does
// not change. Blanks, tabs, a comma or a semicolon separate columns. Empty lines and
// lines that begin with "#" do not change. A point that fails becomes "* *"; a line that
// does not begin with a point gets "* * " before it. The result is the exit status.
int transform(request const& wanted, std::string const& file, Tzu_env& env, Tlosses const& losses);

// Transforms a box and returns the new box in one line; both are x0, y0, x1, y1.
std::string box(request const& wanted, std::vector<std::string> const& corners,
                Tlosses const& losses);

}  // namespace transformations
