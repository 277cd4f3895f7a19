// Coordinate systems by what they are called. Texts are in the shell's encoding.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace systems {

// A definition as it is, or the one of a system that is named by its id: a code
// ("EPSG:28407"), a known system ("Russia_Cadastre_50_1"), a zone ("UTM_North_37").
// Terror for an id that nobody has or that has no definition.
std::string definition_of(std::string const& text);

// The same of a system in any notation; a text with "+proj=" is a definition.
std::string definition_in_any(std::string const& text);

// The same of a known system and a zone only: PROJ knows the others itself.
std::string known_to_proj(std::string const& text);

struct search {
  std::vector<std::string> words;
  std::string at;    // "LON,LAT"; empty for anywhere
  std::string kind;  // known, zonal, projected or geographic; empty for all
  bool deprecated = false;
  std::size_t limit = 0;
  bool json = false;
};

// Prints what is found, the best first: a line each with tabs between id, name and
// area, or of JSON. The result is the exit status.
int find(std::ostream& out, search const& wanted);

}  // namespace systems
