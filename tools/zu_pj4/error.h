// Errors and exit statuses of commands.
#pragma once

#include <stdexcept>

constexpr int exit_some_failed = 1;
constexpr int exit_error = 2;

// Ends a command. Its text is one line on standard error.
class Terror : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};
