#include "soak_acts.h"

#include <wx/button.h>

#include <array>
#include <cstdio>
#include <limits>
#include <memory>
#include <random>
#include <vector>

#include "core_support.h"
#include "gui_support.h"
#include "interchange/known_systems.h"
#include "pj_edit/vcl_pj_edit_form.h"
#include "text/strconv.h"
#include "zu_pj_edit/zu_pj4_layer.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace soak {
namespace {

using core_test::Ttemp_folder;

class Tact {
 public:
  explicit Tact(std::size_t number) : random_(static_cast<unsigned>(number)) {}

  std::string run() {
    constexpr std::array acts{&Tact::params,   &Tact::texts,     &Tact::conversions,
                              &Tact::files,    &Tact::reproject, &Tact::reproject_both_ways,
                              &Tact::geometry, &Tact::nulls};
    // The dialog takes longer than all others together.
    if (below(25) == 0)
      dialog();
    else
      (this->*acts.at(below(acts.size())))();
    return told_;
  }

 private:
  struct Tadapter {
    Tadapter() : handle(zu_string_adp_create(&take_narrow, &take_wide, this)) {}
    ~Tadapter() { zu_string_adp_destroy(handle); }
    Tadapter(Tadapter const&) = delete;
    Tadapter& operator=(Tadapter const&) = delete;
    static void take_narrow(char const* text, void* context) {
      static_cast<Tadapter*>(context)->taken += std::string("n:") + text;
    }
    static void take_wide(wchar_t const* text, void* context) {
      static_cast<Tadapter*>(context)->taken += "w:" + zu::strconv::to_utf8(text);
    }
    std::string taken;
    Izu_string_adp* handle;
  };

  std::size_t below(std::size_t limit) { return random_() % limit; }
  bool one_in(std::size_t count) { return below(count) == 0; }
  template <class List>
  auto const& any_of(List const& list) {
    return list[below(list.size())];
  }

