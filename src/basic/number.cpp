#include "basic/number.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zu::number {
namespace {

constexpr std::string_view white_space = " \t\n\v\f\r";

struct unsigned_text {
  std::string_view digits;
  bool negative = false;
};

// Takes off the white space and the one sign that scanf allows; from_chars
// itself accepts neither white space nor "+".
unsigned_text take_sign(std::string_view text) noexcept {
  auto const start = text.find_first_not_of(white_space);
  if (start == std::string_view::npos) return {};
  text.remove_prefix(start);
  bool const negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) return {};
  return {text, negative};
}

bool is_hex(std::string_view digits) noexcept {
  // from_chars would take a sign after the prefix.
  return digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X') &&
         digits[2] != '-';
}

}  // namespace

std::optional<double> scan_double(std::string_view text) noexcept {
  auto [digits, negative] = take_sign(text);
  double value = 0;
  auto const parse = [&value](std::string_view part, std::chars_format format) {
    auto const [end, error] = std::from_chars(part.data(), part.data() + part.size(), value, format);
    return error == std::errc{} && end != part.data();
  };
  bool const read = (is_hex(digits) && parse(digits.substr(2), std::chars_format::hex)) ||
                    parse(digits, std::chars_format::general);
  if (!read || !std::isfinite(value)) return std::nullopt;
  return negative ? -value : value;
}

std::optional<int> scan_int(std::string_view text) noexcept {
  auto const [digits, negative] = take_sign(text);
  long long value = 0;
  auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc{} || end == digits.data()) return std::nullopt;
  if (negative) value = -value;
  if (value < INT32_MIN || value > INT32_MAX) return std::nullopt;
  return static_cast<int>(value);
}

std::string format_double(double value, int digits) {
  std::array<char, 64> buffer{};
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::general, digits);
  return {buffer.data(), result.ptr};
}

std::string format_int(int value) { return std::to_string(value); }

}  // namespace zu::number
