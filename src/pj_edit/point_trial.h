// Tries a point: transforms it from WGS 84 to the edited system and back. Does not use the
// form toolkit.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "reproj/reproj_xy_exec.h"

namespace zu {

// Reads degrees: "37.5", "37 30", "37 30 15.5", "37°30'15.5\"", "37d30m15.5s". They may have a
// sign, or N, S, E or W (Cyrillic С, Ю, В, З) at the beginning or the end. Nothing for other
// texts, and for 60 or more minutes or seconds.
std::optional<double> read_angle(std::wstring_view text);

struct trial_result {
  std::optional<std::array<double, 2>> place;
  std::wstring failure;  // a sentence for the user when there is no place
};

// Transforms points in the same way as hosts. Longitude first, easting first.
class Tpoint_trial {
 public:
  // Takes the definition that Apply would return (in the system's code page).
  void set_definition(std::string const& definition);

  // From WGS 84 in degrees to coordinates of the definition, and back.
  trial_result forward(double longitude, double latitude);
  trial_result backward(double x, double y);

  // Whether the definition's coordinates are degrees as well.
  bool is_geographic() const noexcept { return is_geographic_; }

 private:
  trial_result transform(double x, double y, reproj_direction direction);

  Tzu_reproj_xy_exec reproj_;
  bool is_ready_ = false;
  bool is_geographic_ = false;
};

}  // namespace zu
