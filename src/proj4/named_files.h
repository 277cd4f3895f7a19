// Which files PROJ would open because a definition names them.
//
// A definition may come by mail. Its sender must not be able to make this process open a file
// or a connection. PROJ looks for each file that it does not find on the network, where the
// user has allowed that.
#pragma once

#include <string_view>

namespace zu::named_files {

// Which shift grids a text may name.
enum class shift_grids {
  any,     // by any name: the user chose them, or they are only noted
  listed,  // by a name without a path: they are only noted
  none
};

// Whether PROJ.4 text, alone or inside WKT, names no other file than the allowed grids.
// "+init=" may name a system of the database. The time is proportional to the length of the
// text.
bool has_none_but(std::string_view text, shift_grids allowed);

}  // namespace zu::named_files
