// Conversion between wide text and 8-bit text of a code page, by the converters of
// the platform.
#pragma once

#include <string>
#include <string_view>

namespace zu::code_page {

// Code-page numbers as the Windows API counts them.
inline constexpr unsigned system = 0;  // the system's ANSI code page
inline constexpr unsigned cp1251 = 1251;
inline constexpr unsigned utf8 = 65001;

// A byte that is invalid in the code page becomes U+FFFD. But a byte of 0x80 to 0x9F
// that has no letter in a page 125x becomes the control character of that number.
// A character that is not in the code page becomes "?"; Windows may put a similar
// letter there. An unknown code page, or a conversion that fails half-way, gives empty
// text.
// On Linux the system's code page is the encoding of the user's locale (LC_ALL,
// LC_CTYPE, LANG), and UTF-8 where the locale names none. The setlocale of a host does
// not change it.
std::wstring to_wide(unsigned code_page, std::string_view text);
std::string to_multi_byte(unsigned code_page, std::wstring_view text);

}  // namespace zu::code_page
