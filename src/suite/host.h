// System calls for our stand-ins of the suite's base library.
#pragma once

#include <string>

namespace zu::host {

// Full path of the running program; empty when the system does not tell it.
std::wstring program_path();

// Whether the user's interface language is Russian.
bool is_language_russian();

}  // namespace zu::host
