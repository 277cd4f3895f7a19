// The commands that turn definitions into other notations and back. Texts are in
// the shell's encoding. Of several texts or files each failure is told on `env`,
// the rest is still done, and the result is the exit status; of one a failure is
// Terror.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "basic/env.h"
#include "losses.h"

namespace conversions {

// Print one line for each text, empty where it fails; "-" reads them from
// standard input.
int to_esri(std::vector<std::string> const& definitions, Tzu_env& env, Tlosses const& losses);
int import(std::vector<std::string> const& texts, Tzu_env& env, Tlosses const& losses);

// The definition of one file, or of standard input for "-".
std::string from_esri(std::string const& name);

// Files of either kind, told apart by the extension ".prj"; `kind` is "pj4" or
// "prj", an empty folder is each file's own. No input of the run is overwritten.
int convert(std::vector<std::string> const& names, std::string const& kind,
            std::string const& folder, Tzu_env& env, Tlosses const& losses);

// One definition file, by its extension.
std::string load(std::string const& name);
void save(std::string const& definition, std::string const& name);

// All known systems, a line each: row, name, whether it is confirmed, and the
// definition of one that is.
void list_known(std::ostream& out);
// The name of the known system that a definition equals; of a name, what is
// known under it. False when nothing is.
bool show_known(std::ostream& out, std::string const& definition_or_name);

}  // namespace conversions
