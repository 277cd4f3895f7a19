// Transformation of the host suite's geometry from one definition to another.
#pragma once

#include "reproj/reproj_xy.h"
#include "reproj/xy_array.h"
#include "suite/zuk_prg.h"

// Every apply works in place and is true on success; null geometry fails. Points
// that fail are left with a coordinate that is not finite. Heights stay as they
// are. The buffer that all share is kept from call to call: repeated transforms
// of long sequences take no memory anew.
class Tzu_reproj_d2 {
 public:
  // PROJ.4 texts, narrow ones in the system's code page. False when PROJ makes no
  // operation of them; every apply then fails.
  bool init_ex(char const* source, char const* target) { return reproj_.init(source, target); }
  bool init_crs(wchar_t const* source, wchar_t const* target) {
    return reproj_.init(source, target);
  }
  // The chain, for its affine steps and what of it is in use.
  Tzu_reproj_xy& get_reproj() noexcept { return reproj_; }
  // Gives the buffer's memory back.
  void clear_buffer() noexcept { buffer_.clear(); }

  bool apply_vtx(Tzu_vtx_d2* vertex);
  bool apply_vtx3d(Tzu_vtx_d3* vertex);
  bool apply_pv(Tzu_pp2d* sequence);
  bool apply_pv3d(Tzu_pvtx_d3* sequence);
  // False when any sequence fails; the others are transformed.
  bool apply_ov(Tzu_op2d* set);
  bool apply_ov3d(Tzu_ovtx_d3* set);
  // The box of 49 transformed points of the box, widened by a thousandth of its
  // size on every side. False, and unchanged, when none of them can be transformed.
  // Around a pole the result spans the grid's longitudes, which need not be the
  // whole circle, and its margin may pass the latitude of 90 degrees.
  bool apply_box_approx(Tzu_box_d2* box) { return apply_box_approx_ex(box); }
  bool apply_box_approx_ex(Tzu_box_d2* box);

 private:
  Tzu_reproj_xy reproj_;
  Tzu_xy_array buffer_;
};

// The same, each way: `forward` is from the source to the target.
class Tzu_reproj_fb_d2 {
 public:
  bool init_ex(char const* source, char const* target) { return reproj_.init(source, target); }
  bool init_crs(wchar_t const* source, wchar_t const* target) {
    return reproj_.init(source, target);
  }
  Tzu_reproj_xy& get_reproj() noexcept { return reproj_; }
  void clear_buffer() noexcept { buffer_.clear(); }

  // Backward, a singular matrix in use makes all fail and change nothing.
  bool apply_xy(std::size_t count, double* x, double* y, bool forward);
  bool apply_vtx(Tzu_vtx_d2* vertex, bool forward);
  bool apply_vtx3d(Tzu_vtx_d3* vertex, bool forward);
  bool apply_pv(Tzu_pp2d* sequence, bool forward);
  bool apply_pv3d(Tzu_pvtx_d3* sequence, bool forward);
  bool apply_ov(Tzu_op2d* set, bool forward);
  bool apply_ov3d(Tzu_ovtx_d3* set, bool forward);
  // The box of the four transformed corners; false, and unchanged, when any of
  // them fails.
  bool apply_box(Tzu_box_d2* box, bool forward);
  bool apply_box_approx(Tzu_box_d2* box, bool forward);

 private:
  Tzu_reproj_xy reproj_;
  Tzu_xy_array buffer_;
};
