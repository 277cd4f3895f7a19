#include "basic/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace zu::number {
namespace {

constexpr bool is_white_space(char c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }

struct unsigned_text {
  std::string_view digits;
  bool negative = false;
};

// Removes the white space and the one sign that scanf allows; from_chars accepts neither
// white space nor "+".
unsigned_text take_sign(std::string_view text) noexcept {
  while (!text.empty() && is_white_space(text.front())) text.remove_prefix(1);
  if (text.empty()) return {};
  bool const negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) return {};
  return {text, negative};
}

// Exact as doubles.
constexpr std::array<double, 16> powers{1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool is_hex(std::string_view digits) noexcept {
  // from_chars would take a sign after the prefix.
  return digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X') &&
         digits[2] != '-';
}

// Counts the digits of a number without an exponent, from the first digit that is not 0.
int significant_digits(std::string_view fixed) noexcept {
  int count = 0;
  for (char const c : fixed)
    if (c >= '1' || (c == '0' && count > 0)) ++count;
  return count;
}

// The digits of 0 to 99, two for each.
constexpr std::array<char, 200> make_digit_pairs() noexcept {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i)
    pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
  return pairs;
}
constexpr auto digit_pairs = make_digit_pairs();

void put_pair(char* to, std::uint32_t value) noexcept {
  std::memcpy(to, digit_pairs.data() + std::size_t{2} * value, 2);
}

constexpr int most_short_digits = 9;
constexpr std::array<std::uint32_t, most_short_digits + 1> small_powers{
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

// Writes nine digits of a number below 1e9.
void put_nine(char* to, std::uint32_t value) noexcept {
  std::uint32_t const first = value / 100000;
  std::uint32_t const last = value % 100000;
  put_pair(to, first / 100);
  put_pair(to + 2, first % 100);
  put_pair(to + 4, last / 1000);
  put_pair(to + 6, last / 10 % 100);
  to[8] = static_cast<char>('0' + last % 10);
}

// Writes most coordinates and returns the end; null for the others. Only the product of
// the fraction and the power of ten is rounded, by less than 1e-7, so the digits are
// right unless the rest is close to a half. Measured: 11 to 16 ns, where std::to_chars
// takes 105 ns.
char* write_short(char* to, double value, int digits) noexcept {
  double const size = std::abs(value);
  // With a NaN the operator would raise a floating-point exception.
  if (!std::isless(size, 1e15) || digits > most_short_digits) return nullptr;
  // Conversions to integers are faster than std::trunc, and no branch depends on a digit.
  auto whole = static_cast<std::int64_t>(size);
  auto const missing = static_cast<std::size_t>(most_short_digits - digits);
  double const power = powers[static_cast<std::size_t>(digits)];
  double const scaled = (size - static_cast<double>(whole)) * power;
  auto fraction = static_cast<std::int64_t>(scaled);
  double const rest = scaled - static_cast<double>(fraction);
  if (std::abs(rest - 0.5) < 1e-6) return nullptr;
  fraction += static_cast<std::int64_t>(rest > 0.5);
  if (static_cast<double>(fraction) >= power) {
    fraction = 0;
    ++whole;
  }
  if (std::signbit(value)) *to++ = '-';
  to = std::to_chars(to, to + 16, whole).ptr;
  if (digits == 0) return to;
  *to++ = '.';
  put_nine(to, static_cast<std::uint32_t>(fraction) * small_powers[missing]);
  return to + digits;
}

}  // namespace

std::size_t scan_plain(std::string_view text, double& value) noexcept {
  bool const negative = !text.empty() && text.front() == '-';
  std::size_t const sign = !text.empty() && (negative || text.front() == '+') ? 1 : 0;
  std::uint64_t whole = 0;
  std::size_t point = std::string_view::npos;
  std::size_t at = sign;
  for (; at < text.size(); ++at) {
    auto const digit = static_cast<unsigned>(text[at]) - '0';
    if (digit < 10)
      whole = whole * 10 + digit;
    else if (text[at] == '.' && point == std::string_view::npos)
      point = at;
    else
      break;
  }
  std::size_t const digits = at - sign - (point < at ? 1 : 0);
  if (digits == 0 || digits >= powers.size()) return 0;
  double const size = static_cast<double>(static_cast<std::int64_t>(whole)) /
                      powers[point < at ? at - point - 1 : 0];
  value = negative ? -size : size;
  return at;
}

std::optional<double> scan_double(std::string_view text) noexcept {
  auto [digits, negative] = take_sign(text);
  double value = 0;
  if (scan_plain(digits, value) == digits.size() && !digits.empty())
    return negative ? -value : value;
  auto const parse = [&value](std::string_view part, std::chars_format format) {
    auto const [end, error] =
        std::from_chars(part.data(), part.data() + part.size(), value, format);
    return error == std::errc{} && end != part.data();
  };
  bool const read = (is_hex(digits) && parse(digits.substr(2), std::chars_format::hex)) ||
                    parse(digits, std::chars_format::general);
  if (!read || !std::isfinite(value)) return std::nullopt;
  return negative ? -value : value;
}

std::optional<double> read_double(std::string_view text) noexcept {
  if (text.empty() || is_white_space(text.front())) return std::nullopt;
  double value = 0;
  if (scan_plain(text, value) == text.size()) return value;
  auto const [digits, negative] = take_sign(text);
  char const* const last = digits.data() + digits.size();
  auto const [end, error] = std::from_chars(digits.data(), last, value);
  if (error != std::errc{} || end != last || !std::isfinite(value)) return std::nullopt;
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
  char* const first = buffer.data();
  char* const last = first + buffer.size();
  // The shortest text that reads back as the value is the right one if it has no more
  // digits than wanted and a double can hold so many. It is faster for the short
  // numbers of definitions. Measured: 40 ns, where the call below takes 60 ns.
  double const size = std::abs(value);
  if (digits <= 15 && std::isgreaterequal(size, 1e-4) && std::isless(size, 1e12)) {
    bool const whole = value == std::trunc(value);
    char* const end = whole ? std::to_chars(first, last, static_cast<std::int64_t>(value)).ptr
                            : std::to_chars(first, last, value, std::chars_format::fixed).ptr;
    if (significant_digits({first, end}) <= digits) return {first, end};
  }
  char* const end = std::to_chars(first, last, value, std::chars_format::general, digits).ptr;
  return {first, end};
}

char* write_fixed(char* to, double value, int digits) noexcept {
  digits = std::clamp(digits, 0, 100);
  if (char* const end = write_short(to, value, digits)) return end;
  return std::to_chars(to, to + fixed_size, value, std::chars_format::fixed, digits).ptr;
}

void append_fixed(std::string& text, double value, int digits) {
  std::array<char, fixed_size> buffer{};
  text.append(buffer.data(), write_fixed(buffer.data(), value, digits));
}

std::string format_int(int value) { return std::to_string(value); }

double distance(double left, double right) noexcept {
  constexpr double largest = std::numeric_limits<double>::max();
  if (!std::isfinite(left) || !std::isfinite(right)) return largest;
  // The difference of two large numbers may overflow.
  double const half = std::abs(left / 2 - right / 2);
  return half < largest / 2 ? half * 2 : largest;
}

}  // namespace zu::number
