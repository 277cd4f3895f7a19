// A program with this file in it starts with traps on.

#include "float_state.h"

[[maybe_unused]] static bool const is_on = [] {
  core_test::trapping.set();
  return true;
}();
