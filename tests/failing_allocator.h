// An operator new that fails where a test wants it to, for the whole program, its
// libraries included. What is taken by malloc alone does not fail.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "text/string_adapter.h"

namespace failing_allocator {

// Whether memory is back after the failure, or lacks from then on.
enum class lack { once, for_good };

// Which allocations count, and may fail, by the code that called operator new.
using filter = bool (*)(void const* caller);
bool all(void const* caller) noexcept;
// Those of the program's own code, by way of the standard library or not. Not there
// on Windows, where the libraries are parts of the program.
bool own(void const* caller) noexcept;

// Makes the n-th allocation from here on fail, counted over all threads.
void arm(std::size_t nth, lack how_long, filter counts = all) noexcept;
// Ends that; whether the failure came.
bool disarm() noexcept;

// What the road gives; "no memory" when it throws std::bad_alloc.
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
  // Whether what is taken has to be given back; libraries that keep something for
  // their next call cannot be asked that.
  bool gives_back = true;
  filter counts = all;
  // Called after each failure.
  std::function<void()> check = [] {};
};

// Goes the road with each allocation denied in turn, until it needs no more of them.
// It has to give the right result, the text "failed" or std::bad_alloc. In a first
// round nothing comes between, so that what is made once in a process is denied, too,
// at each place; then the road is gone again after each failure, and has to give the
// right result.
void deny_each(std::function<std::string()> const& road, std::string const& right,
               options const& wanted = {});

}  // namespace failing_allocator
