// Which files a definition would make PROJ open.
//
// A definition may have come by mail. It must not make this process open a file
// that its sender names, nor a connection: PROJ asks the network, where the user
// has allowed it that, for every file that it does not find.
#pragma once

#include <string_view>

namespace zu::named_files {

// The grids of a shift that a text may name.
enum class shift_grids {
  any,     // by any name: the user's own, or only noted
  listed,  // by names without a path, where they are only noted
  none
};

// Whether PROJ.4 text, alone or inside WKT, names no file beyond those grids.
// "+init=" may name a system of the database. Takes time in proportion to the text.
bool has_none_but(std::string_view text, shift_grids allowed);

}  // namespace zu::named_files
