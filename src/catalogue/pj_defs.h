// Records of the reference catalogue and the ordered lists that own them.
//
// Texts are 8-bit in the system's ANSI code page. Records never move once they
// are in a list, so a pointer to one stays valid until its list is cleared.
// Every look-up returns the first record in list order that matches, or null.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>

#include "catalogue/definition_keys.h"
#include "catalogue/pj_param.h"

class Tzu_pj_ellipse_def {
 public:
  std::uint32_t get_index() const noexcept { return index_; }  // unique id of the table
  void set_index(std::uint32_t value) noexcept { index_ = value; }
  std::string const& get_caption() const noexcept { return caption_; }
  void set_caption(std::string value) { caption_ = std::move(value); }
  std::string const& get_prj4_name() const noexcept { return prj4_name_; }  // "ellps" key
  void set_prj4_name(std::string value) { prj4_name_ = std::move(value); }
  double get_semi_major() const noexcept { return semi_major_; }  // metres
  void set_semi_major(double value) noexcept { semi_major_ = value; }
  double get_semi_minor() const noexcept { return semi_minor_; }  // metres
  void set_semi_minor(double value) noexcept { semi_minor_ = value; }
  double get_inv_flattening() const noexcept { return inv_flattening_; }
  void set_inv_flattening(double value) noexcept { inv_flattening_ = value; }
  bool get_def_semi_minor() const noexcept { return def_semi_minor_; }
  void set_def_semi_minor(bool value) noexcept { def_semi_minor_ = value; }
  bool get_def_inv_flattening() const noexcept { return def_inv_flattening_; }
  void set_def_inv_flattening(bool value) noexcept { def_inv_flattening_ = value; }

 private:
  std::uint32_t index_ = 0;
  std::string caption_;
  std::string prj4_name_;
  double semi_major_ = 0;
  double semi_minor_ = 0;
  double inv_flattening_ = 0;
  bool def_semi_minor_ = false;
  bool def_inv_flattening_ = false;
};

// The shift is towards WGS 84 with PROJ's signs (position vector): metres, arc-seconds, parts
// per million.
class Tzu_pj_datum_def {
 public:
  std::uint32_t get_index() const noexcept { return index_; }  // 1-based row of the table
  void set_index(std::uint32_t value) noexcept { index_ = value; }
  std::string const& get_caption() const noexcept { return caption_; }
  void set_caption(std::string value) { caption_ = std::move(value); }
  std::string const& get_prj4_name() const noexcept { return prj4_name_; }  // may be empty
  void set_prj4_name(std::string value) { prj4_name_ = std::move(value); }
  double get_shift_x() const noexcept { return shift_[0]; }
  void set_shift_x(double value) noexcept { shift_[0] = value; }
  double get_shift_y() const noexcept { return shift_[1]; }
  void set_shift_y(double value) noexcept { shift_[1] = value; }
  double get_shift_z() const noexcept { return shift_[2]; }
  void set_shift_z(double value) noexcept { shift_[2] = value; }
  double get_rotate_x() const noexcept { return shift_[3]; }
  void set_rotate_x(double value) noexcept { shift_[3] = value; }
  double get_rotate_y() const noexcept { return shift_[4]; }
  void set_rotate_y(double value) noexcept { shift_[4] = value; }
  double get_rotate_z() const noexcept { return shift_[5]; }
  void set_rotate_z(double value) noexcept { shift_[5] = value; }
  double get_scale_factor() const noexcept { return shift_[6]; }
  void set_scale_factor(double value) noexcept { shift_[6] = value; }
  std::uint32_t get_ellipse_index() const noexcept { return ellipse_index_; }
  void set_ellipse_index(std::uint32_t value) noexcept { ellipse_index_ = value; }

  // The seven numbers in the order of towgs84.
  std::array<double, 7> const& get_towgs84() const noexcept { return shift_; }
  void set_towgs84(std::array<double, 7> const& value) noexcept { shift_ = value; }

 private:
  std::uint32_t index_ = 0;
  std::string caption_;
  std::string prj4_name_;
  std::array<double, 7> shift_{};
  std::uint32_t ellipse_index_ = 0;
};

class Tzu_pj_proj_def {
 public:
  std::uint32_t get_index() const noexcept { return index_; }  // 1-based position in its list
  void set_index(std::uint32_t value) noexcept { index_ = value; }
  std::string const& get_caption() const noexcept { return caption_; }
  void set_caption(std::string value) { caption_ = std::move(value); }
  std::string const& get_add_caption() const noexcept { return add_caption_; }
  void set_add_caption(std::string value) { add_caption_ = std::move(value); }
  std::string const& get_prj4_name() const noexcept { return prj4_name_; }  // "proj" key
  void set_prj4_name(std::string value) { prj4_name_ = std::move(value); }

  Tzu_pj_int_param const& get_zone() const noexcept { return zone_; }
  Tzu_pj_int_param& get_zone() noexcept { return zone_; }
  Tzu_pj_str_param const& get_zone_name() const noexcept { return zone_name_; }
  Tzu_pj_str_param& get_zone_name() noexcept { return zone_name_; }
  Tzu_pj_bool_param const& get_south() const noexcept { return south_; }
  Tzu_pj_bool_param& get_south() noexcept { return south_; }
  Tzu_pj_str_param const& get_units() const noexcept { return units_; }
  Tzu_pj_str_param& get_units() noexcept { return units_; }
  Tzu_pj_str_param const& get_datum() const noexcept { return datum_; }
  Tzu_pj_str_param& get_datum() noexcept { return datum_; }

