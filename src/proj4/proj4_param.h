// One parameter of a PROJ.4 definition: its key, the other keys accepted when
// reading, whether the definition gives it, and its value by kind.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "catalogue/pj_param.h"

// A parameter that becomes undefined keeps its last value. The value counts again when the
// parameter is defined later. The parameter owns the texts that it returns as pointers. They
// stay valid until its next get_out_str.
class Tzu_proj4_param {
 public:
  Tzu_proj4_param(Tzu_proj4_param const&) = delete;
  Tzu_proj4_param& operator=(Tzu_proj4_param const&) = delete;

  // "+name=value " when defined, else empty.
  virtual char const* get_out_str() = 0;
  // Sets value and def from text. The meaning of the result depends on the kind, see below.
  virtual bool val_from_str(char const* text) = 0;

  char const* get_name() const noexcept { return name_.c_str(); }
  std::string_view name() const noexcept { return name_; }
  void set_name(char const* name) { name_ = name; }
  void clear_other_names() noexcept { other_names_.clear(); }
  void add_other_name(std::string_view name) { other_names_.emplace_back(name); }
  unsigned get_other_names_count() const noexcept {
    return static_cast<unsigned>(other_names_.size());
  }
  char const* get_other_name(unsigned index) const { return other_names_.at(index).c_str(); }
  bool get_def() const noexcept { return def_; }
  void set_def(bool def) noexcept { def_ = def; }

 protected:
  explicit Tzu_proj4_param(std::string_view name) : name_(name) {}
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

namespace zu {

// Seven numbers towards WGS 84: dx, dy, dz in metres, rx, ry, rz in arc-seconds
// (position vector), scale in ppm.
using shift_numbers = std::array<double, 7>;

// A value as a definition has it: "%.12lg", "%d", seven numbers separated by ",". A flag
// has none.
inline std::string const& value_text(std::string const& value) noexcept { return value; }
std::string value_text(double value);
std::string value_text(int value);
inline std::string value_text(bool /*value*/) { return {}; }
std::string value_text(shift_numbers const& values);

// Texts are compared trimmed and without regard to case, doubles within 1e-6.
bool is_same_value(std::string const& left, std::string const& right) noexcept;
bool is_same_value(double left, double right) noexcept;
constexpr bool is_same_value(int left, int right) noexcept { return left == right; }
constexpr bool is_same_value(bool left, bool right) noexcept { return left == right; }
bool is_same_value(shift_numbers const& left, shift_numbers const& right) noexcept;

}  // namespace zu

// What the kinds have in common.
template <class Value>
class Tzu_proj4_value_param : public Tzu_proj4_param {
 public:
  char const* get_out_str() override {
    if constexpr (std::is_same_v<Value, bool>)
      return render_flag();
    else
      return get_def() ? render(get_value_text()) : render({});
  }
  // The value alone, defined or not, as get_out_str writes it.
  decltype(auto) get_value_text() const { return zu::value_text(value_); }

  // From a parameter of the catalogue: defined when that has a default.
  void set_param(Tzu_pj_value_param<Value> const& from) {
    set_def(from.get_def_default());
    if (from.get_def_default()) value_ = from.get_default();
  }
  void set_param(Tzu_proj4_value_param const& from) {
    set_def(from.get_def());
    value_ = from.value_;
  }
  // Both undefined, or both defined with the same value.
  bool equal(Tzu_proj4_value_param const& other) const noexcept {
    return get_def() == other.get_def() && (!get_def() || zu::is_same_value(value_, other.value_));
  }

 protected:
  using Tzu_proj4_param::Tzu_proj4_param;
  ~Tzu_proj4_value_param() = default;
  Value const& value() const noexcept { return value_; }
  Value& value() noexcept { return value_; }

 private:
  Value value_{};
};

// Empty text undefines and clears; anything else is the value as passed.
class Tzu_proj4_param_str final : public Tzu_proj4_value_param<std::string> {
 public:
  explicit Tzu_proj4_param_str(std::string_view name) : Tzu_proj4_value_param(name) {}
  bool val_from_str(char const* text) override;
  char const* get_str() const noexcept { return value().c_str(); }
  void set_str(char const* text) { value() = text; }
};

// Read with "%lg" from the trimmed text, defined when a number was read;
// written with "%.12lg".
class Tzu_proj4_param_dbl final : public Tzu_proj4_value_param<double> {
 public:
  explicit Tzu_proj4_param_dbl(std::string_view name) : Tzu_proj4_value_param(name) {}
  bool val_from_str(char const* text) override;
  double get_dbl() const noexcept { return value(); }
  void set_dbl(double number) noexcept { value() = number; }
};

// Read and written with "%d".
class Tzu_proj4_param_int final : public Tzu_proj4_value_param<int> {
 public:
  explicit Tzu_proj4_param_int(std::string_view name) : Tzu_proj4_value_param(name) {}
  bool val_from_str(char const* text) override;
  int get_int() const noexcept { return value(); }
  void set_int(int number) noexcept { value() = number; }
};

// A flag: any text, even "false", defines it as true; a defined flag is written
// whatever its value.
class Tzu_proj4_param_bool final : public Tzu_proj4_value_param<bool> {
 public:
  explicit Tzu_proj4_param_bool(std::string_view name) : Tzu_proj4_value_param(name) {}
  bool val_from_str(char const* text) override;
  bool get_bool() const noexcept { return value(); }
  void set_bool(bool flag) noexcept { value() = flag; }
};

// Missing and unreadable numbers are 0; seven are always written. val_from_str
// returns whether the last number tried was read.
class Tzu_proj4_param_towgs84 final : public Tzu_proj4_value_param<zu::shift_numbers> {
 public:
  static constexpr std::size_t count = std::tuple_size_v<zu::shift_numbers>;

  explicit Tzu_proj4_param_towgs84(std::string_view name) : Tzu_proj4_value_param(name) {}
  bool val_from_str(char const* text) override;
  double get_dbl(unsigned index) const { return value().at(index); }
  void set_dbl(unsigned index, double number) { value().at(index) = number; }
  zu::shift_numbers const& get_values() const noexcept { return value(); }
  void set_values(zu::shift_numbers const& values) noexcept { value() = values; }
};

class Tzu_proj4_traits {
 public:
  // "%.12lg" in a static buffer, valid until the next call.
  static char const* dbl2str(double value);
};
