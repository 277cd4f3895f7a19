#include "allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> count{0};

}  // namespace

std::size_t allocation_count() noexcept { return count; }

// In a file of their own, where the compiler cannot see through them.
// NOLINTBEGIN(cppcoreguidelines-no-malloc,hicpp-no-malloc): what is below operator new
void* operator new(std::size_t size, std::nothrow_t const& /*tag*/) noexcept {
  ++count;
  return std::malloc(size == 0 ? 1 : size);
}
void* operator new(std::size_t size) {
  if (void* const memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete(void* memory, std::nothrow_t const& /*tag*/) noexcept { std::free(memory); }
// NOLINTEND(cppcoreguidelines-no-malloc,hicpp-no-malloc)
