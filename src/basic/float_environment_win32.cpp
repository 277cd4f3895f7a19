#include <immintrin.h>

#include "basic/float_environment.h"

namespace zu {

// MinGW's fesetenv leaves MXCSR as it is.

Tfloat_scope::Tfloat_scope() noexcept : mxcsr_(_mm_getcsr()) {
  // Neither instruction traps on an exception that is pending.
  // NOLINTNEXTLINE(hicpp-no-assembler)
  asm volatile("fnstenv %0\n\tfninit" : "=m"(environment_));
  constexpr unsigned all_masked = 0x1F80;
  _mm_setcsr(all_masked);
}

void Tfloat_scope::restore() const noexcept {
  // What is pending inside goes first, or loading would trap on it.
  // NOLINTNEXTLINE(hicpp-no-assembler)
  asm volatile("fnclex\n\tfldenv %0" : : "m"(environment_));
  _mm_setcsr(mxcsr_);
}

}  // namespace zu
