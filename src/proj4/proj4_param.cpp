#include "proj4/proj4_param.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/str.h"

namespace {

bool near(double left, double right) noexcept { return zu::number::distance(left, right) < 1e-6; }

// Two parameters of one kind are equal when both are undefined, or both are
// defined with values that the kind's rule finds equal.
template <class Param, class Rule>
bool equal_params(Param const& left, Param const& right, Rule equal_values) {
  if (left.get_def() != right.get_def()) return false;
  return !left.get_def() || equal_values();
}

}  // namespace

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

char const* Tzu_proj4_param_str::get_out_str() { return render(value_); }

bool Tzu_proj4_param_str::val_from_str(char const* text) {
  value_ = text;
  set_def(!value_.empty());
  return true;
}

void Tzu_proj4_param_str::set_param(Tzu_pj_str_param const& from) {
  set_def(from.get_def_default());
  if (from.get_def_default()) value_ = from.get_default();
}

void Tzu_proj4_param_str::set_param(Tzu_proj4_param_str const& from) {
  set_def(from.get_def());
  value_ = from.value_;
}

bool Tzu_proj4_param_str::equal(Tzu_proj4_param_str const& other) const noexcept {
  return equal_params(*this, other,
                      [&] { return zu::str::trim_stricmp(value_, other.value_) == 0; });
}

std::string Tzu_proj4_param_dbl::get_value_text() const {
  return zu::number::format_double(value_);
}

char const* Tzu_proj4_param_dbl::get_out_str() {
  return render(get_def() ? get_value_text() : std::string());
}

bool Tzu_proj4_param_dbl::val_from_str(char const* text) {
  auto const number = zu::number::scan_double(zu::str::trim(text));
  value_ = number.value_or(value_);
  set_def(number.has_value());
  return get_def();
}

void Tzu_proj4_param_dbl::set_param(Tzu_pj_dbl_param const& from) {
  set_def(from.get_def_default());
  if (from.get_def_default()) value_ = from.get_default();
}

void Tzu_proj4_param_dbl::set_param(Tzu_proj4_param_dbl const& from) {
  set_def(from.get_def());
  value_ = from.value_;
}

bool Tzu_proj4_param_dbl::equal(Tzu_proj4_param_dbl const& other) const noexcept {
  return equal_params(*this, other, [&] { return near(value_, other.value_); });
}

std::string Tzu_proj4_param_int::get_value_text() const { return zu::number::format_int(value_); }

char const* Tzu_proj4_param_int::get_out_str() { return render(get_value_text()); }

bool Tzu_proj4_param_int::val_from_str(char const* text) {
  auto const number = zu::number::scan_int(zu::str::trim(text));
  value_ = number.value_or(value_);
  set_def(number.has_value());
  return get_def();
}

void Tzu_proj4_param_int::set_param(Tzu_pj_int_param const& from) {
  set_def(from.get_def_default());
  if (from.get_def_default()) value_ = from.get_default();
}

void Tzu_proj4_param_int::set_param(Tzu_proj4_param_int const& from) {
  set_def(from.get_def());
  value_ = from.value_;
}

bool Tzu_proj4_param_int::equal(Tzu_proj4_param_int const& other) const noexcept {
  return equal_params(*this, other, [&] { return value_ == other.value_; });
}

char const* Tzu_proj4_param_bool::get_out_str() { return render_flag(); }

bool Tzu_proj4_param_bool::val_from_str(char const* /*text*/) {
  set_def(true);
  value_ = true;
  return true;
}

void Tzu_proj4_param_bool::set_param(Tzu_pj_bool_param const& from) {
  set_def(from.get_def_default());
  if (from.get_def_default()) value_ = from.get_default();
}

void Tzu_proj4_param_bool::set_param(Tzu_proj4_param_bool const& from) {
  set_def(from.get_def());
  value_ = from.value_;
}

bool Tzu_proj4_param_bool::equal(Tzu_proj4_param_bool const& other) const noexcept {
  return equal_params(*this, other, [&] { return value_ == other.value_; });
}

std::string Tzu_proj4_param_towgs84::get_value_text() const {
  std::string text;
  for (double const value : values_) {
    if (!text.empty()) text += ',';
    text += zu::number::format_double(value);
  }
  return text;
}

char const* Tzu_proj4_param_towgs84::get_out_str() {
  return render(get_def() ? get_value_text() : std::string());
}

bool Tzu_proj4_param_towgs84::val_from_str(char const* text) {
  auto const pieces = zu::str::split(text, ",");
  bool last_read = false;
  for (std::size_t i = 0; i < count; ++i) {
    if (i >= pieces.size()) {
      values_[i] = 0;
      continue;
    }
    auto const number = zu::number::scan_double(zu::str::trim(pieces[i]));
    values_[i] = number.value_or(0);
    last_read = number.has_value();
  }
  set_def(true);
  return last_read;
}

void Tzu_proj4_param_towgs84::set_param(Tzu_proj4_param_towgs84 const& from) {
  set_def(from.get_def());
  values_ = from.values_;
}

bool Tzu_proj4_param_towgs84::equal(Tzu_proj4_param_towgs84 const& other) const noexcept {
  return equal_params(*this, other,
                      [&] { return std::ranges::equal(values_, other.values_, near); });
}

char const* Tzu_proj4_traits::dbl2str(double value) {
  static std::string buffer;
  buffer = zu::number::format_double(value);
  return buffer.c_str();
}
