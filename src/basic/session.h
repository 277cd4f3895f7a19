// The user, the computer, the terminal and the user's way of writing numbers.
#pragma once

#include <cstdio>
#include <string>

namespace zu::session {

// The account that the program runs as; empty when the system does not tell it.
std::wstring user_name();

// The name of the computer without its domain; empty when the system does not tell it.
std::wstring computer_name();

// Whether the stream goes to a terminal or console, where a person sees it.
bool is_terminal(std::FILE* stream) noexcept;

// The text before the decimals in the user's numbers. The C locale of the host, which
// may be another, does not change it.
std::wstring decimal_separator();

}  // namespace zu::session
