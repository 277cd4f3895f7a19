// Hosts that trap floating-point exceptions, round their own way or take small numbers
// for 0: nothing of the library's traps in them, and they get back what they had.
// The tests that are linked with float_traps_on.cpp show that our own arithmetic does
// not even need the scope.

#include "test_float_traps.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "basic/float_environment.h"
#include "basic/number.h"
#include "basic/thread.h"
#include "core_support.h"
#include "float_state.h"
#include "layer_support.h"
#include "reproj/reproj_d2.h"
#include "suite/zuk_prg.h"
#include "text/string_adapter.h"

namespace {

using core_test::Tfloat_state;
using core_test::trapping;

constexpr Tfloat_state as_c_has_it{};
constexpr unsigned flags = 0x3F;

// Traps and no flags; rounding up, in 24 bits; small numbers 0; flags raised; flags of
// which the next x87 instruction would trap; all other exceptions, too.
constexpr std::array<Tfloat_state, 6> hosts{{trapping,
                                             {0x5900, 0x0872},
                                             {0x9940, 0x0C7F},
                                             {0x1FBF, 0x037F, 0x3F},
                                             {0x1900, 0x0372, 0x04},
                                             {0x0000, 0x0340}}};

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): what handlers see
int traps = 0;
bool saw_scope = false;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

bool watch(core_test::float_event event, unsigned mxcsr) {
  if (event == core_test::float_event::trap) ++traps;
  saw_scope = saw_scope || (mxcsr & ~flags) == as_c_has_it.mxcsr;
  return !saw_scope;
}

// Steps through a call until it is in a scope.
template <class Call>
bool enters_scope(Call const& call) {
  saw_scope = false;
  // Past the red zone.
  // NOLINTBEGIN(hicpp-no-assembler)
  asm volatile(
      "lea -128(%%rsp), %%rsp\n\tpushfq\n\torl $0x100, (%%rsp)\n\tpopfq\n\tlea 128(%%rsp), %%rsp" ::
          : "memory", "cc");
  call();
  asm volatile(
      "lea -128(%%rsp), %%rsp\n\tpushfq\n\tandl $~0x100, (%%rsp)\n\tpopfq\n\tlea 128(%%rsp), "
      "%%rsp" ::
          : "memory", "cc");
  // NOLINTEND(hicpp-no-assembler)
  return saw_scope;
}

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

class Float_traps : public testing::Test {
 protected:
  static void SetUpTestSuite() { core_test::watch_floats(&watch); }
  void SetUp() override { traps = 0; }
  void TearDown() override { EXPECT_EQ(traps, 0); }
};

TEST_F(Float_traps, the_scope_is_as_c_has_it_and_gives_back_what_was_there) {
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
  // The host still traps what it does itself.
  after(trapping, [] {
    zu::in_float_scope(&divide_by_zero);
    divide_by_zero();
  });
  EXPECT_GE(std::exchange(traps, 0), 1);
}

// ---------------------------------------------------------------------------
// The C-style layer.

struct Tcall {
  std::string name;
  std::function<void()> make;
};

std::string name_in(std::string const& text) {
  std::smatch found;
  std::regex_search(text, found, std::regex("zu_[a-z0-9_]+"));
  return found.str();
}

