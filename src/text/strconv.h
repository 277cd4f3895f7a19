// Named encodings and the text conversions of the library.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zu {
namespace strconv {

// Index into the constant table of encodings. The rows without a code page of
// their own (UTF-16, UTF-32) are names only: reading and writing with them
// gives empty text, since the library itself uses UTF-8 and SYSTEM.
enum class encodings : unsigned {
  utf_8,
  utf_16,
  utf_16le,
  utf_16be,
  utf_32,
  utf_32le,
  utf_32be,
  cp1250,
  cp1251,
  cp1252,
  cp1253,
  cp1254,
  cp1255,
  cp1256,
  cp1257,
  cp1258,
  cp866,
  ascii,
  system,
};

inline constexpr std::size_t encodings_count = 19;

struct encoding_row {
  char const* name;
  char const* synonym;
  unsigned code_page;  // as Windows numbers them; 0 is the system's
};

// Whether the library can read and write the encoding; a UTF-16 or UTF-32 row
// must not be mistaken for the system's code page, whose number it shares.
bool has_code_page(encodings encoding) noexcept;

// Row of an encoding; static data. Out of range gives the SYSTEM row.
encoding_row const& get_encoding(encodings encoding) noexcept;

std::string to_utf8(std::wstring_view text);
std::wstring from_utf8(std::string_view text);
std::string to_system(std::wstring_view text);
std::wstring from_system(std::string_view text);
// Whether the system's code page can spell all of the text. A file whose name
// it cannot spell must not be opened by what comes closest: that is another file.
bool has_system_spelling(std::wstring_view text);

// Text of the interface tables, which are kept in code page 1251.
std::wstring from_interface(std::string_view text);

// Conversion by a row of the table.
std::wstring decode(encodings encoding, std::string_view text);
std::string encode(encodings encoding, std::wstring_view text);

}  // namespace strconv

namespace strutil {

// The white space that may surround a definition in a file.
inline constexpr std::wstring_view definition_blanks = L" \t\n\r\v\f";

// Removes the characters of `set` from both ends.
void trim_inplace(std::wstring& text, std::wstring_view set = definition_blanks);
std::string trim(std::string_view text, std::string_view set = " \t\n\r\v\f");

// Removes the mark that editors put before UTF-8 from a file's text that was read in
// the system's code page.
void drop_utf8_mark(std::wstring& text);

}  // namespace strutil
}  // namespace zu
