// The state of the floating-point units, as a host sets and sees it.
#pragma once

#include <xmmintrin.h>

#include <array>
#include <cstdint>
#include <ostream>

namespace core_test {

struct Tfloat_state {
  unsigned mxcsr = 0x1F80;
  unsigned control = 0x037F;  // the x87 unit's
  unsigned flags = 0;

  static Tfloat_state get() noexcept {
    Tfloat_state state{_mm_getcsr()};
    std::array<std::uint32_t, 7> x87{};
    // NOLINTNEXTLINE(hicpp-no-assembler)
    asm volatile("fnstenv %0\n\tfldenv %0" : "+m"(x87));
    state.control = x87[0] & 0xFFFFU;
    state.flags = x87[1] & 0x7FU;
    return state;
  }
  void set() const noexcept {
    std::array<std::uint32_t, 7> const x87{control, flags, 0xFFFF};
    // NOLINTNEXTLINE(hicpp-no-assembler)
    asm volatile("fnclex\n\tfldenv %0" : : "m"(x87));
    _mm_setcsr(mxcsr);
  }
  friend bool operator==(Tfloat_state const&, Tfloat_state const&) = default;
  friend std::ostream& operator<<(std::ostream& out, Tfloat_state const& state) {
    return out << std::hex << state.mxcsr << ' ' << state.control << ' ' << state.flags << std::dec;
  }
};

// Divisions by zero, invalid operations and overflows are trapped.
inline constexpr Tfloat_state trapping{0x1900, 0x0372};

}  // namespace core_test
