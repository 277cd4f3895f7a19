#include "suite/zuk_prg.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <limits>
#include <vector>

#include "basic/float_environment.h"

struct Tzu_pp2d {
  std::vector<Tzu_vtx_d2> items;
};
struct Tzu_op2d {
  std::vector<Tzu_pp2d> items;
};
struct Tzu_pvtx_d3 {
  std::vector<Tzu_vtx_d3> items;
};
struct Tzu_ovtx_d3 {
  std::vector<Tzu_pvtx_d3> items;
};

namespace {

// C programs call these functions, so no exception may leave them.
template <class List>
List* create(std::size_t size) noexcept {
  try {
    auto made = std::make_unique<List>();
    made->items.resize(size);
    return made.release();
  } catch (std::exception const&) {
    return nullptr;
  }
}

template <class List>
void destroy(List* list) noexcept {
  std::unique_ptr<List> const owned(list);
}

template <class List>
std::size_t get_size(List const* list) noexcept {
  return list == nullptr ? 0 : list->items.size();
}

template <class List>
int set_size(List* list, std::size_t size) noexcept {
  if (list == nullptr) return 0;
  try {
    list->items.resize(size);
    return 1;
  } catch (std::exception const&) {
    return 0;
  }
}

template <class List, class Item>
int get_item(List const* list, std::size_t index, Item* item) noexcept {
  if (item == nullptr || index >= get_size(list)) return 0;
  *item = list->items[index];
  return 1;
}

template <class List, class Item>
int set_item(List* list, std::size_t index, Item const* item) noexcept {
  if (item == nullptr || index >= get_size(list)) return 0;
  list->items[index] = *item;
  return 1;
}

template <class List>
auto* find_item(List* list, std::size_t index) noexcept {
  return index < get_size(list) ? &list->items[index] : nullptr;
}

}  // namespace

void zu_vtx_d2_init_xy(Tzu_vtx_d2* vertex, double x, double y) {
  if (vertex != nullptr) *vertex = {x, y};
}

void zu_vtx_d3_init_xyz(Tzu_vtx_d3* vertex, double x, double y, double z) {
  if (vertex != nullptr) *vertex = {x, y, z};
}

void zu_box_d2_init_xy(Tzu_box_d2* box, double min_x, double min_y, double max_x, double max_y) {
  if (box != nullptr) *box = {min_x, min_y, max_x, max_y};
}

void zu_matrix3x3_init_single(Tzu_matrix3x3* matrix) {
  if (matrix != nullptr) *matrix = {{1, 0, 0, 0, 1, 0, 0, 0, 1}};
}

int zu_matrix3x3_invert(Tzu_matrix3x3* matrix) {
  zu::Tfloat_scope const scope;
  if (matrix == nullptr) return 0;
  auto const& e = matrix->e;
  if (!std::ranges::all_of(e, [](double element) { return std::isfinite(element); })) return 0;
  // The transposed cofactors: element i of the inverse, times the determinant.
  std::array<double, 9> const adjugate{
      e[4] * e[8] - e[5] * e[7], e[2] * e[7] - e[1] * e[8], e[1] * e[5] - e[2] * e[4],
      e[5] * e[6] - e[3] * e[8], e[0] * e[8] - e[2] * e[6], e[2] * e[3] - e[0] * e[5],
      e[3] * e[7] - e[4] * e[6], e[1] * e[6] - e[0] * e[7], e[0] * e[4] - e[1] * e[3]};
  double const determinant = e[0] * adjugate[0] + e[1] * adjugate[3] + e[2] * adjugate[6];
  double const terms = std::abs(e[0]) * (std::abs(e[4] * e[8]) + std::abs(e[5] * e[7])) +
                       std::abs(e[1]) * (std::abs(e[5] * e[6]) + std::abs(e[3] * e[8])) +
                       std::abs(e[2]) * (std::abs(e[3] * e[7]) + std::abs(e[4] * e[6]));
  // In this form a NaN, which very large elements give, fails as well.
  if (!(std::abs(determinant) > 8 * std::numeric_limits<double>::epsilon() * terms)) return 0;
  Tzu_matrix3x3 inverse{};
  for (std::size_t i = 0; i < adjugate.size(); ++i) {
    inverse.e[i] = adjugate[i] / determinant;
    if (!std::isfinite(inverse.e[i])) return 0;
  }
  *matrix = inverse;
  return 1;
}

Tzu_pp2d* zu_pv_d2_create(size_t size) { return create<Tzu_pp2d>(size); }
void zu_pv_d2_destroy(Tzu_pp2d* sequence) { destroy(sequence); }
size_t zu_pv_d2_get_size(Tzu_pp2d const* sequence) { return get_size(sequence); }
int zu_pv_d2_set_size(Tzu_pp2d* sequence, size_t size) { return set_size(sequence, size); }
int zu_pv_d2_get_vtx(Tzu_pp2d const* sequence, size_t index, Tzu_vtx_d2* vertex) {
  return get_item(sequence, index, vertex);
}
int zu_pv_d2_set_vtx(Tzu_pp2d* sequence, size_t index, Tzu_vtx_d2 const* vertex) {
  return set_item(sequence, index, vertex);
}

Tzu_op2d* zu_ov_d2_create(size_t size) { return create<Tzu_op2d>(size); }
void zu_ov_d2_destroy(Tzu_op2d* set) { destroy(set); }
size_t zu_ov_d2_get_size(Tzu_op2d const* set) { return get_size(set); }
Tzu_pp2d* zu_ov_d2_get_pv_ptr(Tzu_op2d* set, size_t index) { return find_item(set, index); }

Tzu_pvtx_d3* zu_pv_d3_create(size_t size) { return create<Tzu_pvtx_d3>(size); }
void zu_pv_d3_destroy(Tzu_pvtx_d3* sequence) { destroy(sequence); }
size_t zu_pv_d3_get_size(Tzu_pvtx_d3 const* sequence) { return get_size(sequence); }
int zu_pv_d3_set_size(Tzu_pvtx_d3* sequence, size_t size) { return set_size(sequence, size); }
int zu_pv_d3_get_vtx(Tzu_pvtx_d3 const* sequence, size_t index, Tzu_vtx_d3* vertex) {
  return get_item(sequence, index, vertex);
}
int zu_pv_d3_set_vtx(Tzu_pvtx_d3* sequence, size_t index, Tzu_vtx_d3 const* vertex) {
  return set_item(sequence, index, vertex);
}

Tzu_ovtx_d3* zu_ov_d3_create(size_t size) { return create<Tzu_ovtx_d3>(size); }
void zu_ov_d3_destroy(Tzu_ovtx_d3* set) { destroy(set); }
size_t zu_ov_d3_get_size(Tzu_ovtx_d3 const* set) { return get_size(set); }
Tzu_pvtx_d3* zu_ov_d3_get_pv_ptr(Tzu_ovtx_d3* set, size_t index) { return find_item(set, index); }
