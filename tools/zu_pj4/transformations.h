// The commands that transform coordinates and tell what a definition says. Texts
// are in the shell's encoding; coordinates are degrees, longitude first, or the
// unit of the projected system, easting first. What cannot be done is Terror.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "basic/env.h"

namespace transformations {

// A definition as it is, or the one of a code ("EPSG:28407").
std::string definition_of(std::string const& text);

// What the definition says, in the interface's language: a line for each
// parameter, or all in one line.
std::string describe(std::string const& text, bool is_short);

struct request {
  std::string from;  // definitions or codes
  std::string to;
  bool inverse = false;       // the way back
  std::optional<int> digits;  // behind the point; the system's usual without
};

// Lines of a file, or of standard input for an empty name, to standard output:
// the first two numbers of each are the point, all else stays. Separators are
// blanks, commas, semicolons and tabs; empty lines and those that begin with "#"
// pass. The result is the exit status.
int transform(request const& wanted, std::string const& file, Tzu_env& env);

// The box of the transformed box, in one line: x0 y0 x1 y1.
std::string box(request const& wanted, std::array<double, 4> const& corners);

}  // namespace transformations
