// Finding a system for the dialog: the list, what is told of a row, what was taken
// before. Free of the form toolkit.
#pragma once

#include <string>
#include <vector>

#include "finder/system_search.h"
#include "pj_edit/edit_rules.h"

namespace zu {

// The list of systems, once in a process: the known systems and zones are there at once,
// PROJ's systems a tenth of a second later, by a thread. On the dialog's thread only.
namespace system_finder {

constexpr std::size_t most_rows = 200;

// Starts what is to be made and is not yet.
void start();

// Waits for what is being made: no thread is left to a host.
void finish();

// Whether the list has got longer since the last call.
bool has_more();

// What fits, the best first; without words what was taken before in this process stands
// first. The systems live until has_more tells of more.
std::vector<listed_system const*> find(std::wstring const& words, bool deprecated);

// Puts a system before others while nothing is searched for.
void remember(listed_system const& system);

}  // namespace system_finder

// A row of the list: name, code and area.
std::wstring tell_row(listed_system const& system);

// The lines below the list: the definition, the area in words and as a box, whether it
// is deprecated, and what the dialog does not keep of it. `definition` gets what is to
// be edited; empty where there is none.
std::wstring tell_system(listed_system const& system, catalogue_lists const& lists,
                         std::string& definition);

}  // namespace zu
