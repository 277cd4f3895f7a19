// Conversions before a terminal, and with full disks.

#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(hicpp-deprecated-headers,modernize-deprecated-headers): POSIX's own

#include <cstdio>
#include <string>

#include "basic/file.h"
#include "cli_support.h"

namespace {

using core_test::put_file;

class Cli_conversions_posix : public cli_test::Cli {};

TEST_F(Cli_conversions_posix, ProgressIsForWhoSitsBeforeATerminal) {
  zu::file::stream const master(std::fopen("/dev/ptmx", "r+"));
  if (!master) GTEST_SKIP() << "no terminals here";
  ASSERT_EQ(grantpt(fileno(master.get())), 0);
  ASSERT_EQ(unlockpt(fileno(master.get())), 0);
  put_file(path("a.pj4"), "+proj=longlat +ellps=krass");
  put_file(path("b.pj4"), "text");
  std::string const command = std::string(ZU_PJ4) + " convert " + path("a.pj4") + " " +
                              path("b.pj4") + " --to prj 2>" + ptsname(fileno(master.get()));
  auto const result = core_test::run({"/bin/sh", {"-c", command}, ""});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  std::string shown;
  // The terminal's end is an error of its other side.
  for (int c = std::fgetc(master.get()); c != EOF; c = std::fgetc(master.get()))
    if (c != '\r') shown += static_cast<char>(c);
  EXPECT_EQ(shown, "Wait: [##########..........]  50% converting\nError: " + path("b.pj4") +
                       ": no PROJ.4 definition\nWait: [####################] 100% converting\n"
                       "Finished: 1 of 2 files converted\nError: 1 of 2 files not converted\n");
}

}  // namespace
