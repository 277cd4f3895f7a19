// Random use of all that is exported, for as long as one likes, in one process:
// nothing may pile up, and nothing may depend on what was done before. The number
// of acts is ZU_SOAK_ACTS, or a few.

#include <gtest/gtest.h>
#include <malloc.h>
#include <wx/button.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <optional>
#include <random>

#include "core_support.h"
#include "gui_support.h"
#include "interchange/known_systems.h"
#include "text/strconv.h"
#include "vcl/toolkit.h"
#include "zu_pj_edit/zu_pj4_layer.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace {

template <class Handle>
using owned = std::unique_ptr<Handle, void (*)(Handle*)>;

// A use of the exported and the C-style functions, good or bad, told by its number
// alone.
class Tact {
 public:
  explicit Tact(std::size_t number) : random_(static_cast<unsigned>(number)) {}

  // All that came out of it.
  std::string run() {
    constexpr std::array acts{&Tact::params,    &Tact::conversions,         &Tact::files,
                              &Tact::reproject, &Tact::reproject_both_ways, &Tact::geometry};
    // The dialog takes longer than all others together.
    if (below(25) == 0)
      dialog();
    else
      (this->*acts.at(below(acts.size())))();
    return told_;
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }
  bool one_in(std::size_t count) { return below(count) == 0; }
  int flag(std::size_t count = 2) { return one_in(count) ? 1 : 0; }
  template <class List>
  auto const& any_of(List const& list) {
    return list[below(list.size())];
  }

