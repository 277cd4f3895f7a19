// A thread that runs one function and is joined. std::thread takes memory for
// every start and throws where the system has no thread to give; this one does
// neither. It reckons as its starter does: with that one's floating-point
// environment, of which Windows gives a new thread its own.
#pragma once

#include <cfenv>
#include <cstdint>

namespace zu {

class Tthread {
 public:
  Tthread() = default;
  ~Tthread() { join(); }
  Tthread(Tthread const&) = delete;
  Tthread& operator=(Tthread const&) = delete;

  // Calls function(context) on a thread of its own; the function must not throw.
  // False when there is none to be had. At most one start between two joins.
  bool start(void (*function)(void* context), void* context) noexcept;
  // Waits for the function's end; does nothing without a start.
  void join() noexcept;

  // What the started thread does.
  void run() const noexcept {
    std::fesetenv(&environment_);
    function_(context_);
  }

 private:
  void (*function_)(void*) = nullptr;
  void* context_ = nullptr;
  std::fenv_t environment_{};
  std::uintptr_t handle_ = 0;
  bool is_started_ = false;
};

}  // namespace zu
