// One parameter of a PROJ.4 definition: its key, the other keys accepted when
// reading, whether the definition gives it, and its value by kind.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/pj_param.h"

// A parameter that becomes undefined keeps its last value, which counts again
// when it is defined later. Texts that are returned as pointers belong to the
// parameter and stay valid until its next get_out_str.
// The kinds with a value give it alone from get_value_text, defined or not, as
// get_out_str writes it.
class Tzu_proj4_param {
 public:
  Tzu_proj4_param(Tzu_proj4_param const&) = delete;
  Tzu_proj4_param& operator=(Tzu_proj4_param const&) = delete;

  // "+name=value " when defined, else empty.
  virtual char const* get_out_str() = 0;
  // Sets value and def from text; the result is the kind's, see below.
  virtual bool val_from_str(char const* text) = 0;

  char const* get_name() const noexcept { return name_.c_str(); }
  std::string_view name() const noexcept { return name_; }
  void set_name(char const* name) { name_ = name; }
  void clear_other_names() noexcept { other_names_.clear(); }
  void add_other_name(char const* name) { other_names_.emplace_back(name); }
  unsigned get_other_names_count() const noexcept {
    return static_cast<unsigned>(other_names_.size());
  }
  char const* get_other_name(unsigned index) const { return other_names_.at(index).c_str(); }
  bool get_def() const noexcept { return def_; }
  void set_def(bool def) noexcept { def_ = def; }

 protected:
  explicit Tzu_proj4_param(char const* name) : name_(name) {}
  ~Tzu_proj4_param() = default;
  // Renders "+name=value ", or nothing when undefined.
  char const* render(std::string_view value);
  char const* render_flag();

 private:
  std::string name_;
  std::vector<std::string> other_names_;
  bool def_ = false;
  std::string out_text_;
};

// Empty text undefines and clears; anything else is the value as passed.
class Tzu_proj4_param_str final : public Tzu_proj4_param {
 public:
  explicit Tzu_proj4_param_str(char const* name) : Tzu_proj4_param(name) {}
  char const* get_out_str() override;
  bool val_from_str(char const* text) override;
  std::string const& get_value_text() const noexcept { return value_; }
  char const* get_str() const noexcept { return value_.c_str(); }
  void set_str(char const* value) { value_ = value; }
  void set_param(Tzu_pj_str_param const& from);
  void set_param(Tzu_proj4_param_str const& from);
  bool equal(Tzu_proj4_param_str const& other) const noexcept;

 private:
  std::string value_;
};

// Read with "%lg" from the trimmed text, defined when a number was read;
// written with "%.12lg".
class Tzu_proj4_param_dbl final : public Tzu_proj4_param {
 public:
  explicit Tzu_proj4_param_dbl(char const* name) : Tzu_proj4_param(name) {}
  char const* get_out_str() override;
  bool val_from_str(char const* text) override;
  std::string get_value_text() const;
  double get_dbl() const noexcept { return value_; }
  void set_dbl(double value) noexcept { value_ = value; }
  void set_param(Tzu_pj_dbl_param const& from);
  void set_param(Tzu_proj4_param_dbl const& from);
  bool equal(Tzu_proj4_param_dbl const& other) const noexcept;

 private:
  double value_ = 0;
};

// Read and written with "%d".
class Tzu_proj4_param_int final : public Tzu_proj4_param {
 public:
  explicit Tzu_proj4_param_int(char const* name) : Tzu_proj4_param(name) {}
  char const* get_out_str() override;
  bool val_from_str(char const* text) override;
  std::string get_value_text() const;
  int get_int() const noexcept { return value_; }
  void set_int(int value) noexcept { value_ = value; }
  void set_param(Tzu_pj_int_param const& from);
  void set_param(Tzu_proj4_param_int const& from);
  bool equal(Tzu_proj4_param_int const& other) const noexcept;

 private:
  int value_ = 0;
};

// A flag: any text, even "false", defines it as true; a defined flag is written
// whatever its value.
class Tzu_proj4_param_bool final : public Tzu_proj4_param {
 public:
  explicit Tzu_proj4_param_bool(char const* name) : Tzu_proj4_param(name) {}
  char const* get_out_str() override;
  bool val_from_str(char const* text) override;
  bool get_bool() const noexcept { return value_; }
  void set_bool(bool value) noexcept { value_ = value; }
  void set_param(Tzu_pj_bool_param const& from);
  void set_param(Tzu_proj4_param_bool const& from);
  bool equal(Tzu_proj4_param_bool const& other) const noexcept;

 private:
  bool value_ = false;
};

// Seven numbers towards WGS 84: dx, dy, dz in metres, rx, ry, rz in arc-seconds
// (position vector), scale in ppm. Missing and unreadable numbers are 0; seven
// are always written. val_from_str returns whether the last number tried was
// read.
class Tzu_proj4_param_towgs84 final : public Tzu_proj4_param {
 public:
  static constexpr std::size_t count = 7;

  explicit Tzu_proj4_param_towgs84(char const* name) : Tzu_proj4_param(name) {}
  char const* get_out_str() override;
  bool val_from_str(char const* text) override;
  std::string get_value_text() const;  // separated by ","
  double get_dbl(unsigned index) const { return values_.at(index); }
  void set_dbl(unsigned index, double value) { values_.at(index) = value; }
  std::array<double, count> const& get_values() const noexcept { return values_; }
  void set_values(std::array<double, count> const& values) noexcept { values_ = values; }
  void set_param(Tzu_proj4_param_towgs84 const& from);
  bool equal(Tzu_proj4_param_towgs84 const& other) const noexcept;

 private:
  std::array<double, count> values_{};
};

class Tzu_proj4_traits {
 public:
  // "%.12lg" in a static buffer, valid until the next call.
  static char const* dbl2str(double value);
};
