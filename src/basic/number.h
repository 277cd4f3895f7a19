// Numbers in text, the same in every locale.
//
// A host, and the form toolkit itself, may set a decimal comma; the C library
// would then read "0.9996" as 0 and write it as "0,9996". Every number that
// the library scans or prints goes through this pair, and nothing else does.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zu::number {

// Reads the number at the start of `text` by the rules of "%lg": leading white
// space is passed over, what follows the number is ignored ("1e" reads as 1).
// Empty when there is no number, or none that a double can hold: infinities,
// NaNs and overflows are no coordinates and count as unreadable.
std::optional<double> scan_double(std::string_view text) noexcept;

// Reads a text that is a number and nothing else, in decimal: where what follows
// a number would change its meaning ("37-30"). Empty for any other.
std::optional<double> read_double(std::string_view text) noexcept;

// Reads the integer at the start of `text` by the rules of "%d". Empty when
// there is none or when it does not fit 32 bits.
std::optional<int> scan_int(std::string_view text) noexcept;

// Formats as "%.<digits>lg": 12 digits in definitions, 15 in edits.
std::string format_double(double value, int digits = 12);

// Appends as "%.<digits>f".
void append_fixed(std::string& text, double value, int digits);

// Formats as "%d".
std::string format_int(int value);

// How far apart two numbers are. The largest double stands for all that is farther,
// and for what no number is.
double distance(double left, double right) noexcept;

}  // namespace zu::number
