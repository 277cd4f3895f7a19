// The commands that check and compare definitions. Texts are in the shell's encoding; a
// failure is Terror.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "text_lines.h"

namespace comparisons {

// Prints a line for each parameter that differs, and how far apart the same coordinates
// lie in the two systems. The result is the exit status: 1 where they differ.
int diff(std::ostream& out, std::string const& first, std::string const& second);

// Prints findings about definitions and files and, for "-", about the lines of standard
// input: in sentences, or as one line of JSON for each text. The result is the exit
// status: 0 without a finding, 1 with findings, 2 for a text that cannot be read.
int check(std::vector<std::string> const& texts, bool json, text_lines::Tsetting const& setting);

}  // namespace comparisons
