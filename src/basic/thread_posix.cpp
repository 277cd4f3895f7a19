#include <pthread.h>

#include <bit>

#include "basic/thread.h"

namespace zu {
namespace {

void* run_thread(void* thread) {
  static_cast<Tthread const*>(thread)->run();
  return nullptr;
}

}  // namespace

bool Tthread::start(void (*function)(void*), void* context) noexcept {
  function_ = function;
  context_ = context;
  pthread_t thread{};
  is_started_ = pthread_create(&thread, nullptr, &run_thread, this) == 0;
  handle_ = std::bit_cast<std::uintptr_t>(thread);
  return is_started_;
}

void Tthread::join() noexcept {
  if (is_started_) pthread_join(std::bit_cast<pthread_t>(handle_), nullptr);
  is_started_ = false;
}

}  // namespace zu
