// Small text functions for all folders.
#pragma once

#include <string>
#include <string_view>
#include <vector>

using Tzu_str_vec = std::vector<std::string>;

namespace zu::str {

// The characters that surround keys, values and table fields.
inline constexpr std::string_view blanks = " \r\t\n";

// `text` without the characters of `set` at both ends; a view into `text`.
std::string_view trim(std::string_view text, std::string_view set = blanks) noexcept;

// Of an ASCII letter; other bytes stay as they are, whatever the code page.
constexpr char to_lower(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Equality without regard to the case of ASCII letters. Keys and catalogue
// names are ASCII; other bytes compare as they are.
constexpr bool equal_no_case(std::string_view left, std::string_view right) noexcept {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i)
    if (left[i] != right[i] && to_lower(left[i]) != to_lower(right[i])) return false;
  return true;
}

// Compares both texts trimmed and without regard to the case of ASCII letters: 0 when
// they are equal, less or more than 0 as the left one comes before or after the right one.
int trim_stricmp(std::string_view left, std::string_view right) noexcept;

// Splits at every character of `delimiters`; empty pieces are kept. The pieces
// are views into `text`.
std::vector<std::string_view> split(std::string_view text, std::string_view delimiters);

struct name_value {
  std::string_view name;
  std::string_view value;
};

// Cuts a piece at its first `separator`, both halves trimmed. Without one the
// whole piece is the name and the value is empty.
name_value divide_str(std::string_view piece, char separator) noexcept;

}  // namespace zu::str
