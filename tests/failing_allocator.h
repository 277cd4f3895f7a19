// An operator new that fails where a test wants it to, for the whole program, its
// libraries included. Calls of malloc do not fail.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "text/string_adapter.h"

namespace failing_allocator {

// Whether only one allocation fails, or all from that one on.
enum class lack { once, for_good };

// Which allocations count, and may fail, by the code that called operator new. Null: all.
using filter = bool (*)(void const* caller);
// Only those of the program's own code, also when the standard library makes them. Not on
// Windows, where the libraries are parts of the program.
bool own(void const* caller) noexcept;

// Makes the n-th allocation from here on fail, counted over all threads.
void arm(std::size_t nth, lack how_long, filter counts = nullptr) noexcept;
// Ends that, and tells whether the allocation failed.
bool disarm() noexcept;

// What the road gives; "failed" when it throws std::bad_alloc.
std::string outcome(std::function<std::string()> const& road);

// What a producer feeds into a string adapter; "failed" when it says so and feeds
// nothing.
template <class Produce>
std::string made_by(Produce produce) {
  std::string text = "failed";
  Tzu_std_string_adapter target(&text);
  zu::string_adp const adapter(target);
  if (produce(adapter.get()) == 0 && text != "failed") text = "failed, and fed";
  return text;
}

struct options {
  // Whether all memory has to be given back. Some libraries keep memory for the next
  // call.
  bool gives_back = true;
  filter counts = nullptr;
  // Called after each failure.
  std::function<void()> check = [] {};
};

// Runs the road once for each of its allocations, which fails.
// It has to give the right result, or "failed" or std::bad_alloc. In a first
// round the road is not repeated after a failure, so that also things that are made only
// once in a process fail at each place. In a second round it is repeated, and has to give
// the right result.
void deny_each(std::function<std::string()> const& road, std::string const& right,
               options const& wanted = {});

}  // namespace failing_allocator
