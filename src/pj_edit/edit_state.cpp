#include "pj_edit/edit_state.h"

namespace zu {

void clear_number(proj_number which, number_state& number) noexcept {
  number = {};
  // An absent key means a scale of 1. A scale of 0 would move all points to one place.
  if (which == proj_number::k_0) number.value = 1;
}

void apply_range(Tzu_pj_dbl_param const& range, number_state& number) noexcept {
  number.shown = range.get_show();
  number.use_min = range.get_def_min();
  number.use_max = range.get_def_max();
  number.min = range.get_min();
  number.max = range.get_max();
  if (range.get_def_default()) number.value = range.get_default();
}

}  // namespace zu