  void tell(std::string const& text) { told_.append(text).append("|"); }
  void tell(char const* text) { tell(std::string(text == nullptr ? "(null)" : text)); }
  void tell(int value) { tell(std::to_string(value)); }
  // In their order, which that of a function's arguments need not be.
  void tell(std::initializer_list<int> results) {
    for (int const result : results) tell(result);
  }
  // Bit by bit, but for a number that is none.
  void tell(double value) {
    std::array<char, 64> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "%a", std::isnan(value) ? 0 : value));
    tell(text.data());
  }
  // Of a point that failed no more is promised.
  void tell_point(double x, double y) {
    bool const finite = std::isfinite(x) && std::isfinite(y);
    tell(finite ? x : 0);
    tell(finite ? y : 0);
  }
  template <class Produce>
  void tell_fed(Produce produce) {
    std::string taken;
    owned<Izu_string_adp> const adapter(
        zu_string_adp_create(
            [](char const* text, void* all) {
              static_cast<std::string*>(all)->append("n:").append(text);
            },
            [](wchar_t const* text, void* all) {
              static_cast<std::string*>(all)->append("w:").append(zu::strconv::to_utf8(text));
            },
            &taken),
        zu_string_adp_destroy);
    produce(adapter.get());
    tell(taken);
  }

  std::string damaged(std::string text) {
    static std::array<std::string, 9> const pieces{
        "", "+", "=", " ", "1e999", "nan", "-", "+towgs84=1,2", "\""};
    for (std::size_t count = one_in(2) ? 0 : 1 + below(4); count > 0; --count) {
      std::string piece = any_of(pieces);
      if (one_in(4)) piece.assign(1, static_cast<char>(1 + below(255)));
      if (one_in(4)) piece = text.substr(0, below(30));
      text.replace(below(text.size() + 1), below(8), piece);
    }
    return text;
  }
  std::string definition() {
    static std::array<std::string, 8> const others{
        "",
        "+proj=utm +zone=37 +south +datum=WGS84 +units=m",
        "+proj=longlat +ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22",
        "+proj=stere +lat_0=90 +lat_ts=70 +lon_0=-45 +a=6378273 +b=6356889.449 +units=km",
        "+proj=lcc +lat_1=62 +lat_2=54 +lat_0=58 +lon_0=100 +ellps=krass +nadgrids=no_such_grid",
        "+proj=merc +a=6378137 +b=6378137 +nadgrids=@null +wktext",
        "+proj=omerc +lat_0=4 +lonc=102.25 +alpha=323.0257905 +k_0=0.99984 +ellps=evrstSS",
        "+proj=longlat +datum=WGS84 +no_defs"};
    return damaged(one_in(2) ? any_of(others) : any_of(zu::known_systems).proj4);
  }
  static std::wstring wide(std::string const& text) { return {text.begin(), text.end()}; }
  double number() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    static constexpr std::array<double, 8> odd{
        0, -0.0, 90, 95, 1e300, infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
    if (one_in(10)) return any_of(odd);
    return static_cast<double>(random_()) / (one_in(2) ? 1e3 : 2e7) - 20;
  }

  void params() {
    owned<zu_pj4_params> const one(zu_pj4_params_create(), zu_pj4_params_destroy);
    owned<zu_pj4_params> const other(zu_pj4_params_create(), zu_pj4_params_destroy);
    zu_pj4_params* const set = one.get();
    for (auto* const each : {set, other.get()})
      tell({zu_pj4_params_set(each, definition().c_str()), zu_pj4_params_decompose(each)});
    tell({zu_pj4_params_equal(set, other.get()), zu_pj4_params_is_valid(set),
          zu_pj4_params_is_sphere(set), zu_pj4_params_get_is_long_lat(set)});
    for (int changes = 0; changes < 8; ++changes) {
      char const* const name = zu_pj4_params_get_name(set, static_cast<unsigned>(below(23)));
      std::array<double, 7> shift{number(), 2, 3, 4, 5, 6, number()};
      double real = 0;
      int whole = 0;
      char const* text = "unset";
      tell({zu_pj4_params_val_from_str(set, name, definition().substr(0, 12).c_str()),
            zu_pj4_params_set_def(set, name, flag()), zu_pj4_params_set_dbl(set, name, number()),
            zu_pj4_params_set_int(set, name, static_cast<int>(below(70))),
            zu_pj4_params_set_bool(set, name, flag()),
            zu_pj4_params_set_str(set, name, definition().substr(0, 9).c_str()),
            zu_pj4_params_set_towgs84(set, shift.data()),
            zu_pj4_params_get_towgs84(set, shift.data()), zu_pj4_params_get_dbl(set, name, &real),
            zu_pj4_params_get_int(set, name, &whole), zu_pj4_params_get_bool(set, name, &whole),
            whole, zu_pj4_params_get_str(set, name, &text), zu_pj4_params_get_def(set, name)});
      for (double const value : shift) tell(value);
      tell(real);
      tell(text);
      tell(zu_pj4_params_get_out_str(set, name));
    }
    if (one_in(4)) tell(zu_pj4_params_set_is_long_lat(set));
    tell({zu_pj4_params_set_is_lon_wrap(set, flag()), zu_pj4_params_get_is_lon_wrap(set),
          one_in(2) ? zu_pj4_params_compose(set) : zu_pj4_params_compose_for_proj4(set)});
    tell(zu_pj4_params_get(set));
    tell_fed([&](auto* adapter) { tell(zu_pj4_params_get_text(set, adapter)); });
    tell({zu_pj4_params_set_all_undefined(set), static_cast<int>(zu_pj4_params_get_count())});
  }

  void conversions() {
    std::string const narrow = definition();
    std::wstring const text = wide(narrow);
    std::wstring const wkt = wide(damaged(any_of(zu::known_systems).wkt));
    static std::array<std::string, 5> const forms{"EPSG:28407", "urn:ogc:def:crs:EPSG::4326",
                                                  "+init=epsg:3857", "/etc/passwd", "WGS84"};
    std::wstring const crs = wide(one_in(2) ? damaged(any_of(forms)) : definition());
    tell_fed([&](auto* adapter) {
      tell({zu_pj4_get_text(narrow.c_str(), adapter),
            zu_pj4_get_short_text(narrow.c_str(), adapter),
            zu_pj4_export_esri(text.c_str(), adapter), zu_pj4_import_esri_prj(wkt.c_str(), adapter),
            zu_pj4_import_crs(crs.c_str(), adapter)});
      zu_string_adp_feed(adapter, text.c_str());
      zu_string_adp_feed_c(adapter, narrow.c_str());
    });
  }

  void files() {
    core_test::Ttemp_folder const folder;
    std::wstring const pj4 = folder.wide(one_in(4) ? L"no/f.pj4" : L"f.pj4");
    std::wstring const prj = folder.wide(one_in(4) ? L"no/f.prj" : L"f.prj");
    std::wstring const text = wide(definition());
    zu_pj4_save_simple_w(pj4.c_str(), text.c_str());
    tell(zu_pj4_export_esri_prj(text.c_str(), prj.c_str()));
    if (one_in(2))
      core_test::put_file(folder.file("f.prj"), damaged(any_of(zu::known_systems).wkt));
    if (one_in(2)) core_test::put_file(folder.file("f.pj4"), definition());
    tell_fed([&](auto* adapter) {
      zu_pj4_load_simple_w(pj4.c_str(), adapter);
      tell(zu_pj4_import_esri(prj.c_str(), adapter));
    });
  }

  Tzu_matrix3x3 matrix() {
    Tzu_matrix3x3 step{};
    zu_matrix3x3_init_single(&step);
    for (int changes = 0; changes < 3; ++changes) step.e[below(9)] = number();
    return step;
  }

  // `call` calls one of the two functions, for handles that go one way or both.
  template <class Call>
  void set_up(Call const& call) {
    Tzu_matrix3x3 const before = matrix();
    Tzu_matrix3x3 const after = matrix();
    std::string const from = definition();
    std::string const to = definition();
    tell({one_in(2) ? call(zu_rpj_d2_init_ex, zu_rpj_fb_d2_init_ex, from.c_str(), to.c_str())
                    : call(zu_rpj_d2_init_crs, zu_rpj_fb_d2_init_crs, wide(from).c_str(),
                           wide(to).c_str()),
          call(zu_rpj_d2_set_affine_before, zu_rpj_fb_d2_set_affine_before, &before),
          call(zu_rpj_d2_set_affine_after, zu_rpj_fb_d2_set_affine_after, &after),
          call(zu_rpj_d2_set_use_affine_before, zu_rpj_fb_d2_set_use_affine_before, flag(4)),
          call(zu_rpj_d2_set_use_affine_after, zu_rpj_fb_d2_set_use_affine_after, flag(4)),
          call(zu_rpj_d2_set_use_reproj, zu_rpj_fb_d2_set_use_reproj, 1 - flag(8))});
  }

  template <class Apply>
  void run_geometry(Apply const& apply) {
    Tzu_vtx_d2 point{number(), number()};
    tell(apply(zu_rpj_d2_apply_vtx, zu_rpj_fb_d2_apply_vtx, &point));
    tell_point(point.x, point.y);
    Tzu_vtx_d3 spot{number(), number(), 5};
    tell(apply(zu_rpj_d2_apply_vtx3d, zu_rpj_fb_d2_apply_vtx3d, &spot));
    tell_point(spot.x, spot.y);
    tell(spot.z);
    owned<Tzu_op2d> const set(zu_ov_d2_create(1), zu_ov_d2_destroy);
    Tzu_pp2d* const flat = zu_ov_d2_get_pv_ptr(set.get(), 0);
    // Long enough for threads at times.
    tell(zu_pv_d2_set_size(flat, one_in(6) ? 5000 : below(20)));
    for (std::size_t i = 0; i < zu_pv_d2_get_size(flat); ++i) {
      point = {number(), number()};
      zu_pv_d2_set_vtx(flat, i, &point);
    }
    tell(apply(zu_rpj_d2_apply_ov, zu_rpj_fb_d2_apply_ov, set.get()));
    for (std::size_t i = 0; zu_pv_d2_get_vtx(flat, i, &point) != 0; ++i)
      tell_point(point.x, point.y);
    tell({apply(zu_rpj_d2_apply_pv, zu_rpj_fb_d2_apply_pv, flat),
          static_cast<int>(zu_ov_d2_get_size(set.get()))});
    owned<Tzu_ovtx_d3> const space_set(zu_ov_d3_create(1), zu_ov_d3_destroy);
    Tzu_pvtx_d3* const space = zu_ov_d3_get_pv_ptr(space_set.get(), 0);
    tell({zu_pv_d3_set_size(space, 2), zu_pv_d3_set_vtx(space, below(3), &spot),
          apply(zu_rpj_d2_apply_pv3d, zu_rpj_fb_d2_apply_pv3d, space),
          apply(zu_rpj_d2_apply_ov3d, zu_rpj_fb_d2_apply_ov3d, space_set.get()),
          zu_pv_d3_get_vtx(space, 0, &spot), static_cast<int>(zu_ov_d3_get_size(space_set.get()))});
    tell_point(spot.x, spot.y);
    Tzu_box_d2 box{};
    zu_box_d2_init_xy(&box, number(), number(), number(), number());
    tell({apply(zu_rpj_d2_apply_box_approx, zu_rpj_fb_d2_apply_box, &box),
          apply(zu_rpj_d2_apply_box_approx_ex, zu_rpj_fb_d2_apply_box_approx, &box)});
    tell_point(box.min_x, box.min_y);
    tell_point(box.max_x, box.max_y);
  }

  void reproject() {
    owned<zu_rpj_d2> const reproj(zu_rpj_d2_create(), zu_rpj_d2_destroy);
    auto const call = [&](auto one_way, auto /*both_ways*/, auto... arguments) {
      return one_way(reproj.get(), arguments...);
    };
    for (int rounds = 0; rounds < 2; ++rounds) {
      set_up(call);
      run_geometry(call);
      if (one_in(2)) tell(zu_rpj_d2_clear_buffer(reproj.get()));
    }
  }

  void reproject_both_ways() {
    owned<zu_rpj_fb_d2> const reproj(zu_rpj_fb_d2_create(), zu_rpj_fb_d2_destroy);
    set_up([&](auto /*one_way*/, auto both_ways, auto... arguments) {
      return both_ways(reproj.get(), arguments...);
    });
    for (int const way : {1, 0}) {
      run_geometry([&](auto /*one_way*/, auto both_ways, auto* geometry) {
        return both_ways(reproj.get(), geometry, way);
      });
      std::array<double, 3> x{number(), number(), number()};
      std::array<double, 3> y{number(), number(), number()};
      tell(zu_rpj_fb_d2_apply_xy(reproj.get(), x.size(), x.data(), y.data(), way));
      for (std::size_t i = 0; i < x.size(); ++i) tell_point(x.at(i), y.at(i));
    }
    tell(zu_rpj_fb_d2_clear_buffer(reproj.get()));
  }

  void geometry() {
    Tzu_matrix3x3 step = matrix();
    tell(zu_matrix3x3_invert(&step));
    for (double const value : step.e) tell(value);
    owned<Tzu_pp2d> const flat(zu_pv_d2_create(below(9)), zu_pv_d2_destroy);
    owned<Tzu_pvtx_d3> const space(zu_pv_d3_create(below(9)), zu_pv_d3_destroy);
    Tzu_vtx_d2 point{};
    Tzu_vtx_d3 spot{};
    zu_vtx_d2_init_xy(&point, number(), number());
    zu_vtx_d3_init_xyz(&spot, number(), number(), number());
    // More than any memory.
    std::size_t const size = one_in(2) ? std::numeric_limits<std::size_t>::max() / 4 : 3;
    tell({zu_pv_d2_set_vtx(flat.get(), below(9), &point), zu_pv_d2_set_size(flat.get(), size),
          zu_pv_d2_get_vtx(flat.get(), below(9), &point),
          zu_pv_d3_set_vtx(space.get(), below(9), &spot),
          zu_pv_d3_get_vtx(space.get(), below(9), &spot),
          static_cast<int>(zu_pv_d2_get_size(flat.get()) + zu_pv_d3_get_size(space.get()))});
    tell_point(point.x, point.y);
  }

  void dialog() {
    std::string const text = definition();
    auto const pressed = one_in(2) ? gui::Tbar::apply : gui::Tbar::cancel;
    gui::outcome const got = gui::open_dialog(text.c_str(), [&](gui::Tform& form) {
      wxButton& button = *form.get_buttons()->get_button(pressed);
      wxCommandEvent event(wxEVT_BUTTON, button.GetId());
      button.ProcessWindowEvent(event);
    });
    tell(got.text);
    tell({got.changed, zu_proj4_form_execute_w(nullptr, nullptr, nullptr) == nullptr ? 1 : 0});
  }

  std::mt19937 random_;
  std::string told_;
};

