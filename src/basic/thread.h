// A thread that runs one function and is joined. std::thread takes memory for
// every start and throws where the system has no thread to give; this one does
// neither. Its function runs in a Tfloat_scope, as what a host calls does, whatever
// floating-point environment the system gives a new thread.
#pragma once

#include <cstdint>

#include "basic/float_environment.h"

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
    Tfloat_scope const scope;
    function_(context_);
  }

 private:
  void (*function_)(void*) = nullptr;
  void* context_ = nullptr;
  std::uintptr_t handle_ = 0;
  bool is_started_ = false;
};

}  // namespace zu
