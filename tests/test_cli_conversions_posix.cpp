// Conversions before a terminal.

#include <gtest/gtest.h>

#include <string>

#include "cli_support.h"
#include "terminal_support_posix.h"

namespace {

using core_test::put_file;

class Cli_conversions_posix : public cli_test::Cli {};

TEST_F(Cli_conversions_posix, ProgressIsForWhoSitsBeforeATerminal) {
  put_file(path("a.pj4"), "+proj=longlat +ellps=krass");
  put_file(path("b.pj4"), "text");
  auto const result = core_test::run_before_terminal(
      std::string(ZU_PJ4) + " convert " + path("a.pj4") + " " + path("b.pj4") + " --to prj");
  if (!result) GTEST_SKIP() << "no terminals here";
  EXPECT_EQ(result->status, 1);
  EXPECT_EQ(result->out, "");
  EXPECT_EQ(result->err, "Wait: [##########..........]  50% converting\nError: " + path("b.pj4") +
                             ": no PROJ.4 definition\n"
                             "Wait: [####################] 100% converting\n"
                             "Finished: 1 of 2 files converted\n"
                             "Error: 1 of 2 files not converted\n");
}

}  // namespace