// A call, by the name of the function in it.
// NOLINTBEGIN(cppcoreguidelines-macro-usage): the text of the call is its name
#define COMPUTES(...)                                              \
  Tcall {                                                          \
    name_in(#__VA_ARGS__), [&] { static_cast<void>(__VA_ARGS__); } \
  }
// NOLINTEND(cppcoreguidelines-macro-usage)

// But for those that only move values or text.
std::set<std::string> computing_functions() {
  std::set<std::string> names;
  std::regex const moving(
      "zu_(string_adp|vtx|box|pv|ov)_.*|zu_matrix3x3_init_single|zu_pj4_params_get(_count|_name)?");
  std::regex const function("\\b(zu_[a-z0-9_]+)\\(");
  for (char const* const header : {"zu_pj4_layer.h", "string_adp.h", "geometry.h"}) {
    std::ifstream file(std::filesystem::path(ZU_INCLUDE) / "zu_pj_edit" / header);
    std::string const text{std::istreambuf_iterator<char>(file), {}};
    for (std::sregex_iterator at(text.begin(), text.end(), function), end; at != end; ++at)
      if (!std::regex_match((*at)[1].str(), moving)) names.insert((*at)[1]);
  }
  return names;
}

constexpr char const* sphere = "+proj=longlat +R=6371000";
constexpr char const* polar = "+proj=stere +lat_0=90 +lat_ts=70 +a=6378137 +b=6356752";
constexpr wchar_t const* wide_sphere = L"+proj=longlat +R=6371000";
constexpr wchar_t const* wide_polar = L"+proj=stere +lat_0=90 +lat_ts=70 +a=6378137 +b=6356752";

TEST_F(Float_traps, every_function_of_the_layer_computes_in_a_scope) {
  constexpr std::size_t many = 20000;
  constexpr double infinity = std::numeric_limits<double>::infinity();
  std::wstring const pj4 = layer_file(L"a.pj4");
  std::wstring const prj = layer_file(L"a.prj");
  std::vector<double> x(many, 0);
  std::vector<double> y(many, 90);
  std::array<double, 7> numbers{1e308, -1e308};
  std::set<std::string> called;
  for (Tfloat_state const& host : hosts) {
    zu_pj4_params* params = nullptr;
    zu_rpj_d2* one_way = nullptr;
    zu_rpj_fb_d2* both_ways = nullptr;
    Tzu_vtx_d2 vertex{infinity, infinity};
    Tzu_vtx_d3 vertex3d{infinity, infinity, infinity};
    Tzu_box_d2 box{0, 80, 10, 90};
    Tzu_matrix3x3 matrix{};
    double number = 0;
    int integer = 0;
    char const* text = nullptr;
    std::wstring text_fed;
    Tzu_std_wstring_adapter target(&text_fed);
    zu::string_adp const owner(target);
    Izu_string_adp* const adapter = owner.get();
    auto const pv = zu::prg::pv_d2(zu_pv_d2_create(2));
    auto const ov = zu::prg::ov_d2(zu_ov_d2_create(1));
    auto const pv3d = zu::prg::pv_d3(zu_pv_d3_create(2));
    auto const ov3d = zu::prg::ov_d3(zu_ov_d3_create(1));
    zu_pv_d2_set_size(zu_ov_d2_get_pv_ptr(ov.get(), 0), 5000);
    zu_matrix3x3_init_single(&matrix);
    std::vector<Tcall> const calls{
        COMPUTES(zu_pj4_save_simple_w(pj4.c_str(), wide_polar)),
        COMPUTES(zu_pj4_load_simple_w(pj4.c_str(), adapter)),
        COMPUTES(zu_pj4_export_esri(wide_sphere, adapter)),
        COMPUTES(zu_pj4_export_esri_prj(wide_polar, prj.c_str())),
        COMPUTES(zu_pj4_import_esri(prj.c_str(), adapter)),
        COMPUTES(zu_pj4_import_esri_prj(L"GEOGCS[\"a\",DATUM[\"b\",SPHEROID[\"c\",6371000,0]]]",
                                        adapter)),
        COMPUTES(zu_pj4_import_crs(L"EPSG:3575", adapter)),
        COMPUTES(zu_pj4_get_text(sphere, adapter)),
        COMPUTES(zu_pj4_get_short_text(polar, adapter)),
        COMPUTES(zu_pj4_find_losses("+x_0=1e999 +k=1e300", nullptr, nullptr)),
        COMPUTES(params = zu_pj4_params_create()),
        COMPUTES(zu_pj4_params_set(params, polar)),
        COMPUTES(zu_pj4_params_decompose(params)),
        COMPUTES(zu_pj4_params_compose(params)),
        COMPUTES(zu_pj4_params_compose_for_proj4(params)),
        COMPUTES(zu_pj4_params_set_is_lon_wrap(params, 0)),
        COMPUTES(zu_pj4_params_is_valid(params)),
        COMPUTES(zu_pj4_params_is_sphere(params)),
        COMPUTES(zu_pj4_params_equal(params, params)),
        COMPUTES(zu_pj4_params_get_is_long_lat(params)),
        COMPUTES(zu_pj4_params_get_is_lon_wrap(params)),
        COMPUTES(zu_pj4_params_get_text(params, adapter)),
        COMPUTES(zu_pj4_params_get_def(params, "rf")),
        COMPUTES(zu_pj4_params_set_def(params, "rf", 1)),
        COMPUTES(zu_pj4_params_get_out_str(params, "rf")),
        COMPUTES(zu_pj4_params_val_from_str(params, "rf", "1e999")),
        COMPUTES(zu_pj4_params_get_str(params, "proj", &text)),
        COMPUTES(zu_pj4_params_set_str(params, "proj", "merc")),
        COMPUTES(zu_pj4_params_get_dbl(params, "rf", &number)),
        COMPUTES(zu_pj4_params_set_dbl(params, "rf", infinity)),
        COMPUTES(zu_pj4_params_get_int(params, "zone", &integer)),
        COMPUTES(zu_pj4_params_set_int(params, "zone", 7)),
        COMPUTES(zu_pj4_params_get_bool(params, "south", &integer)),
        COMPUTES(zu_pj4_params_set_bool(params, "south", 1)),
        COMPUTES(zu_pj4_params_set_towgs84(params, numbers.data())),
        COMPUTES(zu_pj4_params_get_towgs84(params, numbers.data())),
        COMPUTES(zu_pj4_params_set_is_long_lat(params)),
        COMPUTES(zu_pj4_params_set_all_undefined(params)),
        COMPUTES(zu_pj4_params_destroy(params)),

        COMPUTES(zu_matrix3x3_invert(&matrix)),

        COMPUTES(one_way = zu_rpj_d2_create()),
        COMPUTES(zu_rpj_d2_init_crs(one_way, wide_sphere, wide_polar)),
        COMPUTES(zu_rpj_d2_init_ex(one_way, sphere, "+proj=merc +R=6371000")),
        COMPUTES(zu_rpj_d2_set_use_reproj(one_way, 1)),
        COMPUTES(zu_rpj_d2_set_affine_before(one_way, &matrix)),
        COMPUTES(zu_rpj_d2_set_use_affine_before(one_way, 1)),
        COMPUTES(zu_rpj_d2_set_affine_after(one_way, &matrix)),
        COMPUTES(zu_rpj_d2_set_use_affine_after(one_way, 1)),
        COMPUTES(zu_rpj_d2_apply_vtx(one_way, &vertex)),
        COMPUTES(zu_rpj_d2_apply_pv(one_way, pv.get())),
        COMPUTES(zu_rpj_d2_apply_ov(one_way, ov.get())),
        COMPUTES(zu_rpj_d2_apply_vtx3d(one_way, &vertex3d)),
        COMPUTES(zu_rpj_d2_apply_pv3d(one_way, pv3d.get())),
        COMPUTES(zu_rpj_d2_apply_ov3d(one_way, ov3d.get())),
        COMPUTES(zu_rpj_d2_apply_box_approx(one_way, &box)),
        COMPUTES(zu_rpj_d2_apply_box_approx_ex(one_way, &box)),
        COMPUTES(zu_rpj_d2_clear_buffer(one_way)),
        COMPUTES(zu_rpj_d2_destroy(one_way)),

        COMPUTES(both_ways = zu_rpj_fb_d2_create()),
        COMPUTES(zu_rpj_fb_d2_init_crs(both_ways, wide_sphere, wide_polar)),
        COMPUTES(zu_rpj_fb_d2_init_ex(both_ways, sphere, "+proj=merc +R=6371000")),
        COMPUTES(zu_rpj_fb_d2_apply_xy(both_ways, many, x.data(), y.data(), 1)),
        COMPUTES(zu_rpj_fb_d2_set_use_reproj(both_ways, 1)),
        COMPUTES(zu_rpj_fb_d2_set_affine_before(both_ways, &matrix)),
        COMPUTES(zu_rpj_fb_d2_set_use_affine_before(both_ways, 1)),
        COMPUTES(zu_rpj_fb_d2_set_affine_after(both_ways, &matrix)),
        COMPUTES(zu_rpj_fb_d2_set_use_affine_after(both_ways, 1)),
        COMPUTES(zu_rpj_fb_d2_apply_vtx(both_ways, &vertex, 0)),
        COMPUTES(zu_rpj_fb_d2_apply_pv(both_ways, pv.get(), 0)),
        COMPUTES(zu_rpj_fb_d2_apply_ov(both_ways, ov.get(), 0)),
        COMPUTES(zu_rpj_fb_d2_apply_vtx3d(both_ways, &vertex3d, 0)),
        COMPUTES(zu_rpj_fb_d2_apply_pv3d(both_ways, pv3d.get(), 0)),
        COMPUTES(zu_rpj_fb_d2_apply_ov3d(both_ways, ov3d.get(), 0)),
        COMPUTES(zu_rpj_fb_d2_apply_box(both_ways, &box, 0)),
        COMPUTES(zu_rpj_fb_d2_apply_box_approx(both_ways, &box, 0)),
        COMPUTES(zu_rpj_fb_d2_clear_buffer(both_ways)),
        COMPUTES(zu_rpj_fb_d2_destroy(both_ways)),
    };
    for (Tcall const& each : calls) {
      bool const is_stepped = called.insert(each.name).second;
      bool entered = false;
      EXPECT_EQ(after(host,
                      [&] {
                        if (is_stepped)
                          entered = enters_scope(each.make);
                        else
                          each.make();
                      }),
                host)
          << each.name;
      EXPECT_EQ(entered, is_stepped) << each.name;
    }
  }
  EXPECT_EQ(called, computing_functions());
}

// Without the PROJ step all arithmetic is ours.
TEST_F(Float_traps, numbers_that_are_none_are_left_alone) {
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
    EXPECT_EQ(std::exchange(traps, 0), 0) << odd;
  }
}

}  // namespace
