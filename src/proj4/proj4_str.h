// A coordinate-system definition: typed parameters and their PROJ.4 text.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <utility>

#include "catalogue/definition_keys.h"
#include "proj4/proj4_param.h"

class Tzu_proj4_str {
 public:
  static constexpr std::size_t params_count = zu::definition_keys_count;

  Tzu_proj4_str();
  Tzu_proj4_str(Tzu_proj4_str const&) = delete;
  Tzu_proj4_str& operator=(Tzu_proj4_str const&) = delete;
  // Not virtual: no owner destroys a set through a pointer to this base.
  ~Tzu_proj4_str() = default;

  // Stores the text; nothing is parsed. Null counts as empty.
  void set(char const* text) { definition_ = text == nullptr ? "" : text; }
  // The definition; valid until the next set or compose.
  char const* get() const noexcept { return definition_.c_str(); }

  // Reads the definition into the parameters. Never fails: unknown keys are dropped, and a
  // number that cannot be read leaves its parameter undefined.
  void decompose();
  // Writes the parameters in list order, each followed by one blank, then "+lon_wrap=45 " when
  // the flag is set, then "+no_defs". Without any defined parameter the text is empty. A
  // sphere is written without its datum shift.
  void compose();
  // As compose, but a sphere is written with its radius as "+R=".
  void compose_for_proj4();

  // Describes the defined parameters for a user: lines "caption = value\r\n" in the interface
  // language, or one line that says that the projection is unknown. south, units and nadgrids
  // are not described. The text is in code page 1251, as interface texts are: show it through
  // zu::strconv::from_interface. Valid until the next get_text.
  char const* get_text();

  void set_all_undefined() noexcept;
  // A sphere has the ellipsoid "sphere", or equal axes, or an inverse flattening of zero.
  bool is_sphere() const noexcept;
  // A valid definition has a projection and an ellipsoid: by its name, by its axes or by a
  // datum.
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

  // A parameter by its key, with the type of its kind.
  template <zu::definition_key Key>
  auto& param() noexcept {
    return std::get<static_cast<std::size_t>(Key)>(params_);
  }
  template <zu::definition_key Key>
  auto const& param() const noexcept {
    return std::get<static_cast<std::size_t>(Key)>(params_);
  }
  // The same for a key that is known at run time only: calls act with the parameter.
  template <class Act>
  void visit(zu::definition_key key, Act act) const;
  Tzu_proj4_param_dbl& get_number(proj_number number) noexcept {
    return *numbers_.at(static_cast<std::size_t>(number));
  }

  Tzu_proj4_param_str& get_proj() noexcept { return param<zu::definition_key::proj>(); }
  Tzu_proj4_param_str& get_datum() noexcept { return param<zu::definition_key::datum>(); }
  Tzu_proj4_param_str& get_ellipse() noexcept { return param<zu::definition_key::ellps>(); }
  Tzu_proj4_param_str& get_units() noexcept { return param<zu::definition_key::units>(); }
  Tzu_proj4_param_dbl& get_lon_0() noexcept { return param<zu::definition_key::lon_0>(); }
  Tzu_proj4_param_dbl& get_lonc() noexcept { return param<zu::definition_key::lonc>(); }
  Tzu_proj4_param_dbl& get_lat_0() noexcept { return param<zu::definition_key::lat_0>(); }
  Tzu_proj4_param_dbl& get_x_0() noexcept { return param<zu::definition_key::x_0>(); }
  Tzu_proj4_param_dbl& get_y_0() noexcept { return param<zu::definition_key::y_0>(); }
  Tzu_proj4_param_dbl& get_lat_1() noexcept { return param<zu::definition_key::lat_1>(); }
  Tzu_proj4_param_dbl& get_lat_ts() noexcept { return param<zu::definition_key::lat_ts>(); }
  Tzu_proj4_param_dbl& get_lat_2() noexcept { return param<zu::definition_key::lat_2>(); }
  Tzu_proj4_param_dbl& get_k_0() noexcept { return param<zu::definition_key::k_0>(); }
  Tzu_proj4_param_dbl& get_k() noexcept { return get_k_0(); }
  Tzu_proj4_param_dbl& get_alpha() noexcept { return param<zu::definition_key::alpha>(); }
  Tzu_proj4_param_dbl& get_a() noexcept { return param<zu::definition_key::a>(); }
  Tzu_proj4_param_dbl& get_b() noexcept { return param<zu::definition_key::b>(); }
  Tzu_proj4_param_dbl& get_rf() noexcept { return param<zu::definition_key::rf>(); }
  Tzu_proj4_param_bool& get_south() noexcept { return param<zu::definition_key::south>(); }
  Tzu_proj4_param_towgs84& get_towgs84() noexcept { return param<zu::definition_key::towgs84>(); }
  Tzu_proj4_param_int& get_zone() noexcept { return param<zu::definition_key::zone>(); }
  Tzu_proj4_param_str& get_nadgrids() noexcept { return param<zu::definition_key::nadgrids>(); }

 private:
  // The type of each kind, in the order of key_kind.
  using kinds = std::tuple<Tzu_proj4_param_str, Tzu_proj4_param_dbl, Tzu_proj4_param_int,
                           Tzu_proj4_param_bool, Tzu_proj4_param_towgs84>;
  static constexpr auto places = std::make_index_sequence<params_count>();
  static constexpr auto number_places = std::make_index_sequence<proj_numbers_count>();

  // One parameter for each line of the table of keys.
  template <std::size_t... Places>
  static auto make_params(std::index_sequence<Places...> /*places*/) -> std::tuple<
      std::tuple_element_t<static_cast<std::size_t>(zu::definition_keys[Places].kind), kinds>...>;
  template <std::size_t... Places, std::size_t... Numbers>
  explicit Tzu_proj4_str(std::index_sequence<Places...> /*places*/,
                         std::index_sequence<Numbers...> /*numbers*/)
      : params_(zu::definition_keys[Places].name...),
        list_{&std::get<Places>(params_)...},
        numbers_{&param<zu::proj_numbers[Numbers].key>()...} {}

  enum class style { library, proj };
  void compose_as(style wanted);

  std::string text_;
  std::string definition_;
  decltype(make_params(places)) params_;
  std::array<Tzu_proj4_param*, params_count> list_;
  std::array<Tzu_proj4_param_dbl*, proj_numbers_count> numbers_;
  bool lon_wrap_ = true;
};

template <class Act>
void Tzu_proj4_str::visit(zu::definition_key key, Act act) const {
  auto const at = static_cast<std::size_t>(key);
  [&]<std::size_t... Places>(std::index_sequence<Places...>) {
    ((at == Places ? act(std::get<Places>(params_)) : void()), ...);
  }
  (places);
}
