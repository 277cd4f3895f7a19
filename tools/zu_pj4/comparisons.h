// The commands that judge definitions. Texts are in the shell's encoding; what cannot
// be done is Terror.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "basic/env.h"

namespace comparisons {

// Prints a line for each parameter that differs, and how far apart the two systems
// place the same coordinates. The result is the exit status: 1 where they differ.
int diff(std::ostream& out, std::string const& first, std::string const& second);

// Prints what becomes of definitions, of files and, for "-", of the lines of standard
// input, in sentences or as a line of JSON for each. The result is the exit status:
// 0 where there is nothing to say, 1 where there is, 2 for what cannot be read.
int check(std::ostream& out, std::vector<std::string> const& texts, bool json, Tzu_env& env);

}  // namespace comparisons
