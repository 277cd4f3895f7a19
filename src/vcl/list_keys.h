// Choosing in a list by letters.
#pragma once

class Tzu_vcl_selbox;

namespace zu::vcl::platform {

// Lets letters that are typed choose in the list, closed or open, where the
// system's own lists do not know that by themselves.
void add_list_keys(Tzu_vcl_selbox& list);

}  // namespace zu::vcl::platform
