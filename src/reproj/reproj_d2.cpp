#include "reproj/reproj_d2.h"

#include "reproj/geometry_steps.h"

namespace steps = zu::geometry_steps;

namespace {

reproj_direction direction_of(bool forward) noexcept {
  return forward ? reproj_direction::forward : reproj_direction::backward;
}

// Transforms a buffer by a chain, in one direction.
auto by(Tzu_reproj_xy& reproj, bool forward) noexcept {
  return [&reproj, direction = direction_of(forward)](Tzu_xy_array& buffer,
                                                      Tblock_work* work = nullptr) {
    return reproj.apply_array(buffer, direction, work);
  };
}

template <class Vertex>
bool apply_to_vertex(Vertex* vertex, Tzu_reproj_xy& reproj, bool forward) {
  return vertex != nullptr && reproj.apply(&vertex->x, &vertex->y, direction_of(forward));
}

}  // namespace

bool Tzu_reproj_fb_d2::apply_xy(std::size_t count, double* x, double* y, bool forward) {
  return reproj_.apply_xy(count, x, y, direction_of(forward));
}
bool Tzu_reproj_fb_d2::apply_vtx(Tzu_vtx_d2* vertex, bool forward) {
  return apply_to_vertex(vertex, reproj_, forward);
}
bool Tzu_reproj_fb_d2::apply_vtx3d(Tzu_vtx_d3* vertex, bool forward) {
  return apply_to_vertex(vertex, reproj_, forward);
}
bool Tzu_reproj_fb_d2::apply_pv(Tzu_pp2d* sequence, bool forward) {
  return steps::apply_to_sequence(sequence, buffer_, by(reproj_, forward));
}
bool Tzu_reproj_fb_d2::apply_pv3d(Tzu_pvtx_d3* sequence, bool forward) {
  return steps::apply_to_sequence(sequence, buffer_, by(reproj_, forward));
}
bool Tzu_reproj_fb_d2::apply_ov(Tzu_op2d* set, bool forward) {
  return steps::apply_to_set(set, buffer_, by(reproj_, forward));
}
bool Tzu_reproj_fb_d2::apply_ov3d(Tzu_ovtx_d3* set, bool forward) {
  return steps::apply_to_set(set, buffer_, by(reproj_, forward));
}
bool Tzu_reproj_fb_d2::apply_box(Tzu_box_d2* box, bool forward) {
  return steps::apply_to_box(box, buffer_, by(reproj_, forward));
}
bool Tzu_reproj_fb_d2::apply_box_approx(Tzu_box_d2* box, bool forward) {
  // Such a chain does not move finite points, and that is no result.
  if (reproj_.is_blocked(direction_of(forward))) return false;
  return steps::apply_to_box_approx(box, buffer_, by(reproj_, forward));
}
