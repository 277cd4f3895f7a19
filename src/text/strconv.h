// Named encodings and the text conversions of the library.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zu {
namespace strconv {

// Index into the constant table of encodings. The rows of UTF-16 and UTF-32 have no code
// page and are names only: reading and writing with them gives empty text. The library
// itself uses UTF-8 and SYSTEM.
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

// Whether the library can read and write the encoding. A row of UTF-16 or UTF-32 has the
// number 0, as the system's code page has, but does not stand for it.
bool has_code_page(encodings encoding) noexcept;

// Row of an encoding; static data. An index out of range gives the SYSTEM row.
encoding_row const& get_encoding(encodings encoding) noexcept;

std::string to_utf8(std::wstring_view text);
std::wstring from_utf8(std::string_view text);
std::string to_system(std::wstring_view text);
std::wstring from_system(std::string_view text);
// Whether the system's code page has all characters of the text. A file name with other
// characters must not be converted: the result is the name of another file.
bool has_system_spelling(std::wstring_view text);

// Converts a text of the interface tables, which are in code page 1251.
std::wstring from_interface(std::string_view text);

// Convert by a row of the table.
std::wstring decode(encodings encoding, std::string_view text);
std::string encode(encodings encoding, std::wstring_view text);

}  // namespace strconv

namespace strutil {

// The white space that may stand around a definition in a file.
inline constexpr std::wstring_view definition_blanks = L" \t\n\r\v\f";

// Removes the characters of `set` from both ends.
void trim_inplace(std::wstring& text, std::wstring_view set = definition_blanks);
std::string trim(std::string_view text, std::string_view set = " \t\n\r\v\f");

// Removes the mark that editors write before UTF-8. The text was read from a file in the
// system's code page.
void drop_utf8_mark(std::wstring& text);

}  // namespace strutil
}  // namespace zu