  void tell(std::string const& text) { told_.append(text).append("|"); }
  void tell(char const* text) { tell(std::string(text == nullptr ? "(null)" : text)); }
  void tell(int value) { tell(std::to_string(value)); }
  // Bit by bit, but for a number that is none.
  void tell(double value) {
    std::array<char, 64> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "%a", value == value ? value : 0.0));
    tell(text.data());
  }
  template <class Produce>
  void tell_fed(Produce produce) {
    Tadapter adapter;
    tell(produce(adapter.handle));
    tell(adapter.taken);
  }

  std::string damaged(std::string text) {
    for (std::size_t count = one_in(2) ? 0 : 1 + below(4); count > 0 && !text.empty(); --count) {
      auto const at = below(text.size());
      switch (below(4)) {
        case 0:
          text.erase(at, 1 + below(8));
          break;
        case 1:
          text[at] = static_cast<char>(1 + below(255));
          break;
        case 2:
          text.insert(at, text, below(text.size()), below(30));
          break;
        default:
          text.insert(at, any_of(std::array<char const*, 8>{"+", "=", " ", "1e999", "nan", "-",
                                                            "+towgs84=1,2", "\""}));
      }
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
  Tzu_vtx_d2 vertex() { return {number(), number()}; }
  void tell_point(Tzu_vtx_d2 const& point) {
    // Of a point that failed no more is promised.
    bool const finite = point.x - point.x == 0 && point.y - point.y == 0;
    tell(finite ? point.x : 0);
    tell(finite ? point.y : 0);
  }

  void params() {
    std::unique_ptr<zu_pj4_params, decltype(&zu_pj4_params_destroy)> const set(
        zu_pj4_params_create(), &zu_pj4_params_destroy);
    std::unique_ptr<zu_pj4_params, decltype(&zu_pj4_params_destroy)> const other(
        zu_pj4_params_create(), &zu_pj4_params_destroy);
    for (auto const& each : {set.get(), other.get()}) {
      tell(zu_pj4_params_set(each, definition().c_str()));
      tell(zu_pj4_params_decompose(each));
    }
    tell(zu_pj4_params_equal(set.get(), other.get()));
    tell(zu_pj4_params_is_valid(set.get()));
    tell(zu_pj4_params_is_sphere(set.get()));
    tell(zu_pj4_params_get_is_long_lat(set.get()));
    for (int changes = 0; changes < 8; ++changes) {
      char const* const name = zu_pj4_params_get_name(set.get(), static_cast<unsigned>(below(23)));
      tell(zu_pj4_params_val_from_str(set.get(), name, definition().substr(0, 12).c_str()));
      tell(zu_pj4_params_set_def(set.get(), name, one_in(2) ? 1 : 0));
      tell(zu_pj4_params_set_dbl(set.get(), name, number()));
      tell(zu_pj4_params_set_int(set.get(), name, static_cast<int>(below(70))));
      tell(zu_pj4_params_set_bool(set.get(), name, one_in(2) ? 1 : 0));
      tell(zu_pj4_params_set_str(set.get(), name, definition().substr(0, 9).c_str()));
      std::array<double, 7> shift{number(), 2, 3, 4, 5, 6, number()};
      tell(zu_pj4_params_set_towgs84(set.get(), shift.data()));
      tell(zu_pj4_params_get_towgs84(set.get(), shift.data()));
      for (double const value : shift) tell(value);
      double real = 0;
      int whole = 0;
      char const* text = "unset";
      tell(zu_pj4_params_get_dbl(set.get(), name, &real));
      tell(real);
      tell(zu_pj4_params_get_int(set.get(), name, &whole));
      tell(zu_pj4_params_get_bool(set.get(), name, &whole));
      tell(whole);
      tell(zu_pj4_params_get_str(set.get(), name, &text));
      tell(text);
      tell(zu_pj4_params_get_out_str(set.get(), name));
      tell(zu_pj4_params_get_def(set.get(), name));
    }
    if (one_in(4)) tell(zu_pj4_params_set_is_long_lat(set.get()));
    tell(zu_pj4_params_set_is_lon_wrap(set.get(), one_in(2) ? 1 : 0));
    tell(zu_pj4_params_get_is_lon_wrap(set.get()));
    tell(one_in(2) ? zu_pj4_params_compose(set.get()) : zu_pj4_params_compose_for_proj4(set.get()));
    tell(zu_pj4_params_get(set.get()));
    tell_fed([&](auto* adapter) { return zu_pj4_params_get_text(set.get(), adapter); });
    tell(zu_pj4_params_set_all_undefined(set.get()));
    tell(static_cast<int>(zu_pj4_params_get_count()));
  }

  void texts() {
    std::string const text = definition();
    tell_fed([&](auto* adapter) { return zu_pj4_get_text(text.c_str(), adapter); });
    tell_fed([&](auto* adapter) { return zu_pj4_get_short_text(text.c_str(), adapter); });
  }

  void conversions() {
    std::wstring const text = wide(definition());
    tell_fed([&](auto* adapter) { return zu_pj4_export_esri(text.c_str(), adapter); });
    std::wstring const wkt = wide(damaged(any_of(zu::known_systems).wkt));
    tell_fed([&](auto* adapter) { return zu_pj4_import_esri_prj(wkt.c_str(), adapter); });
    static std::array<std::string, 5> const forms{"EPSG:28407", "urn:ogc:def:crs:EPSG::4326",
                                                  "+init=epsg:3857", "/etc/passwd", "WGS84"};
    std::wstring const crs = wide(one_in(2) ? damaged(any_of(forms)) : definition());
    tell_fed([&](auto* adapter) { return zu_pj4_import_crs(crs.c_str(), adapter); });
  }

  void files() {
    Ttemp_folder const folder;
    std::wstring const pj4 = folder.wide(one_in(4) ? L"no/f.pj4" : L"f.pj4");
    std::wstring const prj = folder.wide(one_in(4) ? L"no/f.prj" : L"f.prj");
    std::wstring const text = wide(definition());
    zu_pj4_save_simple_w(pj4.c_str(), text.c_str());
    tell(zu_pj4_export_esri_prj(text.c_str(), prj.c_str()));
    if (one_in(2))
      core_test::put_file(folder.file("f.prj"), damaged(any_of(zu::known_systems).wkt));
    if (one_in(2)) core_test::put_file(folder.file("f.pj4"), definition());
    tell_fed([&](auto* adapter) { return zu_pj4_load_simple_w(pj4.c_str(), adapter), 0; });
    tell_fed([&](auto* adapter) { return zu_pj4_import_esri(prj.c_str(), adapter); });
  }

  Tzu_matrix3x3 matrix() {
    Tzu_matrix3x3 step{};
    zu_matrix3x3_init_single(&step);
    for (int changes = 0; changes < 3; ++changes) step.e[below(9)] = number();
    return step;
  }

  // A set of two sequences, long enough for threads at times.
  template <class Set, class Apply>
  void run_set(Set* set, Apply apply) {
    for (std::size_t part = 0; part < 2; ++part) {
      Tzu_pp2d* const sequence = zu_ov_d2_get_pv_ptr(set, part);
      tell(zu_pv_d2_set_size(sequence, one_in(6) ? 5000 : below(20)));
      for (std::size_t i = 0; i < zu_pv_d2_get_size(sequence); ++i) {
        Tzu_vtx_d2 const point = vertex();
        zu_pv_d2_set_vtx(sequence, i, &point);
      }
    }
    tell(apply(set));
    for (std::size_t part = 0; part < 2; ++part) {
      Tzu_pp2d* const sequence = zu_ov_d2_get_pv_ptr(set, part);
      Tzu_vtx_d2 point{};
      for (std::size_t i = 0; i < zu_pv_d2_get_size(sequence); ++i) {
        zu_pv_d2_get_vtx(sequence, i, &point);
        tell_point(point);
      }
    }
  }

  template <class Apply>
  void run_flat(Apply const& apply) {
    Tzu_vtx_d2 point = vertex();
    tell(apply.vtx(&point));
    tell_point(point);
    Tzu_vtx_d3 spot{number(), number(), 5};
    tell(apply.vtx3d(&spot));
    tell_point({spot.x, spot.y});
    tell(spot.z);
    std::unique_ptr<Tzu_op2d, decltype(&zu_ov_d2_destroy)> const set(zu_ov_d2_create(2),
                                                                     &zu_ov_d2_destroy);
    run_set(set.get(), [&](Tzu_op2d* all) { return apply.ov(all); });
    tell(apply.pv(zu_ov_d2_get_pv_ptr(set.get(), 0)));
    std::unique_ptr<Tzu_ovtx_d3, decltype(&zu_ov_d3_destroy)> const space(zu_ov_d3_create(1),
                                                                          &zu_ov_d3_destroy);
    Tzu_pvtx_d3* const sequence = zu_ov_d3_get_pv_ptr(space.get(), 0);
    tell(zu_pv_d3_set_size(sequence, 2));
    tell(zu_pv_d3_set_vtx(sequence, below(3), &spot));
    tell(apply.pv3d(sequence));
    tell(apply.ov3d(space.get()));
    tell(zu_pv_d3_get_vtx(sequence, 0, &spot));
    tell_point({spot.x, spot.y});
    Tzu_box_d2 box{};
    zu_box_d2_init_xy(&box, number(), number(), number(), number());
    tell(apply.box(&box));
    tell_point({box.min_x, box.min_y});
    tell_point({box.max_x, box.max_y});
  }

  struct Tforward {
    zu_rpj_d2* r;
    int vtx(Tzu_vtx_d2* g) const { return zu_rpj_d2_apply_vtx(r, g); }
    int vtx3d(Tzu_vtx_d3* g) const { return zu_rpj_d2_apply_vtx3d(r, g); }
    int pv(Tzu_pp2d* g) const { return zu_rpj_d2_apply_pv(r, g); }
    int ov(Tzu_op2d* g) const { return zu_rpj_d2_apply_ov(r, g); }
    int pv3d(Tzu_pvtx_d3* g) const { return zu_rpj_d2_apply_pv3d(r, g); }
    int ov3d(Tzu_ovtx_d3* g) const { return zu_rpj_d2_apply_ov3d(r, g); }
    int box(Tzu_box_d2* g) const {
      return zu_rpj_d2_apply_box_approx(r, g) + zu_rpj_d2_apply_box_approx_ex(r, g);
    }
  };
  struct Teither {
    zu_rpj_fb_d2* r;
    int way;
    int vtx(Tzu_vtx_d2* g) const { return zu_rpj_fb_d2_apply_vtx(r, g, way); }
    int vtx3d(Tzu_vtx_d3* g) const { return zu_rpj_fb_d2_apply_vtx3d(r, g, way); }
    int pv(Tzu_pp2d* g) const { return zu_rpj_fb_d2_apply_pv(r, g, way); }
    int ov(Tzu_op2d* g) const { return zu_rpj_fb_d2_apply_ov(r, g, way); }
    int pv3d(Tzu_pvtx_d3* g) const { return zu_rpj_fb_d2_apply_pv3d(r, g, way); }
    int ov3d(Tzu_ovtx_d3* g) const { return zu_rpj_fb_d2_apply_ov3d(r, g, way); }
    int box(Tzu_box_d2* g) const {
      return zu_rpj_fb_d2_apply_box(r, g, way) + zu_rpj_fb_d2_apply_box_approx(r, g, way);
    }
  };

  void reproject() {
    std::unique_ptr<zu_rpj_d2, decltype(&zu_rpj_d2_destroy)> const reproj(zu_rpj_d2_create(),
                                                                          &zu_rpj_d2_destroy);
    for (int rounds = 0; rounds < 2; ++rounds) {
      tell(one_in(2) ? zu_rpj_d2_init_ex(reproj.get(), definition().c_str(), definition().c_str())
                     : zu_rpj_d2_init_crs(reproj.get(), wide(definition()).c_str(),
                                          wide(definition()).c_str()));
      Tzu_matrix3x3 const before = matrix();
      Tzu_matrix3x3 const after = matrix();
      tell(zu_rpj_d2_set_affine_before(reproj.get(), &before));
      tell(zu_rpj_d2_set_affine_after(reproj.get(), &after));
      tell(zu_rpj_d2_set_use_affine_before(reproj.get(), one_in(4) ? 1 : 0));
      tell(zu_rpj_d2_set_use_affine_after(reproj.get(), one_in(4) ? 1 : 0));
      tell(zu_rpj_d2_set_use_reproj(reproj.get(), one_in(8) ? 0 : 1));
      run_flat(Tforward{reproj.get()});
      if (one_in(2)) tell(zu_rpj_d2_clear_buffer(reproj.get()));
    }
  }

  void reproject_both_ways() {
    std::unique_ptr<zu_rpj_fb_d2, decltype(&zu_rpj_fb_d2_destroy)> const reproj(
        zu_rpj_fb_d2_create(), &zu_rpj_fb_d2_destroy);
    tell(one_in(2) ? zu_rpj_fb_d2_init_ex(reproj.get(), definition().c_str(), definition().c_str())
                   : zu_rpj_fb_d2_init_crs(reproj.get(), wide(definition()).c_str(),
                                           wide(definition()).c_str()));
    Tzu_matrix3x3 const before = matrix();
    Tzu_matrix3x3 const after = matrix();
    tell(zu_rpj_fb_d2_set_affine_before(reproj.get(), &before));
    tell(zu_rpj_fb_d2_set_affine_after(reproj.get(), &after));
    tell(zu_rpj_fb_d2_set_use_affine_before(reproj.get(), one_in(4) ? 1 : 0));
    tell(zu_rpj_fb_d2_set_use_affine_after(reproj.get(), one_in(4) ? 1 : 0));
    tell(zu_rpj_fb_d2_set_use_reproj(reproj.get(), one_in(8) ? 0 : 1));
    for (int const way : {1, 0}) {
      run_flat(Teither{reproj.get(), way});
      std::array<double, 3> x{number(), number(), number()};
      std::array<double, 3> y{number(), number(), number()};
      tell(zu_rpj_fb_d2_apply_xy(reproj.get(), x.size(), x.data(), y.data(), way));
      for (std::size_t i = 0; i < x.size(); ++i) tell_point({x.at(i), y.at(i)});
    }
    tell(zu_rpj_fb_d2_clear_buffer(reproj.get()));
  }

  void geometry() {
    Tzu_matrix3x3 step = matrix();
    tell(zu_matrix3x3_invert(&step));
    for (double const value : step.e) tell(value);
    Tzu_pp2d* const flat = zu_pv_d2_create(below(9));
    Tzu_pvtx_d3* const space = zu_pv_d3_create(below(9));
    Tzu_vtx_d2 point{};
    Tzu_vtx_d3 spot{};
    zu_vtx_d2_init_xy(&point, number(), number());
    zu_vtx_d3_init_xyz(&spot, number(), number(), number());
    tell(zu_pv_d2_set_vtx(flat, below(9), &point));
    tell(zu_pv_d3_set_vtx(space, below(9), &spot));
    // More than any memory.
    tell(zu_pv_d2_set_size(flat, one_in(2) ? std::numeric_limits<std::size_t>::max() / 4 : 3));
    tell(zu_pv_d2_get_vtx(flat, below(9), &point));
    tell(zu_pv_d3_get_vtx(space, below(9), &spot));
    tell_point(point);
    tell(static_cast<int>(zu_pv_d2_get_size(flat) + zu_pv_d3_get_size(space)));
    zu_pv_d2_destroy(flat);
    zu_pv_d3_destroy(space);
    Tzu_op2d* const flat_set = zu_ov_d2_create(below(3));
    tell(static_cast<int>(zu_ov_d2_get_size(flat_set)));
    tell(zu_ov_d2_get_pv_ptr(flat_set, below(3)) == nullptr ? 0 : 1);
    zu_ov_d2_destroy(flat_set);
    Tzu_ovtx_d3* const space_set = zu_ov_d3_create(below(3));
    tell(static_cast<int>(zu_ov_d3_get_size(space_set)));
    tell(zu_ov_d3_get_pv_ptr(space_set, below(3)) == nullptr ? 0 : 1);
    zu_ov_d3_destroy(space_set);
  }

  void nulls() {
    Tadapter adapter;
    zu_pj4_load_simple_w(nullptr, adapter.handle);
    zu_pj4_save_simple_w(nullptr, L"+proj=merc");
    tell(zu_pj4_export_esri(nullptr, adapter.handle) + zu_pj4_export_esri(L"+proj=merc", nullptr));
    tell(zu_pj4_export_esri_prj(L"+proj=merc", nullptr) + zu_pj4_import_esri(nullptr, nullptr));
    tell(zu_pj4_import_esri_prj(nullptr, adapter.handle) + zu_pj4_import_crs(nullptr, nullptr));
    tell(zu_pj4_get_text(nullptr, adapter.handle) + zu_pj4_get_short_text("+proj=merc", nullptr));
    tell(zu_pj4_params_decompose(nullptr) + zu_pj4_params_get_def(nullptr, nullptr));
    tell(zu_rpj_d2_init_ex(nullptr, "", "") +
         zu_rpj_fb_d2_apply_xy(nullptr, 1, nullptr, nullptr, 1));
    tell(zu_pv_d2_set_size(nullptr, 1) + zu_matrix3x3_invert(nullptr));
    zu_string_adp_feed_c(nullptr, "");
    zu_string_adp_feed(nullptr, L"");
    tell(adapter.taken);
    tell(zu_proj4_form_execute_w(nullptr, nullptr, nullptr) == nullptr ? 1 : 0);
  }

  void dialog() {
    std::string const text = definition();
    auto const pressed = one_in(2) ? Tzu_vcl_bottom_buttons::apply : Tzu_vcl_bottom_buttons::cancel;
    unsigned char changed = 7;
    gui::run_in_form([&] { tell(zu_proj4_form_execute(nullptr, text.c_str(), &changed)); },
                     [&](Tzu_vcl_form& form) {
                       auto& editor = dynamic_cast<Tzu_vcl_pj_edit_form&>(form);
                       wxButton& button = *editor.get_buttons()->get_button(pressed);
                       wxCommandEvent event(wxEVT_BUTTON, button.GetId());
                       event.SetEventObject(&button);
                       button.ProcessWindowEvent(event);
                     });
    tell(changed);
  }

  std::mt19937 random_;
  std::string told_;
};

}  // namespace

std::string act(std::size_t number) { return Tact(number).run(); }

}  // namespace soak
