#include "basic/str.h"

#include <algorithm>

namespace zu::str {
namespace {

constexpr char to_lower(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string_view trim(std::string_view text, std::string_view set) noexcept {
  auto const first = text.find_first_not_of(set);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(set) - first + 1);
}

bool equal_no_case(std::string_view left, std::string_view right) noexcept {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return to_lower(a) == to_lower(b); });
}

bool trim_stricmp_equal(std::string_view left, std::string_view right) noexcept {
  return equal_no_case(trim(left), trim(right));
}

std::vector<std::string_view> split(std::string_view text, std::string_view delimiters) {
  std::vector<std::string_view> pieces;
  for (;;) {
    auto const end = text.find_first_of(delimiters);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

name_value divide_str(std::string_view piece, char separator) noexcept {
  auto const at = piece.find(separator);
  if (at == std::string_view::npos) return {trim(piece), {}};
  return {trim(piece.substr(0, at)), trim(piece.substr(at + 1))};
}

}  // namespace zu::str
