// The commands that convert definitions to other notations and back. Texts are in the
// shell's encoding. A command for several texts or files reports each failure, does the
// others, and returns the exit status. A command for one text throws Terror.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "text_lines.h"

namespace conversions {

// Print one line for each text, empty where it fails; "-" reads the texts from standard
// input.
int to_esri(std::vector<std::string> const& definitions, text_lines::Tsetting const& setting);
int import(std::vector<std::string> const& texts, text_lines::Tsetting const& setting);

// The definition of one file, or of standard input for "-".
std::string from_esri(std::string const& name);

// Converts files of all kinds, which are known by their extensions. `kind` is one of
// file_kinds(). With an empty `folder` each result is in the folder of its input. No input
// of the run is overwritten.
int convert(std::vector<std::string> const& names, std::string const& kind,
            std::string const& folder, text_lines::Tsetting const& setting);

// The extensions of definition files, without the point.
std::vector<std::string> file_kinds();

// One definition file; its extension tells the kind.
std::string load(std::string const& name);
void save(std::string const& definition, std::string const& name, Tlosses const& losses);

// Prints all known systems, one line each: row, name, whether it is confirmed, and the
// definition of a confirmed one.
void list_known(std::ostream& out);
// For a definition prints the name of the known system that is equal, for a name the
// definition and the WKT of that system. False when there is no such system.
bool show_known(std::ostream& out, std::string const& definition_or_name);

}  // namespace conversions
