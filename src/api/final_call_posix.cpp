#include "api/final_call.h"

namespace zu {

void* final_call(wide_function* function, void* window, void* first, void* second,
                 void (*finish)()) {
  try {
    return function(window, first, second);
  } catch (...) {
    finish();
    throw;
  }
}

}  // namespace zu
