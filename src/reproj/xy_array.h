// Points to be transformed: a growable pair of arrays.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

class Tzu_xy_array {
 public:
  std::size_t get_size() const noexcept { return x_.size(); }
  // Keeps the first points; new points are at the origin. Never frees memory, so a size
  // that was set before needs no allocation.
  void set_size(std::size_t size) {
    // When there is no memory for both arrays, neither changes.
    set_capacity(size);
    x_.resize(size);
    y_.resize(size);
  }
  // The largest size that needs no allocation.
  std::size_t get_capacity() const noexcept { return std::min(x_.capacity(), y_.capacity()); }
  // Never frees memory; clear does.
  void set_capacity(std::size_t capacity) {
    x_.reserve(capacity);
    y_.reserve(capacity);
  }

  // The index must be below the size.
  double get_x(std::size_t index) const noexcept { return x_[index]; }
  double get_y(std::size_t index) const noexcept { return y_[index]; }
  void set_x(std::size_t index, double x) noexcept { x_[index] = x; }
  void set_y(std::size_t index, double y) noexcept { y_[index] = y; }
  void set_xy(std::size_t index, double x, double y) noexcept {
    x_[index] = x;
    y_[index] = y;
  }
  // The arrays; valid until the size or the capacity grows, and until clear.
  double* get_x_ptr() noexcept { return x_.data(); }
  double* get_y_ptr() noexcept { return y_.data(); }
  double const* get_x_ptr() const noexcept { return x_.data(); }
  double const* get_y_ptr() const noexcept { return y_.data(); }

  // Removes all points and frees the memory.
  void clear() noexcept {
    x_ = std::vector<double>();
    y_ = std::vector<double>();
  }
  // Sets every point to the origin; the size does not change.
  void clear_xy() noexcept {
    std::ranges::fill(x_, 0.0);
    std::ranges::fill(y_, 0.0);
  }

 private:
  std::vector<double> x_;
  std::vector<double> y_;
};
