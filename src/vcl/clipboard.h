// Texts on the system's clipboard.
#pragma once

#include <string>

namespace zu::vcl {

// The text stays on the clipboard when the program ends.
void put_on_clipboard(std::wstring const& text);
// Empty when there is no text.
std::wstring text_on_clipboard();

}  // namespace zu::vcl
