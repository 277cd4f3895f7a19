// Which texts may be handed to GDAL and PROJ as definitions.
//
// Both also accept the address of a document or the name of a file. A text that came by
// mail must not make this process open a file or a connection.
//
// GDAL has a switch against files and the network, but it does not replace this guard:
// with the switch GDAL still asks the system whether a file with the name of the text
// exists, and on Windows a name such as \\server\x opens a connection. It also still
// looks for the file of a "DICT:" text.
//
// Files that are named inside a definition are in proj4/named_files.h.
#pragma once

#include <string_view>

namespace zu::import_guard {

// Whether a definition can have the size of the text and the depth of its brackets. PROJ
// reads JSON by recursion and copies the text in a bracket at each level: a few hundred
// kilobytes would take it minutes.
bool is_of_sane_size(std::string_view text) noexcept;

// Whether GDAL recognises the text as a definition or an identifier. GDAL takes any
// other text for an address or the name of a file.
bool is_definition(std::string_view text);

}  // namespace zu::import_guard
