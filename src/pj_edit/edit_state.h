// The state of the dialog: the panels show it, and the editing rules read and change it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "catalogue/pj_defs.h"

namespace zu {

// Kind of a definition; the numbers are the keys of the type selector.
enum class definition_kind : unsigned { none = 1, usual = 2, zonal = 3 };

// The shift that is added to a definition without a datum.
enum class added_shift { none, pulkovo_1942, zeros };

// One number edit. Limits are inclusive. A limit counts only when its use flag is set.
struct number_state {
  bool shown = false;
  bool use_min = false;
  bool use_max = false;
  double min = 0;
  double max = 0;
  double value = 0;

  bool operator==(number_state const&) const = default;
};

struct edit_state {
  static constexpr std::uint32_t custom_datum = 0;

  definition_kind kind = definition_kind::none;
  std::uint32_t usual_id = 0;  // index of the usual record
  std::string zonal_name;      // trimmed caption of the zonal records
  int zone = 0;
  std::array<number_state, proj_numbers_count> numbers;
  std::string units;  // key of the definition; empty when it has none
  std::uint32_t datum_id = custom_datum;
  std::array<double, 7> shift{};  // as towgs84
  std::uint32_t ellipse_id = 0;
  // Pieces of the definition that this state cannot hold; empty when there are none. They
  // count until the user chooses a replacement.
  std::string lost_datum;
  std::string lost_grids;
  std::string lost_ellipse;
  // Counts until the user chooses a datum.
  added_shift added = added_shift::none;

  number_state& number(proj_number which) noexcept {
    return numbers[static_cast<std::size_t>(which)];
  }
  number_state const& number(proj_number which) const noexcept {
    return numbers[static_cast<std::size_t>(which)];
  }

  bool operator==(edit_state const&) const = default;
};

// A state and the unchanged definition that it came from. This is everything about an edited
// definition, so one copy is one step of undo.
struct edit_step {
  edit_state state;
  std::string given;

  bool operator==(edit_step const&) const = default;
};

// Clears an edit: hidden, no limits, and the value that PROJ uses for an absent key.
void clear_number(proj_number which, number_state& number) noexcept;

// Gives an edit the visibility, the limits and the value of a catalogue parameter. Without a
// value the edit keeps its own.
void apply_range(Tzu_pj_dbl_param const& range, number_state& number) noexcept;

}  // namespace zu
