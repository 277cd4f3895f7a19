// A thread that runs one function and is joined. std::thread is not used because MinGW's
// leaves handles open each time a host unloads the library after a thread has run; it
// also takes memory for each start, and throws where the system has no thread left.
// The function runs in a Tfloat_scope, as every call of a host does.
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

  // Calls function(context) on a new thread; the function must not throw. False when the
  // system has no thread left. Call join before the next start.
  bool start(void (*function)(void* context), void* context) noexcept;
  // Waits until the function ends; does nothing without a start.
  void join() noexcept;

  // Runs on the new thread.
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
