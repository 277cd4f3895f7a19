// What ends a command.
#pragma once

#include <stdexcept>

constexpr int exit_some_failed = 1;
constexpr int exit_error = 2;

// Shown in one line on standard error.
class Terror : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