// Numbers of acts that are there; each comes up again and again.
constexpr std::size_t different_acts = 200;

std::size_t count_entries(char const* folder) {
  std::filesystem::directory_iterator const entries(folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

struct usage {
  std::size_t bytes = mallinfo2().uordblks;                // of the C library's memory
  std::size_t files = count_entries("/proc/self/fd");      // open
  std::size_t threads = count_entries("/proc/self/task");  // running
};

TEST(Soak, nothing_piles_up_and_nothing_is_remembered) {
  char const* const wanted = std::getenv("ZU_SOAK_ACTS");
  std::size_t const acts = wanted == nullptr ? 600 : std::strtoull(wanted, nullptr, 10);
  std::mt19937 random(5);  // NOLINT(cert-msc51-cpp): repeatable
  std::vector<std::optional<std::size_t>> outcomes(different_acts);
  std::vector<usage> usages;
  // All once, which fills what is kept for good; then by chance.
  for (std::size_t i = 0; i < different_acts + acts; ++i) {
    std::size_t const number = i < different_acts ? i : random() % different_acts;
    std::size_t const outcome = std::hash<std::string>()(Tact(number).run());
    ASSERT_EQ(outcomes[number].value_or(outcome), outcome) << "act " << number;
    outcomes[number] = outcome;
    if (i + 1 >= different_acts &&
        (i + 1 - different_acts) % std::max<std::size_t>(acts / 4, 1) == 0)
      usages.emplace_back();
  }
  for (usage const& each : usages)
    std::printf("%zu bytes, %zu files, %zu threads\n", each.bytes, each.files, each.threads);
  // The toolkit's own come and go.
  EXPECT_LE(usages.back().files, usages[1].files + 2);
  EXPECT_LE(usages.back().threads, usages[1].threads + 2);
  EXPECT_LT(usages.back().bytes, usages[1].bytes + 65536 + 20 * acts);
  // A process that does nothing else does the same.
  for (std::size_t number = 0; number < different_acts; number += wanted == nullptr ? 20 : 1) {
    auto const alone =
        core_test::run({core_test::program_path().string(), {"--act", std::to_string(number)}, ""});
    EXPECT_EQ(alone.out, std::to_string(outcomes[number].value())) << "act " << number << alone.err;
  }
}

}  // namespace

int main(int argc, char** argv) {
  // For what waits for the forms; the library would start it with the first one.
  zu::vcl::start();
  if (argc == 3 && std::string_view(argv[1]) == "--act") {
    std::printf("%zu", std::hash<std::string>()(Tact(std::strtoull(argv[2], nullptr, 10)).run()));
    return 0;
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
