// The commands that transform coordinates and tell what a definition says. Texts
// are in the shell's encoding; coordinates are degrees, longitude first, or the
// unit of the projected system, easting first. What cannot be done is Terror.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "basic/env.h"
#include "losses.h"

namespace transformations {

// What the definition says, in the interface's language: a line for each
// parameter, or all in one line. `where` stands before what is told of losses.
std::string describe(std::string const& text, bool is_short, Tlosses const& losses,
                     std::string const& where);

struct request {
  std::string from;  // coordinate systems in any notation
  std::string to;
  bool by_library = false;    // as the library's hosts have it, not as PROJ does it
  bool inverse = false;       // the way back
  std::optional<int> digits;  // behind the point; the system's usual without
};

// Lines of a file, or of standard input for "-" or nothing, to standard output: the
// first two columns of each are the point, all else stays. Columns are separated
// by blanks and tabs, or a comma or semicolon; empty lines and those that begin
// with "#" pass. "*" stands for both coordinates of a point that fails, and "* * "
// before a line that begins with no point. The result is the exit status.
int transform(request const& wanted, std::string const& file, Tzu_env& env, Tlosses const& losses);

// The box of a transformed box, in one line; both are x0, y0, x1, y1.
std::string box(request const& wanted, std::vector<std::string> const& corners,
                Tlosses const& losses);

}  // namespace transformations
