// Parameters of a catalogue projection: what a record offers, fixes and limits.
#pragma once

#include <string>

// show: the user is offered the parameter; use_proj4: it belongs to the
// projection's PROJ.4 text; def_default: a default value is present.
class Tzu_pj_param {
 public:
  bool get_show() const noexcept { return show_; }
  void set_show(bool value) noexcept { show_ = value; }
  bool get_use_proj4() const noexcept { return use_proj4_; }
  void set_use_proj4(bool value) noexcept { use_proj4_ = value; }
  bool get_def_default() const noexcept { return def_default_; }
  void set_def_default(bool value) noexcept { def_default_ = value; }

 private:
  bool show_ = false;
  bool use_proj4_ = false;
  bool def_default_ = false;
};

template <class Value>
class Tzu_pj_value_param : public Tzu_pj_param {
 public:
  Value const& get_default() const noexcept { return default_; }
  void set_default(Value value) { default_ = std::move(value); }

 private:
  Value default_{};
};

using Tzu_pj_str_param = Tzu_pj_value_param<std::string>;
using Tzu_pj_bool_param = Tzu_pj_value_param<bool>;
using Tzu_pj_int_param = Tzu_pj_value_param<int>;

// Limits are inclusive. Their unit is the unit of the parameter's key.
class Tzu_pj_dbl_param : public Tzu_pj_value_param<double> {
 public:
  bool get_def_min() const noexcept { return def_min_; }
  void set_def_min(bool value) noexcept { def_min_ = value; }
  bool get_def_max() const noexcept { return def_max_; }
  void set_def_max(bool value) noexcept { def_max_ = value; }
  double get_min() const noexcept { return min_; }
  void set_min(double value) noexcept { min_ = value; }
  double get_max() const noexcept { return max_; }
  void set_max(double value) noexcept { max_ = value; }

 private:
  bool def_min_ = false;
  bool def_max_ = false;
  double min_ = 0;
  double max_ = 0;
};
