// Lines of text whose first two columns are points, on one thread.
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

  // Takes what inits a PROJ step, and tells the digits. False when there is no
  // transformation. Costs nothing the second time.
  template <class Systems>
  bool init(Systems const& systems, reproj_direction direction) {
    digits_ = systems.digits();
    direction_ = direction;
    return exec_.has_operation() || systems.init(exec_);
  }

  // Swaps a text of whole lines with the one before, and starts on it; on a thread of
  // its own where there is one to be had. Otherwise it is done by now.
  void start(std::string& text);
  // What has become of the text, once; nothing without one. Valid until the next
  // start. Throws what went wrong.
  std::string_view finish();

  // The points so far, and those of them that could not be transformed.
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
  std::string_view rest_;  // of the text, still to be done
  std::vector<line_view> lines_;
  Tzu_xy_array points_;
  std::string output_;
  std::string_view untold_;  // of the output
  std::uint64_t count_ = 0;
  std::uint64_t failed_ = 0;
  std::exception_ptr failure_;
  zu::Tthread thread_;  // joined before the rest goes
};

}  // namespace transformations
