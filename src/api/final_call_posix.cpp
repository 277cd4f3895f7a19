#include "api/final_call.h"

namespace zu {

void* final_call(wide_function* function, void* window, void* first, void* second,
                 final_steps const& steps) {
  try {
    return function(window, first, second);
  } catch (...) {
    steps.search();
    steps.finish();
    throw;
  }
}

}  // namespace zu
