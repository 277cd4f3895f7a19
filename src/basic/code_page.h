// Conversion between wide text and 8-bit text of a code page: the platform's
// own converters behind one pair of functions.
#pragma once

#include <string>
#include <string_view>

namespace zu::code_page {

// Code-page numbers as the Windows API counts them.
inline constexpr unsigned system = 0;  // the system's ANSI code page
inline constexpr unsigned cp1251 = 1251;
inline constexpr unsigned utf8 = 65001;

// Bytes that are invalid in the code page become U+FFFD, those of 0x80 to 0x9F
// to which a page of the 125x gives no letter the control character of that
// number. Characters that the code page lacks become "?", on Windows the letter
// that the system finds most alike where it knows one.
// An unknown code page, or a conversion that ends half-way, gives empty text.
// Off Windows the system's code page is the encoding that the user's locale
// names (LC_ALL, LC_CTYPE, LANG), UTF-8 where it names none; a host's
// setlocale does not change it.
std::wstring to_wide(unsigned code_page, std::string_view text);
std::string to_multi_byte(unsigned code_page, std::wstring_view text);

}  // namespace zu::code_page
