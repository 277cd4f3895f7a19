#include "proj4/proj4_param.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/str.h"

namespace zu {

std::string value_text(double value) { return number::format_double(value); }

std::string value_text(int value) { return number::format_int(value); }

std::string value_text(shift_numbers const& values) {
  std::string text;
  for (double const value : values) {
    if (!text.empty()) text += ',';
    text += number::format_double(value);
  }
  return text;
}

bool is_same_value(std::string const& left, std::string const& right) noexcept {
  return str::trim_stricmp(left, right) == 0;
}

bool is_same_value(double left, double right) noexcept {
  return number::distance(left, right) < 1e-6;
}

bool is_same_value(shift_numbers const& left, shift_numbers const& right) noexcept {
  return std::ranges::equal(left, right,
                            [](double one, double other) { return is_same_value(one, other); });
}

}  // namespace zu

char const* Tzu_proj4_param::render(std::string_view value) {
  out_text_.clear();
  if (def_) out_text_.append("+").append(name_).append("=").append(value).append(" ");
  return out_text_.c_str();
}

char const* Tzu_proj4_param::render_flag() {
  out_text_.clear();
  if (def_) out_text_.append("+").append(name_).append(" ");
  return out_text_.c_str();
}

bool Tzu_proj4_param_str::val_from_str(char const* text) {
  value() = text;
  set_def(!value().empty());
  return true;
}

bool Tzu_proj4_param_dbl::val_from_str(char const* text) {
  auto const number = zu::number::scan_double(zu::str::trim(text));
  value() = number.value_or(value());
  set_def(number.has_value());
  return get_def();
}

bool Tzu_proj4_param_int::val_from_str(char const* text) {
  auto const number = zu::number::scan_int(zu::str::trim(text));
  value() = number.value_or(value());
  set_def(number.has_value());
  return get_def();
}

bool Tzu_proj4_param_bool::val_from_str(char const* /*text*/) {
  set_def(true);
  value() = true;
  return true;
}

bool Tzu_proj4_param_towgs84::val_from_str(char const* text) {
  auto const pieces = zu::str::split(text, ",");
  bool last_read = false;
  for (std::size_t i = 0; i < count; ++i) {
    if (i >= pieces.size()) {
      value()[i] = 0;
      continue;
    }
    auto const number = zu::number::scan_double(zu::str::trim(pieces[i]));
    value()[i] = number.value_or(0);
    last_read = number.has_value();
  }
  set_def(true);
  return last_read;
}

char const* Tzu_proj4_traits::dbl2str(double value) {
  static std::string buffer;
  buffer = zu::number::format_double(value);
  return buffer.c_str();
}
