// A call that is cleaned up after whatever ends it.
#pragma once

namespace zu {

using wide_function = void*(void* window, void* first, void* second);

// What a call is cleaned up by, without context. `search` runs when an exception is
// thrown that nobody inside catches, before anything unwinds: on Windows who catches
// it has the floating-point environment of that moment. `finish` runs on its way out.
struct final_steps {
  void (*search)();
  void (*finish)();
};

// Returns what `function` returns. On Windows the steps are taken for exceptions of
// other languages, too, for which the compilers here run no destructors. One call at
// a time.
void* final_call(wide_function* function, void* window, void* first, void* second,
                 final_steps const& steps);

}  // namespace zu
