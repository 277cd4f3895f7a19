#include "failing_allocator.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace failing_allocator {
namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

std::atomic<std::size_t> taken{0};
std::atomic<std::size_t> first_to_fail{never};
std::atomic<std::size_t> last_to_fail{0};
std::atomic<std::size_t> live{0};
std::atomic<filter> counted{nullptr};

bool is_to_fail(void const* caller) noexcept {
  filter const counts = counted;
  if (first_to_fail == never || (counts != nullptr && !counts(caller))) return false;
  std::size_t const number = ++taken;
  return number >= first_to_fail && number <= last_to_fail;
}

void* take(std::size_t size, void const* caller) noexcept {
  if (is_to_fail(caller)) return nullptr;
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): what is below operator new
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory != nullptr) ++live;
  return memory;
}

void give_back(void* memory) noexcept {
  if (memory != nullptr) --live;
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
  std::free(memory);
}

}  // namespace

void arm(std::size_t nth, lack how_long, filter counts) noexcept {
  taken = 0;
  counted = counts;
  last_to_fail = how_long == lack::once ? nth : never;
  first_to_fail = nth;
}

bool disarm() noexcept { return first_to_fail.exchange(never) <= taken; }

std::string outcome(std::function<std::string()> const& road) {
  try {
    return road();
  } catch (std::bad_alloc const&) {
    return "failed";
  }
}

void deny_each(std::function<std::string()> const& road, std::string const& right,
               options const& wanted) {
  for (bool const again : {false, true}) {
    for (lack const how_long : {lack::for_good, lack::once}) {
      std::size_t const before = live.load();
      bool is_denied = true;
      for (std::size_t n = 1; is_denied && !testing::Test::HasFailure(); ++n) {
        SCOPED_TRACE(testing::Message() << "denied " << n << (again ? ", then gone again" : "")
                                        << (how_long == lack::once ? ", once" : ""));
        arm(n, how_long, wanted.counts);
        std::string const got = outcome(road);
        is_denied = disarm();
        EXPECT_EQ(got, is_denied && got == "failed" ? got : right);
        wanted.check();
        EXPECT_EQ(again ? outcome(road) : right, right);
      }
      EXPECT_EQ(again && wanted.gives_back ? live.load() : before, before);
    }
  }
}

}  // namespace failing_allocator

// In a file of their own, where the compiler cannot see through them.
void* operator new(std::size_t size, std::nothrow_t const& /*tag*/) noexcept {
  return failing_allocator::take(size, __builtin_return_address(0));
}
void* operator new(std::size_t size) {
  if (void* const memory = failing_allocator::take(size, __builtin_return_address(0)))
    return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { failing_allocator::give_back(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  failing_allocator::give_back(memory);
}
void operator delete(void* memory, std::nothrow_t const& /*tag*/) noexcept {
  failing_allocator::give_back(memory);
}
