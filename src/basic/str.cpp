#include "basic/str.h"

#include <algorithm>

namespace zu::str {
namespace {

// The sets have only a few characters, so a loop is faster than a library call for each
// character of the text.
constexpr bool is_in(std::string_view set, char c) noexcept {
  return std::ranges::any_of(set, [c](char member) { return member == c; });
}

}  // namespace

std::string_view trim(std::string_view text, std::string_view set) noexcept {
  while (!text.empty() && is_in(set, text.front())) text.remove_prefix(1);
  while (!text.empty() && is_in(set, text.back())) text.remove_suffix(1);
  return text;
}

int trim_stricmp(std::string_view left, std::string_view right) noexcept {
  constexpr auto fold = [](char c) noexcept {
    return static_cast<int>(static_cast<unsigned char>(to_lower(c)));
  };
  left = trim(left);
  right = trim(right);
  auto const [left_rest, right_rest] = std::ranges::mismatch(left, right, {}, fold, fold);
  // cppcheck-suppress mismatchingContainerExpression
  return (left_rest == left.end() ? -1 : fold(*left_rest)) -
         (right_rest == right.end() ? -1 : fold(*right_rest));
}

std::vector<std::string_view> split(std::string_view text, std::string_view delimiters) {
  bool const single = delimiters.size() == 1;
  std::vector<std::string_view> pieces;
  pieces.reserve(32);
  for (;;) {
    auto const end = single ? text.find(delimiters.front()) : text.find_first_of(delimiters);
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
