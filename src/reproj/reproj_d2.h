// Transformation of the host suite's geometry from one definition to another.
#pragma once

#include "reproj/reproj_xy.h"
#include "reproj/xy_array.h"
#include "suite/zuk_prg.h"

// Every apply works in place and returns true on success; `forward` is from the source
// to the target. Null geometry fails. A point that fails gets a coordinate that is not
// finite. Heights do not change. All calls share one buffer, which keeps its memory:
// repeated transforms of long sequences allocate nothing.
class Tzu_reproj_fb_d2 {
 public:
  // PROJ.4 texts; narrow texts are in the system's code page. False when PROJ finds no
  // operation for them; every apply then fails.
  bool init_ex(char const* source, char const* target) { return reproj_.init(source, target); }
  bool init_crs(wchar_t const* source, wchar_t const* target) {
    return reproj_.init(source, target);
  }
  // The chain: its affine steps, and which of its steps are in use.
  Tzu_reproj_xy& get_reproj() noexcept { return reproj_; }
  // Frees the buffer's memory.
  void clear_buffer() noexcept { buffer_.clear(); }

  // Backward, a singular matrix in use makes every apply fail and change nothing.
  bool apply_xy(std::size_t count, double* x, double* y, bool forward);
  bool apply_vtx(Tzu_vtx_d2* vertex, bool forward);
  bool apply_vtx3d(Tzu_vtx_d3* vertex, bool forward);
  bool apply_pv(Tzu_pp2d* sequence, bool forward);
  bool apply_pv3d(Tzu_pvtx_d3* sequence, bool forward);
  // False when any sequence fails; the others are transformed.
  bool apply_ov(Tzu_op2d* set, bool forward);
  bool apply_ov3d(Tzu_ovtx_d3* set, bool forward);
  // The box of the four transformed corners. False when any of them fails; the box does
  // not change then.
  bool apply_box(Tzu_box_d2* box, bool forward);
  // The box of 49 transformed points of the box, with a margin of a thousandth of its
  // size on every side. False when no point can be transformed; the box does not change
  // then. Around a pole the result has the longitudes of the points, which may be less
  // than the whole circle, and its margin may go beyond 90 degrees of latitude.
  bool apply_box_approx(Tzu_box_d2* box, bool forward);

 private:
  Tzu_reproj_xy reproj_;
  Tzu_xy_array buffer_;
};

// The same from the source to the target only.
class Tzu_reproj_d2 : private Tzu_reproj_fb_d2 {
 public:
  using Tzu_reproj_fb_d2::clear_buffer;
  using Tzu_reproj_fb_d2::get_reproj;
  using Tzu_reproj_fb_d2::init_crs;
  using Tzu_reproj_fb_d2::init_ex;

  bool apply_vtx(Tzu_vtx_d2* vertex) { return Tzu_reproj_fb_d2::apply_vtx(vertex, true); }
  bool apply_vtx3d(Tzu_vtx_d3* vertex) { return Tzu_reproj_fb_d2::apply_vtx3d(vertex, true); }
  bool apply_pv(Tzu_pp2d* sequence) { return Tzu_reproj_fb_d2::apply_pv(sequence, true); }
  bool apply_pv3d(Tzu_pvtx_d3* sequence) { return Tzu_reproj_fb_d2::apply_pv3d(sequence, true); }
  bool apply_ov(Tzu_op2d* set) { return Tzu_reproj_fb_d2::apply_ov(set, true); }
  bool apply_ov3d(Tzu_ovtx_d3* set) { return Tzu_reproj_fb_d2::apply_ov3d(set, true); }
  bool apply_box_approx(Tzu_box_d2* box) { return Tzu_reproj_fb_d2::apply_box_approx(box, true); }
  bool apply_box_approx_ex(Tzu_box_d2* box) { return apply_box_approx(box); }
};
