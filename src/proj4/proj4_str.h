// A coordinate-system definition: 21 typed parameters and their PROJ.4 text.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "proj4/proj4_param.h"

class Tzu_proj4_str {
 public:
  static constexpr std::size_t params_count = 21;

  Tzu_proj4_str();
  Tzu_proj4_str(Tzu_proj4_str const&) = delete;
  Tzu_proj4_str& operator=(Tzu_proj4_str const&) = delete;
  // Destroyed through its own type by every owner; derived sets add look-ups.
  ~Tzu_proj4_str() = default;

  // Stores the text; nothing is parsed. Null counts as empty.
  void set(char const* text) { definition_ = text == nullptr ? "" : text; }
  // The definition; valid until the next set or compose.
  char const* get() const noexcept { return definition_.c_str(); }

  // Reads the definition into the parameters. Never fails: keys that are not
  // among the 21 are dropped, numbers that do not read leave their parameter
  // undefined.
  void decompose();
  // Writes the parameters in list order, each followed by one blank, then
  // "+lon_wrap=45 " when the flag is set, then "+no_defs". Nothing defined
  // gives the empty text. A sphere has no datum shift.
  void compose();
  // As compose, but a sphere is written with its radius as "+R=".
  void compose_for_proj4();

  // The defined parameters for a user to read: lines "caption = value\r\n" in
  // the interface language, or one that calls the projection unknown. south,
  // units and nadgrids are not told. Code page 1251, as interface texts are; show
  // it through zu::strconv::from_interface. Valid until the next get_text.
  char const* get_text();

  void set_all_undefined() noexcept;
  // By the ellipsoid's name, by equal axes, or by a zero inverse flattening.
  bool is_sphere() const noexcept;
  // Has a projection and an ellipsoid in one of the forms.
  bool is_valid() const noexcept;
  // Compares all parameters but nadgrids; the lon_wrap flag does not count.
  bool equal(Tzu_proj4_str const& other) const noexcept;

  bool get_is_long_lat() const noexcept;
  // Makes the definition geographic; datum and ellipsoid stay.
  void set_is_long_lat();
  bool get_is_lon_wrap() const noexcept { return lon_wrap_; }
  void set_is_lon_wrap(bool value) noexcept { lon_wrap_ = value; }

  // The parameters in the order in which they are read and written.
  std::array<Tzu_proj4_param*, params_count> const& get_list() noexcept { return list_; }

  Tzu_proj4_param_str& get_proj() noexcept { return proj_; }
  Tzu_proj4_param_str& get_datum() noexcept { return datum_; }
  Tzu_proj4_param_str& get_ellipse() noexcept { return ellps_; }
  Tzu_proj4_param_str& get_units() noexcept { return units_; }
  Tzu_proj4_param_dbl& get_lon_0() noexcept { return lon_0_; }
  Tzu_proj4_param_dbl& get_lonc() noexcept { return lonc_; }
  Tzu_proj4_param_dbl& get_lat_0() noexcept { return lat_0_; }
  Tzu_proj4_param_dbl& get_x_0() noexcept { return x_0_; }
  Tzu_proj4_param_dbl& get_y_0() noexcept { return y_0_; }
  Tzu_proj4_param_dbl& get_lat_1() noexcept { return lat_1_; }
  Tzu_proj4_param_dbl& get_lat_ts() noexcept { return lat_ts_; }
  Tzu_proj4_param_dbl& get_lat_2() noexcept { return lat_2_; }
  Tzu_proj4_param_dbl& get_k_0() noexcept { return k_0_; }
  Tzu_proj4_param_dbl& get_k() noexcept { return k_0_; }
  Tzu_proj4_param_dbl& get_alpha() noexcept { return alpha_; }
  Tzu_proj4_param_dbl& get_a() noexcept { return a_; }
  Tzu_proj4_param_dbl& get_b() noexcept { return b_; }
  Tzu_proj4_param_dbl& get_rf() noexcept { return rf_; }
  Tzu_proj4_param_bool& get_south() noexcept { return south_; }
  Tzu_proj4_param_towgs84& get_towgs84() noexcept { return towgs84_; }
  Tzu_proj4_param_int& get_zone() noexcept { return zone_; }
  Tzu_proj4_param_str& get_nadgrids() noexcept { return nadgrids_; }

 private:
  enum class style { library, proj };
  void compose_as(style wanted);

  std::string text_;
  std::string definition_;
  Tzu_proj4_param_str proj_{"proj"};
  Tzu_proj4_param_str datum_{"datum"};
  Tzu_proj4_param_str ellps_{"ellps"};
  Tzu_proj4_param_str units_{"units"};
  Tzu_proj4_param_dbl lon_0_{"lon_0"};
  Tzu_proj4_param_dbl lonc_{"lonc"};
  Tzu_proj4_param_dbl lat_0_{"lat_0"};
  Tzu_proj4_param_dbl x_0_{"x_0"};
  Tzu_proj4_param_dbl y_0_{"y_0"};
  Tzu_proj4_param_dbl lat_1_{"lat_1"};
  Tzu_proj4_param_dbl lat_ts_{"lat_ts"};
  Tzu_proj4_param_dbl lat_2_{"lat_2"};
  Tzu_proj4_param_dbl k_0_{"k_0"};
  Tzu_proj4_param_dbl alpha_{"alpha"};
  Tzu_proj4_param_dbl a_{"a"};
  Tzu_proj4_param_dbl b_{"b"};
  Tzu_proj4_param_dbl rf_{"rf"};
  Tzu_proj4_param_bool south_{"south"};
  Tzu_proj4_param_towgs84 towgs84_{"towgs84"};
  Tzu_proj4_param_int zone_{"zone"};
  Tzu_proj4_param_str nadgrids_{"nadgrids"};
  std::array<Tzu_proj4_param*, params_count> list_;
  bool lon_wrap_ = true;
};
