// Choosing an item of a list by typing letters.
#pragma once

class Tzu_vcl_selbox;

namespace zu::vcl::platform {

// Lets typed letters choose an item, in the closed and the open list. Does nothing on systems
// whose lists can do that already.
void add_list_keys(Tzu_vcl_selbox& list);

}  // namespace zu::vcl::platform
