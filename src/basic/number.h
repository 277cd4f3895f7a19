// Numbers in text, the same in every locale.
//
// A host, and also the form toolkit, may set a decimal comma; the C library would then
// read "0.9996" as 0 and write it as "0,9996". So the library reads and writes all
// numbers with these functions.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zu::number {

// Reads the number at the start of `text` by the rules of "%lg": white space before the
// number and any text after it are ignored ("1e" reads as 1). Empty when there is no
// number, or it does not fit a double. Infinities and NaNs are no coordinates and count
// as no number.
std::optional<double> scan_double(std::string_view text) noexcept;

// Reads a text that is one decimal number and nothing else. It is for places where text
// after a number changes its meaning ("37-30"). Empty for any other text.
std::optional<double> read_double(std::string_view text) noexcept;

// Reads a number of at most 15 digits at the start of `text`, with or without a sign and a
// point; nearly all numbers are such. Returns its length, or 0 if there is no such number. Of
// "1e5" it reads "1": the caller has to look at what follows.
// The digits as an integer and the power of ten are both exact, so their quotient is the
// nearest double.
std::size_t scan_plain(std::string_view text, double& value) noexcept;

// Reads the integer at the start of `text` by the rules of "%d". Empty when
// there is none or when it does not fit 32 bits.
std::optional<int> scan_int(std::string_view text) noexcept;

// Formats as "%.<digits>lg": 12 digits in definitions, 15 in edits.
std::string format_double(double value, int digits = 12);

// Appends as "%.<digits>f", with at most 100 digits.
void append_fixed(std::string& text, double value, int digits);
// The same to a place with room for `fixed_size` characters; returns the end of the text.
char* write_fixed(char* to, double value, int digits) noexcept;
// The largest double has 309 digits before the decimal point.
inline constexpr std::size_t fixed_size = 512;

// Formats as "%d".
std::string format_int(int value);

// The distance of two numbers. The largest double stands for a larger distance, and for
// the distance of something that is no finite number.
double distance(double left, double right) noexcept;

}  // namespace zu::number
