// A call that is cleaned up after whatever ends it.
#pragma once

namespace zu {

using wide_function = void*(void* window, void* first, void* second);

// Returns what `function` returns. When an exception leaves it, `finish` runs on
// its way out: on Windows also for exceptions of other languages, for which the
// compilers here run no destructors. One call at a time.
void* final_call(wide_function* function, void* window, void* first, void* second,
                 void (*finish)());

}  // namespace zu
