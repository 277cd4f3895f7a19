#include <zu_pj_edit/zu_pj4_layer.h>

#include <memory>

#include "basic/float_environment.h"
#include "reproj/reproj_d2.h"

struct zu_rpj_d2 {
  Tzu_reproj_d2 reproj;
};

struct zu_rpj_fb_d2 {
  Tzu_reproj_fb_d2 reproj;
};

namespace {

// Hosts reach the chains only through these functions. Each makes its own scope.

template <class Handle>
Handle* create() {
  return zu::in_float_scope([] { return std::make_unique<Handle>().release(); });
}

template <class Handle>
void destroy(Handle* handle) {
  zu::Tfloat_scope const scope;
  std::unique_ptr<Handle> const owned(handle);
}

// The result of a call on a handle; a null handle fails.
template <class Handle, class Call>
int call_on(Handle* handle, Call call) {
  zu::Tfloat_scope const scope;
  return handle != nullptr && call(handle->reproj) ? 1 : 0;
}

// Sets a property of a handle's chain; only a null handle fails.
template <class Handle, class Set>
int set_on(Handle* handle, Set set) {
  return call_on(handle, [set](auto& reproj) {
    set(reproj.get_reproj());
    return true;
  });
}

// A null matrix fails and changes nothing.
template <class Handle, class Set>
int set_matrix_on(Handle* handle, Tzu_matrix3x3 const* matrix, Set set) {
  return matrix == nullptr ? 0 : set_on(handle, [&](auto& chain) { set(chain, *matrix); });
}

// A null text fails and changes nothing.
template <class Handle>
int init_ex_on(Handle* handle, char const* source, char const* target) {
  if (source == nullptr || target == nullptr) return 0;
  return call_on(handle, [=](auto& reproj) { return reproj.init_ex(source, target); });
}

template <class Handle>
int init_crs_on(Handle* handle, wchar_t const* source, wchar_t const* target) {
  if (source == nullptr || target == nullptr) return 0;
  return call_on(handle, [=](auto& reproj) { return reproj.init_crs(source, target); });
}

template <class Handle>
int clear_buffer_of(Handle* handle) {
  return call_on(handle, [](auto& reproj) {
    reproj.clear_buffer();
    return true;
  });
}

}  // namespace

zu_rpj_d2* zu_rpj_d2_create() { return create<zu_rpj_d2>(); }
void zu_rpj_d2_destroy(zu_rpj_d2* reproj) { destroy(reproj); }

int zu_rpj_d2_init_ex(zu_rpj_d2* reproj, char const* source, char const* target) {
  return init_ex_on(reproj, source, target);
}
int zu_rpj_d2_init_crs(zu_rpj_d2* reproj, wchar_t const* source, wchar_t const* target) {
  return init_crs_on(reproj, source, target);
}

int zu_rpj_d2_set_use_reproj(zu_rpj_d2* reproj, int use) {
  return set_on(reproj, [=](auto& chain) { chain.set_use_reproj(use != 0); });
}
int zu_rpj_d2_set_use_affine_before(zu_rpj_d2* reproj, int use) {
  return set_on(reproj, [=](auto& chain) { chain.set_use_affine_before(use != 0); });
}
int zu_rpj_d2_set_affine_before(zu_rpj_d2* reproj, Tzu_matrix3x3 const* matrix) {
  return set_matrix_on(reproj, matrix, [](auto& chain, auto& e) { chain.set_affine_before(e); });
}
int zu_rpj_d2_set_use_affine_after(zu_rpj_d2* reproj, int use) {
  return set_on(reproj, [=](auto& chain) { chain.set_use_affine_after(use != 0); });
}
int zu_rpj_d2_set_affine_after(zu_rpj_d2* reproj, Tzu_matrix3x3 const* matrix) {
  return set_matrix_on(reproj, matrix, [](auto& chain, auto& e) { chain.set_affine_after(e); });
}

