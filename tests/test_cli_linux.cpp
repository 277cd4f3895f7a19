// The command-line program before a terminal, on a full disk and in other locales.

#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): POSIX's own

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "basic/file.h"
#include "cli_support.h"

namespace {

using cli_test::expect_outcome;
using cli_test::local_system;
using core_test::put_file;

class Cli_linux : public cli_test::Cli {};

// Runs the program with the words of a command line, and puts what the terminal
// shows, without carriage returns, in place of the outcome's errors. Nothing where
// there are no terminals.
std::optional<core_test::outcome> run_before_terminal(std::string const& words) {
  zu::file::stream const master(std::fopen("/dev/ptmx", "r+"));
  if (!master) return std::nullopt;
  int const terminal = fileno(master.get());
  EXPECT_EQ(grantpt(terminal) + unlockpt(terminal), 0);
  auto result =
      core_test::run({"/bin/sh", {"-c", ZU_PJ4 " " + words + " 2>" + ptsname(terminal)}, ""});
  // The terminal's end is an error of its other side.
  for (int c = std::fgetc(master.get()); c != EOF; c = std::fgetc(master.get()))
    if (c != '\r') result.err += static_cast<char>(c);
  return result;
}

TEST_F(Cli_linux, ProgressIsForWhoSitsBeforeATerminal) {
  put_file(path("a.pj4"), "+proj=longlat +ellps=krass");
  put_file(path("b.pj4"), "text");
  auto result = run_before_terminal("convert " + path("a.pj4") + " " + path("b.pj4") + " --to prj");
  if (!result) GTEST_SKIP() << "no terminals here";
  expect_outcome(*result, 1, "",
                 "Wait: [##########..........]  50% converting\nError: " + path("b.pj4") +
                     ": no PROJ.4 definition\n"
                     "Wait: [####################] 100% converting\n"
                     "Finished: 1 of 2 files converted\n"
                     "Error: 1 of 2 files not converted\n");
  // Of points only where they are many.
  std::string const points = path("points.txt");
  std::string const transform = "transform --from EPSG:4326 --to EPSG:32637 " + points;
  put_file(points, "39 0\nx\n");
  expect_outcome(*run_before_terminal(transform), 1, "500000.0000 0.0000\n* * x\n",
                 "Error: 1 of 2 points not transformed\n");
  std::string many;
  while (many.size() < std::size_t{10} << 20U) many += "39 0  x\n";
  put_file(points, many);
  std::string const shown = run_before_terminal(transform + " >/dev/null")->err;
  EXPECT_TRUE(
      shown.starts_with("Wait: [########............]  40% transforming"
                        "Wait: [#########...........]  45% transforming"))
      << shown;
  EXPECT_TRUE(
      shown.ends_with("Wait: [####################] 100% transforming\n"
                      "Finished: 1310720 points\n"))
      << shown;
}

TEST_F(Cli_linux, NoticesAFullDiskAndTheLackOfADisplay) {
  expect_outcome(run({"save", local_system, "/dev/full"}), 2, "",
                 "Error: cannot write /dev/full\n");
  auto const edited = run({"edit", local_system});
  EXPECT_EQ(edited.status, 2);
  EXPECT_NE(edited.err.find("display"), std::string::npos);
  EXPECT_EQ(edited.err.find('\n'), edited.err.size() - 1);
}

TEST_F(Cli_linux, GivesTheSameInEveryLocale) {
  for (auto const& command :
       std::vector<std::vector<std::string>>{{"apply", local_system},
                                             {"apply", "+proj=utm +zone=37 +south +ellps=intl"},
                                             {"catalogue", "datums", "--json"},
                                             {"load", path("missing.pj4")}}) {
    auto const expected = run(command);
    for (char const* locale : {"ru_RU.UTF-8", "de_DE.UTF-8", "ru_RU.CP1251"}) {
      core_test::Tenvironment const environment{{"LC_ALL", locale}};
      SCOPED_TRACE(locale);
      expect_outcome(run(command), expected.status, expected.out, expected.err);
    }
  }
}

}  // namespace
