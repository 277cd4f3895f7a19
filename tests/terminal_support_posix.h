// A program whose messages go to a terminal.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(hicpp-deprecated-headers,modernize-deprecated-headers): POSIX's own

#include <cstdio>
#include <optional>
#include <string>

#include "basic/file.h"
#include "core_support.h"

namespace core_test {

// Runs the words of a command line, and puts what the terminal shows, without
// carriage returns, in place of the outcome's errors. Nothing where there are no
// terminals.
inline std::optional<outcome> run_before_terminal(std::string const& command_line) {
  zu::file::stream const master(std::fopen("/dev/ptmx", "r+"));
  if (!master) return std::nullopt;
  int const terminal = fileno(master.get());
  EXPECT_EQ(grantpt(terminal) + unlockpt(terminal), 0);
  outcome result = run({"/bin/sh", {"-c", command_line + " 2>" + ptsname(terminal)}, ""});
  // The terminal's end is an error of its other side.
  for (int c = std::fgetc(master.get()); c != EOF; c = std::fgetc(master.get()))
    if (c != '\r') result.err += static_cast<char>(c);
  return result;
}

}  // namespace core_test
