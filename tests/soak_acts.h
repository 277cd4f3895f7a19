// Random uses of the library, good and bad, each of them told by its number alone.
#pragma once

#include <cstddef>
#include <string>

namespace soak {

// Does the act of that number through the exported and the C-style functions, and
// tells all that came out of it.
std::string act(std::size_t number);

}  // namespace soak
