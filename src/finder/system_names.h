// Under which names and codes a definition is known.
#pragma once

#include <string>
#include <vector>

namespace zu {

struct system_name {
  std::string id;    // "Russia_Cadastre_50_1", "EPSG:28407"
  std::string name;  // UTF-8
  int confidence;    // 100 for the same system, less for one that is only like it
};

// The known system that a definition (the system's code page) equals, and what PROJ
// takes it for, the likeliest first; with less than `least` of confidence they are not
// told. Takes some tenths of a second.
std::vector<system_name> find_system_names(std::string const& definition, int least = 70);

}  // namespace zu
