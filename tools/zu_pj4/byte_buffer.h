// Bytes in memory that is used again and again.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

// Unlike std::string it does not set the bytes of a room again.
class Tbyte_buffer {
 public:
  std::string_view text() const noexcept { return {bytes_.data(), size_}; }
  std::size_t size() const noexcept { return size_; }
  // Keeps the memory.
  void clear() noexcept { size_ = 0; }
  // Place for at least `size` bytes behind the text; valid until the next call.
  std::span<char> room(std::size_t size) {
    if (size > bytes_.size() - size_) bytes_.resize(size_ + std::max(size_ / 2, size));
    return std::span(bytes_).subspan(size_);
  }
  // The first bytes of the room become text.
  void add(std::size_t size) noexcept { size_ += size; }
  void append(std::string_view text) {
    std::ranges::copy(text, room(text.size()).begin());
    add(text.size());
  }
  // Keeps only the first bytes.
  void cut(std::size_t size) noexcept { size_ = size; }

 private:
  std::vector<char> bytes_;
  std::size_t size_ = 0;
};
