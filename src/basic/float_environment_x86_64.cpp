#include <immintrin.h>

#include "basic/float_environment.h"

// Uses the instructions themselves: MinGW's fesetenv does not set MXCSR, and the GNU
// library's takes as long as transforming a point. The x87 unit is set, too, because
// the C run-time library computes with it.
// NOLINTBEGIN(hicpp-no-assembler)

namespace zu {
namespace {

constexpr unsigned default_mxcsr = 0x1F80;
constexpr unsigned short default_control = 0x037F;
constexpr unsigned short status_flags = 0x007F;

unsigned short get_status() noexcept {
  unsigned short status = 0;
  asm volatile("fnstsw %0" : "=a"(status));
  return status;
}

// Traps where an exception is pending.
void set_control(unsigned short const& control) noexcept {
  asm volatile("fldcw %0" : : "m"(control));
}

}  // namespace

Tfloat_scope::Tfloat_scope() noexcept : mxcsr_(_mm_getcsr()), status_(get_status()) {
  asm volatile("fnstcw %0" : "=m"(control_));
  // The flags can only be restored with the whole environment.
  if ((status_ & status_flags) != 0) asm volatile("fnstenv %0\n\tfnclex" : "=m"(environment_));
  set_control(default_control);
  _mm_setcsr(default_mxcsr);
}

void Tfloat_scope::restore() const noexcept {
  if ((get_status() & status_flags) != 0) asm volatile("fnclex");
  if ((status_ & status_flags) == 0)
    set_control(control_);
  else
    asm volatile("fldenv %0" : : "m"(environment_));
  _mm_setcsr(mxcsr_);
}

}  // namespace zu

// NOLINTEND(hicpp-no-assembler)
