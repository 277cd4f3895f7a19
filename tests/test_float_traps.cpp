// Hosts that trap floating-point exceptions, round their own way or take small numbers
// for 0: nothing of the library's traps in them, which would end the program, and they get
// back what they had.
// The tests that are linked with float_traps_on.cpp show that our own arithmetic does
// not even need the scope.

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "basic/float_environment.h"
#include "basic/number.h"
#include "basic/thread.h"
#include "float_state.h"
#include "layer_support.h"
#include "reproj/reproj_d2.h"
#include "text/string_adapter.h"

namespace {

using core_test::Tfloat_state;
using core_test::trapping;

constexpr Tfloat_state as_c_has_it{};
// Traps and no flags; rounding up, in 24 bits; small numbers 0; flags raised; flags of
// which the next x87 instruction would trap; all other exceptions, too.
constexpr std::array<Tfloat_state, 6> hosts{{trapping,
                                             {0x5900, 0x0872},
                                             {0x9940, 0x0C7F},
                                             {0x1FBF, 0x037F, 0x3F},
                                             {0x1900, 0x0372, 0x04},
                                             {0x0000, 0x0340}}};

// By both units.
void divide_by_zero() {
  volatile double zero = 0;
  volatile double quotient = 1 / zero;
  volatile long double wide_zero = 0;
  volatile long double wide_quotient = 1 / wide_zero;
  static_cast<void>(quotient);
  static_cast<void>(wide_quotient);
}

// The host's state after a call. The test itself continues with C's own.
template <class Call>
Tfloat_state after(Tfloat_state const& host, Call const& call) {
  host.set();
  call();
  Tfloat_state const left = Tfloat_state::get();
  as_c_has_it.set();
  return left;
}

TEST(Float_traps, the_scope_is_as_c_has_it_and_gives_back_what_was_there) {
  for (Tfloat_state const& host : hosts) {
    Tfloat_state inside;
    Tfloat_state of_thread;
    EXPECT_EQ(
        after(host,
              [&] {
                zu::Tfloat_scope const scope;
                inside = Tfloat_state::get();
                divide_by_zero();
                zu::in_float_scope(&divide_by_zero);
                zu::Tthread thread;
                thread.start(
                    [](void* state) { *static_cast<Tfloat_state*>(state) = Tfloat_state::get(); },
                    &of_thread);
              }),
        host);
    EXPECT_EQ(inside, as_c_has_it);
    EXPECT_EQ(of_thread, as_c_has_it);
    EXPECT_EQ(after(host,
                    [] {
                      try {
                        zu::Tfloat_scope const scope;
                        // As a callback may leave it.
                        trapping.set();
                        throw std::runtime_error("thrown inside");
                      } catch (std::runtime_error const&) {
                      }
                    }),
              host);
  }
}

TEST(Float_traps, the_layer_works_as_in_any_host_and_leaves_no_trace) {
  for (Tfloat_state const& host : hosts) {
    EXPECT_EQ(after(host, &test_layer), host);
    EXPECT_EQ(layer_result(), 0) << host;
  }
}

// Numbers overflow here, and PROJ and GDAL divide by zero, in the threads for many points, too.
TEST(Float_traps, what_would_trap_traps_in_no_host) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  std::vector<double> x(20000, 0);
  std::vector<double> y(20000, 90);
  for (Tfloat_state const& host : hosts) {
    std::string text;
    Tzu_vtx_d2 vertex{infinity, infinity};
    Tzu_matrix3x3 matrix{{3, 0, 0, 0, 3, 0, 0, 0, 1e-308}};
    EXPECT_EQ(after(host,
                    [&] {
                      zu_matrix3x3_invert(&matrix);
                      Tzu_std_string_adapter target(&text);
                      zu::string_adp const adapter(target);
                      zu_pj4_import_crs(L"EPSG:3575", adapter.get());
                      zu_pj4_export_esri(L"+proj=longlat +R=6371000", adapter.get());
                      zu_pj4_find_losses("+x_0=1e999 +k=1e300", nullptr, nullptr);
                      zu_rpj_fb_d2* const both = zu_rpj_fb_d2_create();
                      zu_rpj_fb_d2_init_ex(
                          both, "+proj=longlat +R=6371000",
                          "+proj=stere +lat_0=90 +lat_ts=70 +a=6378137 +b=6356752");
                      zu_rpj_fb_d2_apply_xy(both, x.size(), x.data(), y.data(), 1);
                      zu_rpj_fb_d2_apply_vtx(both, &vertex, 1);
                      zu_rpj_fb_d2_destroy(both);
                    }),
              host);
    EXPECT_FALSE(text.empty());
  }
}

// Without the PROJ step all arithmetic is ours.
TEST(Float_traps, numbers_that_are_none_are_left_alone) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
  Tzu_reproj_fb_d2 chain;
  chain.get_reproj().set_use_reproj(false);
  chain.get_reproj().set_affine_after({{0, 1, 0, 1, 0, 0, 0, 0, 1}});
  chain.get_reproj().set_use_affine_after(true);
  for (double const odd : {infinity, -infinity, not_a_number, 1e308}) {
    after(trapping, [&] {
      Tzu_vtx_d2 vertex{odd, 1};
      Tzu_box_d2 box{0, 0, odd, 1};
      chain.apply_vtx(&vertex, true);
      chain.apply_box(&box, false);
      chain.apply_box_approx(&box, true);
      std::string text = zu::number::format_double(odd);
      zu::number::append_fixed(text, odd, 3);
      zu::number::distance(odd, -odd);
    });
  }
}

}  // namespace
