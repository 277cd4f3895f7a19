#include <immintrin.h>

#include "basic/float_environment.h"

namespace zu {

// The code of this compiler uses SSE only, and MXCSR holds all the state of SSE.

Tfloat_scope::Tfloat_scope() noexcept : mxcsr_(_mm_getcsr()) {
  constexpr unsigned all_masked = 0x1F80;
  _mm_setcsr(all_masked);
}

void Tfloat_scope::restore() const noexcept { _mm_setcsr(mxcsr_); }

}  // namespace zu
