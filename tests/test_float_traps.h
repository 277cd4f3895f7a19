// Watches the floating-point units of the own thread.
#pragma once

#include <functional>

namespace core_test {

// What the processor tells of: an exception that is trapped, or one instruction.
enum class float_event { trap, step };

// Sees an event with the MXCSR it happened under; false ends the stepping. What was
// trapped is masked from then on.
using float_watcher = bool (*)(float_event event, unsigned mxcsr);

// Once in a process.
void watch_floats(float_watcher wanted);

}  // namespace core_test
