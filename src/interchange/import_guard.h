// Which texts may be handed to GDAL and PROJ as definitions.
//
// Both also take the address of a document, the name of a file, or a PROJ.4 text
// that names one. A definition that came by mail must not make this process open
// a file or a connection.
#pragma once

#include <string_view>

namespace zu::import_guard {

// Whether GDAL knows the text for a definition or an identifier. Any other it
// would take for an address or a file's name.
bool is_definition(std::string_view text);

// Whether the text makes PROJ open no file but those of its own data folder: it
// names a system's authority ("+init=") and grids without a path.
bool names_no_file(std::string_view text) noexcept;
// The same where the grids of a datum shift are only noted, not opened.
bool names_no_file_but_shift_grids(std::string_view text) noexcept;

}  // namespace zu::import_guard