  Tzu_pj_dbl_param const& get_number(proj_number number) const noexcept {
    return numbers_[static_cast<std::size_t>(number)];
  }
  Tzu_pj_dbl_param& get_number(proj_number number) noexcept {
    return numbers_[static_cast<std::size_t>(number)];
  }
  Tzu_pj_dbl_param const& get_lon_0() const noexcept { return get_number(proj_number::lon_0); }
  Tzu_pj_dbl_param const& get_lonc() const noexcept { return get_number(proj_number::lonc); }
  Tzu_pj_dbl_param const& get_lat_0() const noexcept { return get_number(proj_number::lat_0); }
  Tzu_pj_dbl_param const& get_x_0() const noexcept { return get_number(proj_number::x_0); }
  Tzu_pj_dbl_param const& get_y_0() const noexcept { return get_number(proj_number::y_0); }
  Tzu_pj_dbl_param const& get_lat_ts() const noexcept { return get_number(proj_number::lat_ts); }
  Tzu_pj_dbl_param const& get_lat_1() const noexcept { return get_number(proj_number::lat_1); }
  Tzu_pj_dbl_param const& get_lat_2() const noexcept { return get_number(proj_number::lat_2); }
  Tzu_pj_dbl_param const& get_k_0() const noexcept { return get_number(proj_number::k_0); }
  Tzu_pj_dbl_param const& get_alpha() const noexcept { return get_number(proj_number::alpha); }

  // Whether this is a southern-hemisphere variant.
  bool is_south() const noexcept { return south_.get_use_proj4() && south_.get_default(); }

 private:
  std::uint32_t index_ = 0;
  std::string caption_;
  std::string add_caption_;
  std::string prj4_name_;
  Tzu_pj_int_param zone_;
  Tzu_pj_str_param zone_name_;
  std::array<Tzu_pj_dbl_param, proj_numbers_count> numbers_;
  Tzu_pj_bool_param south_;
  Tzu_pj_str_param units_;
  Tzu_pj_str_param datum_;
};

// What the lists of records have in common.
template <class Record>
class Tzu_pj_defs {
 public:
  void clear() noexcept { records_.clear(); }
  std::size_t get_size() const noexcept { return records_.size(); }
  void set_size(std::size_t size) { records_.resize(size); }
  Record const& get(std::size_t position) const { return records_.at(position); }
  Record& get(std::size_t position) { return records_.at(position); }
  // Appends an empty record.
  Record& add() { return records_.emplace_back(); }
  Record const* find_by_index(std::uint32_t index) const noexcept {
    return find([index](Record const& record) { return record.get_index() == index; });
  }
  auto begin() const noexcept { return records_.begin(); }
  auto end() const noexcept { return records_.end(); }

 protected:
  template <class Predicate>
  Record const* find(Predicate matches) const {
    for (Record const& record : records_)
      if (matches(record)) return &record;
    return nullptr;
  }

 private:
  std::deque<Record> records_;
};

class Tzu_pj_ellipse_defs : public Tzu_pj_defs<Tzu_pj_ellipse_def> {
 public:
  Tzu_pj_ellipse_def const* find_by_name(std::string_view prj4_name) const;
  // Finds an ellipsoid by its shape in metres. a must be equal. b or rf must be equal, or the
  // one computed from the other must be within 1e-6.
  Tzu_pj_ellipse_def const* find_by_params(bool has_a, double a, bool has_b, double b, bool has_rf,
                                           double rf) const;
};

class Tzu_pj_datum_defs : public Tzu_pj_defs<Tzu_pj_datum_def> {
 public:
  Tzu_pj_datum_def const* find_by_name(std::string_view prj4_name) const;
  Tzu_pj_datum_def const* find_by_caption(std::string_view caption) const;
  // Finds a datum by the id of its ellipsoid and the seven numbers, each within 1e-6.
  Tzu_pj_datum_def const* find_by_params(std::uint32_t ellipse_index,
                                         std::span<double const, 7> towgs84) const;
};

class Tzu_pj_proj_defs : public Tzu_pj_defs<Tzu_pj_proj_def> {
 public:
  // Captions are compared trimmed and without regard to case.
  Tzu_pj_proj_def const* find_by_caption_and_zone(std::string_view caption, int zone) const;
  Tzu_pj_proj_def const* find_utm(std::string_view prj4_name, int zone, bool south) const;
  Tzu_pj_proj_def const* find_by_name_south(std::string_view prj4_name, bool south) const;
  // Whether a record has the projection and fits lat_0 and south. A fixed lat_0 fits within
  // 0.0001 degree.
  static bool fits(Tzu_pj_proj_def const& record, std::string_view prj4_name, double lat_0,
                   bool south);
  // Finds the first record that fits and has each of lat_1, lat_2, lat_ts and k_0 that is
  // given. A given k_0 does not count when lat_ts is given.
  Tzu_pj_proj_def const* find_by_name_lat_south(std::string_view prj4_name, double lat_0,
                                                bool has_lat_1, bool has_lat_2, bool has_lat_ts,
                                                bool has_k_0, bool south) const;
};
