// Coordinate systems by name or code. Texts are in the shell's encoding.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace systems {

// Returns a definition as it is. For an id returns its definition: a code
// ("EPSG:28407"), a known system ("Russia_Cadastre_50_1"), a zone ("UTM_North_37").
// Terror for an unknown id and for one without a definition.
std::string definition_of(std::string const& text);

// The same for a system in any notation; a text with "+proj=" is a definition.
std::string definition_in_any(std::string const& text);

// The same for a known system and a zone only; any other text is returned as it is,
// because PROJ reads it itself.
std::string known_to_proj(std::string const& text);

struct search {
  std::vector<std::string> words;
  std::string at;    // "LON,LAT"; empty for anywhere
  std::string kind;  // known, zonal, projected or geographic; empty for all
  bool deprecated = false;
  std::size_t limit = 0;
  bool json = false;
};

// Prints the systems found, the best one first: one line each with tabs between id, name
// and area, or one line of JSON each. The result is the exit status.
int find(std::ostream& out, search const& wanted);

}  // namespace systems
