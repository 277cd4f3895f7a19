// Listings of the catalogue for a shell.
#pragma once

#include <iosfwd>
#include <string>

// Prints one of the lists "usual", "zonal", "datums" or "ellipsoids": one line for each
// record with tabs between the columns, or a JSON array.
void print_catalogue(std::ostream& out, std::string const& list, bool json);
