// A call with a clean-up that always runs, whatever ends the call.
#pragma once

namespace zu {

using wide_function = void*(void* window, void* first, void* second);

// The clean-up of a call, without context. `search` runs when an exception is thrown that
// nobody inside the call catches, before the stack is unwound: on Windows the code that
// catches it gets the floating-point environment of that moment. `finish` runs during the
// unwinding.
struct final_steps {
  void (*search)();
  void (*finish)();
};

// Returns the result of `function`. On Windows the steps also run for exceptions of other
// languages; our compilers run no destructors for those. One call at a time.
void* final_call(wide_function* function, void* window, void* first, void* second,
                 final_steps const& steps);

}  // namespace zu
