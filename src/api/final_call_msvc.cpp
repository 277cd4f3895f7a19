#include <windows.h>

#include "api/final_call.h"

namespace zu {

void* final_call(wide_function* function, void* window, void* first, void* second,
                 void (*finish)()) {
  __try {
    return function(window, first, second);
  } __finally {
    if (AbnormalTermination()) finish();
  }
}

}  // namespace zu
