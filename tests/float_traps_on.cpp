// Whoever has this in it reckons with traps on from its start.

#include "float_state.h"

[[maybe_unused]] static bool const is_on = [] {
  core_test::trapping.set();
  return true;
}();
