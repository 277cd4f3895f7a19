// Finding a system for the dialog: the list, the texts of a row, and the systems taken before.
// Does not use the form toolkit.
#pragma once

#include <string>
#include <vector>

#include "finder/system_search.h"
#include "pj_edit/edit_rules.h"

namespace zu {

// The list of systems, made once in a process. It has the known systems and zones at once; a
// thread adds PROJ's systems a tenth of a second later. For the dialog's thread only.
namespace system_finder {

constexpr std::size_t most_rows = 200;

// Starts making the list if that has not begun yet.
void start();

// Waits for the thread: none may run in a host after the dialog.
void finish();

// Whether the list has become longer since the last call.
bool has_more();

// The systems that fit, the best first. Without words the systems taken before in this process
// come first. The pointers are valid as long as the process.
std::vector<listed_system const*> find(std::wstring const& words, bool deprecated);

// Remembers a system: it comes first when there are no words.
void remember(listed_system const& system);

}  // namespace system_finder

// A row of the list: name, code and area.
std::wstring tell_row(listed_system const& system);

// The lines below the list: the definition, the area in words and as a box, whether the system
// is deprecated, and what the dialog would lose of it. `definition` receives the definition to
// edit; empty when there is none.
std::wstring tell_system(listed_system const& system, catalogue_lists const& lists,
                         std::string& definition);

}  // namespace zu
