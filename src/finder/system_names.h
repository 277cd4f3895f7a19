// The names and codes of a definition.
#pragma once

#include <string>
#include <vector>

namespace zu {

struct system_name {
  std::string id;    // "Russia_Cadastre_50_1", "EPSG:28407"
  std::string name;  // UTF-8
  int confidence;    // 100 for the same system, less for one that is only similar
};

// The known system that is equal to a definition (in the system's code page), then the systems
// that PROJ finds for it, the likeliest first. Systems with a confidence below `least` are
// left out. Takes some tenths of a second.
std::vector<system_name> find_system_names(std::string const& definition, int least = 70);

}  // namespace zu
