// Many dialogs in one process. They must leave nothing behind, and the same input must give
// the same result each time. ZU_SOAK_CALLS is the number of calls.

#include <gtest/gtest.h>
#include <malloc.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "gui_support.h"
#include "interchange/known_systems.h"

// Xlib's macros spoil later headers.
#include <X11/Xlib.h>

namespace {

std::size_t count_entries(char const* folder) {
  std::filesystem::directory_iterator const entries(folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

// The display belongs to this program alone.
std::size_t count_windows() {
  Display* const display = XOpenDisplay(nullptr);
  Window root = None;
  Window parent = None;
  Window* children = nullptr;
  unsigned count = 0;
  XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
  if (children != nullptr) XFree(children);
  XCloseDisplay(display);
  return count;
}

// What the process has, and how much the toolkit may add between two calls.
std::array<std::size_t, 4> count_all() {
  return {mallinfo2().uordblks, count_entries("/proc/self/fd"), count_entries("/proc/self/task"),
          count_windows()};
}
constexpr std::array names{"bytes", "files", "threads", "windows"};
constexpr std::array<std::size_t, 4> slack{65'536, 2, 2, 2};
constexpr std::size_t bytes_per_call = 400;

// The dialog of every other system has a note, and each has another type, datum or list.
std::string definition(std::size_t number) {
  std::string const known(zu::known_systems[number * 37 % std::size(zu::known_systems)].proj4);
  return number % 2 == 0 ? known : known + " +pm=paris +nadgrids=no_such_grid";
}

std::string call(std::size_t number) {
  gui::outcome const got = gui::open_dialog(definition(number).c_str(), [&](gui::Tform& form) {
    number % 3 == 0 ? form.get_buttons()->call_on_cancel() : form.get_buttons()->call_on_apply();
  });
  return got.text + std::to_string(got.changed);
}

TEST(Soak, many_dialogs_leave_nothing_behind) {
  char const* const wanted = std::getenv("ZU_SOAK_CALLS");
  std::size_t const calls = wanted == nullptr ? 90 : std::strtoull(wanted, nullptr, 10);
  constexpr std::size_t different_calls = 20;
  std::vector<std::string> results;
  for (std::size_t i = 0; i < different_calls; ++i) results.push_back(call(i));
  auto const before = count_all();
  for (std::size_t i = 0; i < calls; ++i)
    ASSERT_EQ(call(i % different_calls), results[i % different_calls]) << "call " << i;
  auto const after = count_all();
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::cout << names.at(i) << ": " << before.at(i) << ", later " << after.at(i) << '\n';
    EXPECT_LE(after.at(i), before.at(i) + slack.at(i) + (i == 0 ? bytes_per_call * calls : 0))
        << names.at(i);
  }
}

}  // namespace
