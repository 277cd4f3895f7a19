#include <process.h>
#include <windows.h>

#include "basic/thread.h"

namespace zu {
namespace {

unsigned __stdcall run_thread(void* thread) {
  static_cast<Tthread const*>(thread)->run();
  return 0;
}

}  // namespace

bool Tthread::start(void (*function)(void*), void* context) noexcept {
  function_ = function;
  context_ = context;
  handle_ = _beginthreadex(nullptr, 0, &run_thread, this, 0, nullptr);
  is_started_ = handle_ != 0;
  return is_started_;
}

void Tthread::join() noexcept {
  if (is_started_) {
    auto* const handle = reinterpret_cast<HANDLE>(handle_);
    WaitForSingleObject(handle, INFINITE);
    CloseHandle(handle);
  }
  is_started_ = false;
}

}  // namespace zu
