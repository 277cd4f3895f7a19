// Which texts may be handed to GDAL and PROJ as definitions.
//
// Both also take the address of a document or the name of a file. A text that came
// by mail must not make this process open a file or a connection;
// proj4/named_files.h tells of files that are named inside a definition.
#pragma once

#include <string_view>

namespace zu::import_guard {

// Whether the text is of a size and of a depth of brackets that definitions have.
// PROJ copies what lies inside a bracket of JSON for each level, and calls itself
// for it: a few hundred kilobytes would keep it busy for minutes.
bool is_of_sane_size(std::string_view text) noexcept;

// Whether GDAL knows the text for a definition or an identifier. Any other it
// would take for an address or a file's name.
bool is_definition(std::string_view text);

}  // namespace zu::import_guard
