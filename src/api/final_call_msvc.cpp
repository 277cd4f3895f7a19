#include <windows.h>

#include "api/final_call.h"

namespace zu {

void* final_call(wide_function* function, void* window, void* first, void* second,
                 final_steps const& steps) {
  __try {
    __try {
      return function(window, first, second);
    } __except (steps.search(), EXCEPTION_CONTINUE_SEARCH) {
    }
  } __finally {
    if (AbnormalTermination()) steps.finish();
  }
  return nullptr;
}

}  // namespace zu
