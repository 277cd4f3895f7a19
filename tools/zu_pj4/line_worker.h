// Transforms lines of text with a point in the first two columns, on one thread.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "basic/thread.h"
#include "reproj/reproj_xy_exec.h"
#include "reproj/xy_array.h"

namespace transformations {

struct line_view;

class Tline_worker {
 public:
  Tline_worker();
  ~Tline_worker();
  Tline_worker(Tline_worker const&) = delete;
  Tline_worker& operator=(Tline_worker const&) = delete;

  // Takes the two systems and the number of digits from `systems`. False when there is no
  // transformation. A second call does nothing.
  template <class Systems>
  bool init(Systems const& systems, reproj_direction direction) {
    digits_ = systems.digits();
    direction_ = direction;
    return exec_.has_operation() || systems.init(exec_);
  }

  // Takes a text of whole lines, gives the text before it back, and starts to transform
  // it on a new thread. Where the system has no thread left, it transforms before it
  // returns.
  void start(std::string& text);
  // Waits, and returns the transformed text, or nothing when that was returned before.
  // Valid until the next start. Throws the exception of the thread.
  std::string_view finish();

  // The numbers of all points so far, and of the points that failed.
  std::uint64_t count() const { return count_; }
  std::uint64_t failed() const { return failed_; }

 private:
  static void run_worker(void* context);
  void run() noexcept;
  void transform_lines();
  void put(line_view const& line, std::size_t& at);
  void put_number(bool done, double value);

  int digits_ = 0;
  reproj_direction direction_ = reproj_direction::forward;
  Tzu_reproj_xy_exec exec_;
  std::string text_;
  std::string_view rest_;  // the part of the text that is not transformed yet
  std::vector<line_view> lines_;
  Tzu_xy_array points_;
  std::string output_;
  std::string_view untold_;  // the output, until finish returns it
  std::uint64_t count_ = 0;
  std::uint64_t failed_ = 0;
  std::exception_ptr failure_;
  zu::Tthread thread_;  // the last member, so that it ends before the others go
};

}  // namespace transformations
