#include "basic/prp_val.h"

#include <algorithm>
#include <array>

#include "basic/number.h"
#include "basic/str.h"

Tzu_prp_val Tzu_prp_val::parse(std::string_view text, char separator) {
  auto const [name, value] = zu::str::divide_str(text, separator);
  return {name, value};
}

std::string Tzu_prp_val::get_text(char separator) const { return name_ + separator + value_; }

int Tzu_prp_val::get_as_int(int default_value) const noexcept {
  return zu::number::scan_int(value_).value_or(default_value);
}

double Tzu_prp_val::get_as_dbl(double default_value) const noexcept {
  return zu::number::scan_double(value_).value_or(default_value);
}

bool Tzu_prp_val::get_as_bool(bool default_value) const noexcept {
  auto const is = [this](std::string_view word) {
    return zu::str::trim_stricmp(value_, word) == 0;
  };
  constexpr std::array<std::string_view, 4> yes{"1", "true", "yes", "on"};
  constexpr std::array<std::string_view, 4> no{"0", "false", "no", "off"};
  if (std::ranges::any_of(yes, is)) return true;
  return default_value && std::ranges::none_of(no, is);
}

void Tzu_prp_val::set_as_int(int value) { value_ = zu::number::format_int(value); }

void Tzu_prp_val::set_as_dbl(double value) { value_ = zu::number::format_double(value, 15); }
