// The chain of a transformation: an affine step, the PROJ step, an affine step.
#pragma once

#include <cstddef>
#include <string>

#include "reproj/reproj_xy_exec.h"
#include "reproj/xy_array.h"
#include "suite/zuk_prg.h"

// Backward, the inverted affine-after is the first step and the inverted affine-before
// the last one. The rules for texts, coordinates and threads are those of
// Tzu_reproj_xy_exec.
class Tzu_reproj_xy {
 public:
  // Set up the PROJ step; the affine steps do not change, nor which steps are in use.
  // All are false when PROJ finds no operation.
  bool init(char const* source, char const* target) { return exec_.init(source, target); }
  bool init(wchar_t const* source, wchar_t const* target) { return exec_.init(source, target); }
  bool init_as_written(std::string const& source, std::string const& target) {
    return exec_.init_as_written(source, target);
  }
  // Between a definition and the geographic system of its own datum and ellipsoid.
  bool init_to_latlong(char const* definition);
  bool init_to_latlong(wchar_t const* definition);
  bool init_from_latlong(char const* definition);
  bool init_from_latlong(wchar_t const* definition);
  // The definition of that geographic system; empty for a definition without a
  // projection.
  static std::string convert_to_latlong(char const* definition);
  // Whether PROJ would get different texts for the two definitions.
  static bool rpj_is_needed(char const* source, char const* target);
  // Sets the state of a new object: the PROJ step is in use and has no operation, the
  // affine steps are the identity and not in use.
  void clear() noexcept;

  void set_use_reproj(bool use) noexcept { use_reproj_ = use; }
  bool get_use_reproj() const noexcept { return use_reproj_; }
  void set_use_affine_before(bool use) noexcept { before_.use = use; }
  bool get_use_affine_before() const noexcept { return before_.use; }
  void set_affine_before(Tzu_matrix3x3 const& matrix) noexcept { before_.set(matrix); }
  void set_use_affine_after(bool use) noexcept { after_.use = use; }
  bool get_use_affine_after() const noexcept { return after_.use; }
  void set_affine_after(Tzu_matrix3x3 const& matrix) noexcept { after_.set(matrix); }

  // Whether a step in use cannot work in that direction: the PROJ step without an
  // operation or, backward, a singular matrix.
  bool is_blocked(reproj_direction direction) const noexcept;

  // Transform one point, two arrays of `count` elements, or an array of points, in place.
  // The result is that of the PROJ step, and true when that is not in use; the affine
  // steps are done in any case. Backward, a singular matrix in use makes the call fail
  // and change nothing.
  bool apply(double* x, double* y, reproj_direction direction = reproj_direction::forward);
  bool apply_xy(std::size_t count, double* x, double* y,
                reproj_direction direction = reproj_direction::forward,
                Tblock_work* work = nullptr);
  bool apply_array(Tzu_xy_array& points, reproj_direction direction = reproj_direction::forward,
                   Tblock_work* work = nullptr) {
    return apply_xy(points.get_size(), points.get_x_ptr(), points.get_y_ptr(), direction, work);
  }

  // Do one affine step.
  static void apply_affine(Tzu_matrix3x3 const& matrix, double* x, double* y) noexcept;
  static void apply_affine_xy(Tzu_matrix3x3 const& matrix, std::size_t count, double* x,
                              double* y) noexcept;
  static void apply_affine_array(Tzu_matrix3x3 const& matrix, Tzu_xy_array& points) noexcept {
    apply_affine_xy(matrix, points.get_size(), points.get_x_ptr(), points.get_y_ptr());
  }

 private:
  static Tzu_matrix3x3 identity() noexcept;

  struct Taffine {
    void set(Tzu_matrix3x3 const& wanted) noexcept;

    Tzu_matrix3x3 matrix = identity();
    Tzu_matrix3x3 inverse = identity();
    bool is_singular = false;
    bool use = false;
  };

  class Tchain_work;

  bool has_singular() const noexcept;

  Tzu_reproj_xy_exec exec_;
  Taffine before_;
  Taffine after_;
  bool use_reproj_ = true;
};
