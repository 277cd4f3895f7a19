// Copies geometry into a buffer of points, lets the caller's `transform` work on the
// buffer, and copies the points back. Null geometry fails. Several threads copy different
// vertices of a long sequence at the same time.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "reproj/reproj_xy_exec.h"
#include "reproj/xy_array.h"
#include "suite/zuk_prg.h"

namespace zu::geometry_steps {

inline std::size_t size_of(Tzu_pp2d const* sequence) { return zu_pv_d2_get_size(sequence); }
inline std::size_t size_of(Tzu_pvtx_d3 const* sequence) { return zu_pv_d3_get_size(sequence); }
inline std::size_t size_of(Tzu_op2d const* set) { return zu_ov_d2_get_size(set); }
inline std::size_t size_of(Tzu_ovtx_d3 const* set) { return zu_ov_d3_get_size(set); }

inline Tzu_vtx_d2 vertex_of(Tzu_pp2d const* sequence, std::size_t index) {
  Tzu_vtx_d2 vertex{};
  zu_pv_d2_get_vtx(sequence, index, &vertex);
  return vertex;
}
inline Tzu_vtx_d3 vertex_of(Tzu_pvtx_d3 const* sequence, std::size_t index) {
  Tzu_vtx_d3 vertex{};
  zu_pv_d3_get_vtx(sequence, index, &vertex);
  return vertex;
}

inline void set_vertex(Tzu_pp2d* sequence, std::size_t index, double x, double y) {
  Tzu_vtx_d2 vertex{};
  zu_vtx_d2_init_xy(&vertex, x, y);
  zu_pv_d2_set_vtx(sequence, index, &vertex);
}
// The height stays.
inline void set_vertex(Tzu_pvtx_d3* sequence, std::size_t index, double x, double y) {
  Tzu_vtx_d3 vertex{};
  zu_vtx_d3_init_xyz(&vertex, x, y, vertex_of(sequence, index).z);
  zu_pv_d3_set_vtx(sequence, index, &vertex);
}

inline Tzu_pp2d* sequence_of(Tzu_op2d* set, std::size_t index) {
  return zu_ov_d2_get_pv_ptr(set, index);
}
inline Tzu_pvtx_d3* sequence_of(Tzu_ovtx_d3* set, std::size_t index) {
  return zu_ov_d3_get_pv_ptr(set, index);
}

// Copies the vertices of a sequence into a buffer of the same size, and back.
template <class Sequence>
class Tsequence_copy final : public Tblock_work {
 public:
  Tsequence_copy(Sequence* sequence, Tzu_xy_array& buffer) noexcept
      : sequence_(sequence), buffer_(&buffer) {}
  void before(std::size_t first, std::size_t count) noexcept override {
    for (std::size_t i = first; i < first + count; ++i) {
      auto const vertex = vertex_of(sequence_, i);
      buffer_->set_xy(i, vertex.x, vertex.y);
    }
  }
  void after(std::size_t first, std::size_t count) noexcept override {
    for (std::size_t i = first; i < first + count; ++i)
      set_vertex(sequence_, i, buffer_->get_x(i), buffer_->get_y(i));
  }

 private:
  Sequence* sequence_;
  Tzu_xy_array* buffer_;
};

template <class Sequence, class Transform>
bool apply_to_sequence(Sequence* sequence, Tzu_xy_array& buffer, Transform transform) {
  if (sequence == nullptr) return false;
  buffer.set_size(size_of(sequence));
  Tsequence_copy copy(sequence, buffer);
  return transform(buffer, &copy);
}

// When a sequence fails, the others are transformed all the same.
template <class Set, class Transform>
bool apply_to_set(Set* set, Tzu_xy_array& buffer, Transform transform) {
  if (set == nullptr) return false;
  // Takes all memory first: without enough of it no sequence is transformed.
  std::size_t largest = 0;
  for (std::size_t i = 0; i < size_of(set); ++i)
    largest = std::max(largest, size_of(sequence_of(set, i)));
  buffer.set_capacity(largest);
  bool done = true;
  for (std::size_t i = 0; i < size_of(set); ++i)
    done = apply_to_sequence(sequence_of(set, i), buffer, transform) && done;
  return done;
}

inline bool is_finite(Tzu_box_d2 const& box) {
  return std::isfinite(box.min_x) && std::isfinite(box.min_y) && std::isfinite(box.max_x) &&
         std::isfinite(box.max_y);
}

// Fills the buffer with a grid over the box, row by row, `intervals` + 1 points a side.
inline void fill_grid(Tzu_box_d2 const& box, std::size_t intervals, Tzu_xy_array& buffer) {
  double const step_x = (box.max_x - box.min_x) / static_cast<double>(intervals);
  double const step_y = (box.max_y - box.min_y) / static_cast<double>(intervals);
  std::size_t const side = intervals + 1;
  buffer.set_size(side * side);
  for (std::size_t j = 0; j < side; ++j)
    for (std::size_t i = 0; i < side; ++i)
      buffer.set_xy(j * side + i, box.min_x + static_cast<double>(i) * step_x,
                    box.min_y + static_cast<double>(j) * step_y);
}

// The box of the finite points; false when no point is finite.
inline bool find_extent(Tzu_xy_array const& buffer, Tzu_box_d2& extent) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  Tzu_box_d2 found{infinity, infinity, -infinity, -infinity};
  for (std::size_t i = 0; i < buffer.get_size(); ++i) {
    double const x = buffer.get_x(i);
    double const y = buffer.get_y(i);
    if (!std::isfinite(x) || !std::isfinite(y)) continue;
    found.min_x = std::min(found.min_x, x);
    found.min_y = std::min(found.min_y, y);
    found.max_x = std::max(found.max_x, x);
    found.max_y = std::max(found.max_y, y);
  }
  if (found.min_x > found.max_x) return false;
  extent = found;
  return true;
}

// Transforms a grid of 7 x 7 points. The box of the results gets a margin of a
// thousandth on every side, because an edge may curve outward between the points. Points
// that fail are left out. False when all fail; the box does not change then.
template <class Transform>
bool apply_to_box_approx(Tzu_box_d2* box, Tzu_xy_array& buffer, Transform transform) {
  constexpr std::size_t intervals = 6;
  constexpr double margin = 0.001;
  if (box == nullptr || !is_finite(*box)) return false;
  fill_grid(*box, intervals, buffer);
  static_cast<void>(transform(buffer));
  Tzu_box_d2 extent{};
  if (!find_extent(buffer, extent)) return false;
  double const wider_x = margin * (extent.max_x - extent.min_x);
  double const wider_y = margin * (extent.max_y - extent.min_y);
  zu_box_d2_init_xy(box, extent.min_x - wider_x, extent.min_y - wider_y, extent.max_x + wider_x,
                    extent.max_y + wider_y);
  return true;
}

// Transforms the four corners; false when any of them fails.
template <class Transform>
bool apply_to_box(Tzu_box_d2* box, Tzu_xy_array& buffer, Transform transform) {
  if (box == nullptr || !is_finite(*box)) return false;
  fill_grid(*box, 1, buffer);
  return transform(buffer) && find_extent(buffer, *box);
}

}  // namespace zu::geometry_steps