int zu_rpj_d2_apply_vtx(zu_rpj_d2* reproj, Tzu_vtx_d2* vertex) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_vtx(vertex); });
}
int zu_rpj_d2_apply_pv(zu_rpj_d2* reproj, Tzu_pp2d* sequence) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_pv(sequence); });
}
int zu_rpj_d2_apply_ov(zu_rpj_d2* reproj, Tzu_op2d* set) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_ov(set); });
}
int zu_rpj_d2_apply_vtx3d(zu_rpj_d2* reproj, Tzu_vtx_d3* vertex) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_vtx3d(vertex); });
}
int zu_rpj_d2_apply_pv3d(zu_rpj_d2* reproj, Tzu_pvtx_d3* sequence) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_pv3d(sequence); });
}
int zu_rpj_d2_apply_ov3d(zu_rpj_d2* reproj, Tzu_ovtx_d3* set) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_ov3d(set); });
}
int zu_rpj_d2_apply_box_approx(zu_rpj_d2* reproj, Tzu_box_d2* box) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_box_approx(box); });
}
int zu_rpj_d2_apply_box_approx_ex(zu_rpj_d2* reproj, Tzu_box_d2* box) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_box_approx_ex(box); });
}

int zu_rpj_d2_clear_buffer(zu_rpj_d2* reproj) { return clear_buffer_of(reproj); }

zu_rpj_fb_d2* zu_rpj_fb_d2_create() { return create<zu_rpj_fb_d2>(); }
void zu_rpj_fb_d2_destroy(zu_rpj_fb_d2* reproj) { destroy(reproj); }

int zu_rpj_fb_d2_init_ex(zu_rpj_fb_d2* reproj, char const* source, char const* target) {
  return init_ex_on(reproj, source, target);
}
int zu_rpj_fb_d2_init_crs(zu_rpj_fb_d2* reproj, wchar_t const* source, wchar_t const* target) {
  return init_crs_on(reproj, source, target);
}

int zu_rpj_fb_d2_set_use_reproj(zu_rpj_fb_d2* reproj, int use) {
  return set_on(reproj, [=](auto& chain) { chain.set_use_reproj(use != 0); });
}
int zu_rpj_fb_d2_set_use_affine_before(zu_rpj_fb_d2* reproj, int use) {
  return set_on(reproj, [=](auto& chain) { chain.set_use_affine_before(use != 0); });
}
int zu_rpj_fb_d2_set_affine_before(zu_rpj_fb_d2* reproj, Tzu_matrix3x3 const* matrix) {
  return set_matrix_on(reproj, matrix, [](auto& chain, auto& e) { chain.set_affine_before(e); });
}
int zu_rpj_fb_d2_set_use_affine_after(zu_rpj_fb_d2* reproj, int use) {
  return set_on(reproj, [=](auto& chain) { chain.set_use_affine_after(use != 0); });
}
int zu_rpj_fb_d2_set_affine_after(zu_rpj_fb_d2* reproj, Tzu_matrix3x3 const* matrix) {
  return set_matrix_on(reproj, matrix, [](auto& chain, auto& e) { chain.set_affine_after(e); });
}

int zu_rpj_fb_d2_apply_xy(zu_rpj_fb_d2* reproj, size_t count, double* x, double* y, int forward) {
  if (x == nullptr || y == nullptr) return 0;
  return call_on(reproj, [=](auto& d2) { return d2.apply_xy(count, x, y, forward != 0); });
}
int zu_rpj_fb_d2_apply_vtx(zu_rpj_fb_d2* reproj, Tzu_vtx_d2* vertex, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_vtx(vertex, forward != 0); });
}
int zu_rpj_fb_d2_apply_pv(zu_rpj_fb_d2* reproj, Tzu_pp2d* sequence, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_pv(sequence, forward != 0); });
}
int zu_rpj_fb_d2_apply_ov(zu_rpj_fb_d2* reproj, Tzu_op2d* set, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_ov(set, forward != 0); });
}
int zu_rpj_fb_d2_apply_vtx3d(zu_rpj_fb_d2* reproj, Tzu_vtx_d3* vertex, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_vtx3d(vertex, forward != 0); });
}
int zu_rpj_fb_d2_apply_pv3d(zu_rpj_fb_d2* reproj, Tzu_pvtx_d3* sequence, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_pv3d(sequence, forward != 0); });
}
int zu_rpj_fb_d2_apply_ov3d(zu_rpj_fb_d2* reproj, Tzu_ovtx_d3* set, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_ov3d(set, forward != 0); });
}
int zu_rpj_fb_d2_apply_box(zu_rpj_fb_d2* reproj, Tzu_box_d2* box, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_box(box, forward != 0); });
}
int zu_rpj_fb_d2_apply_box_approx(zu_rpj_fb_d2* reproj, Tzu_box_d2* box, int forward) {
  return call_on(reproj, [=](auto& d2) { return d2.apply_box_approx(box, forward != 0); });
}

int zu_rpj_fb_d2_clear_buffer(zu_rpj_fb_d2* reproj) { return clear_buffer_of(reproj); }
