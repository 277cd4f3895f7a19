// Transforms lines of text with a point in the first two columns, on one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>
#include <vector>

#include "basic/thread.h"
#include "byte_buffer.h"
#include "reproj/reproj_xy_exec.h"
#include "reproj/xy_array.h"

namespace transformations {

class Tline_worker {
 public:
  Tline_worker() = default;
  ~Tline_worker() = default;
  Tline_worker(Tline_worker const&) = delete;
  Tline_worker& operator=(Tline_worker const&) = delete;

  // Takes a copy of the operation. False when there is no memory. A second call does
  // nothing.
  bool init(Tzu_reproj_xy_exec const& operation, reproj_direction direction, int digits);

  // Takes a text of whole lines behind `skipped` bytes, gives the memory of the text before
  // it back, and starts to transform the lines on a new thread. Where the system has no
  // thread left, it transforms before it returns.
  void start(Tbyte_buffer& text, std::size_t skipped);
  // Whether there is something to finish.
  bool is_busy() const { return !is_told_; }
  // Waits, and returns the transformed text, or nothing when that was returned before.
  // Valid until the next start. Throws the exception of the thread.
  std::string_view finish();

  // The numbers of all points so far, and of the points that failed.
  std::uint64_t count() const { return count_; }
  std::uint64_t failed() const { return failed_; }

 private:
  // The two columns of a point. Where a line has no point, `y` is empty and `x` stands for
  // the beginning of the line.
  struct Tplace {
    std::string_view x;
    std::string_view y;
  };

  static void run_worker(void* context);
  void run() noexcept;
  std::size_t scan_lines();
  void print_lines();
  char* copy_to(char const* end, std::size_t more);
  char* put_number(char* to, bool done, double value) const noexcept;

  int digits_ = 0;
  reproj_direction direction_ = reproj_direction::forward;
  Tzu_reproj_xy_exec exec_;
  Tbyte_buffer text_;
  std::string_view rest_;  // the part of the text that is not scanned yet
  std::vector<Tplace> places_;
  Tzu_xy_array points_;
  char const* copied_ = nullptr;  // the end of the text that is in the output
  Tbyte_buffer output_;
  bool is_told_ = true;  // finish has returned the output
  std::uint64_t count_ = 0;
  std::uint64_t failed_ = 0;
  std::exception_ptr failure_;
  zu::Tthread thread_;  // the last member, so that it ends before the others go
};

}  // namespace transformations
