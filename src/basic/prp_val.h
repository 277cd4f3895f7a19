// A property and its value.
#pragma once

#include <string>
#include <string_view>

// The value is text, and each getter converts it. A value that cannot be converted
// gives the default.
class Tzu_prp_val {
 public:
  Tzu_prp_val() = default;
  Tzu_prp_val(std::string_view name, std::string_view value) : name_(name), value_(value) {}
  // From "name=value", both trimmed; without a separator the whole text is the name.
  static Tzu_prp_val parse(std::string_view text, char separator = '=');
  // "name=value".
  std::string get_text(char separator = '=') const;

  std::string const& get_name() const noexcept { return name_; }
  std::string const& get_as_str() const noexcept { return value_; }
  // By the rules of basic/number.h.
  int get_as_int(int default_value = 0) const noexcept;
  double get_as_dbl(double default_value = 0) const noexcept;
  // "1", "true", "yes" and "on", "0", "false", "no" and "off", in either case.
  bool get_as_bool(bool default_value = false) const noexcept;

  void set_name(std::string_view name) { name_ = name; }
  void set_as_str(std::string_view value) { value_ = value; }
  void set_as_int(int value);
  // With 15 digits.
  void set_as_dbl(double value);
  // "1" or "0".
  void set_as_bool(bool value) { value_ = value ? "1" : "0"; }

 private:
  std::string name_;
  std::string value_;
};
