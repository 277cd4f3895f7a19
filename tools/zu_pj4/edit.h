// The command that opens the dialog.
#pragma once

#include <string>

#include "losses.h"

// Opens the dialog on a definition, prints the result and returns the exit status. `arguments`
// are those of the program. Throws when no dialog can open.
//
// On Linux each start of the toolkit takes longer than most commands. So zu_pj4 does not have it:
// it becomes the program zu_pj4_edit beside it, which differs from it in this function only.
int edit(std::string const& definition, Tlosses const& losses, char** arguments);
