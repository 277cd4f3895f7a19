// Who runs the program, on which computer, before what, and how they write numbers.
#pragma once

#include <cstdio>
#include <string>

namespace zu::session {

// The account that the program runs under; empty when the system does not tell.
std::wstring user_name();

// The computer's own name without a domain's; empty when it cannot be told.
std::wstring computer_name();

// Whether a person sees what goes into the stream: it is a terminal or console.
bool is_terminal(std::FILE* stream) noexcept;

// What stands before the decimals in the user's numbers. The host's C locale,
// which may be another, has no part in it.
std::wstring decimal_separator();

}  // namespace zu::session
