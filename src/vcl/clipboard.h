// Texts on the system's clipboard.
#pragma once

#include <string>

namespace zu::vcl {

// Stays there when the program ends.
void put_on_clipboard(std::wstring const& text);
// Empty where there is none.
std::wstring text_on_clipboard();

}  // namespace zu::vcl
