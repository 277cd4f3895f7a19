// The command-line program with letters that the system's code page lacks.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli_support.h"

namespace {

namespace fs = std::filesystem;
using cli_test::local_system;

class Cli_win32 : public cli_test::Cli {
 protected:
  static void expect_refusal(core_test::outcome const& result, std::string const& named,
                             int status = 2, std::string const& out = "") {
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.out, out);
    EXPECT_NE(result.err.find(named), std::string::npos) << result.err;
    EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
  }
};

TEST_F(Cli_win32, RefusesWhatCannotBeSpelled) {
  for (auto const& page : core_test::system_pages()) {
    std::size_t const before = count();
    for (wchar_t const* letter : page.foreign) {
      std::string const text = zu::strconv::to_utf8(letter);
      std::string const grid = "+nadgrids=" + text;
      // The INI form has a name in the page, as has the folder of the tables.
      expect_refusal(run({"save", local_system, path(text)}), text);
      expect_refusal(run({"save", grid, path("a.pj4")}), text);
      expect_refusal(run({"normalize", grid}), text);
      expect_refusal(run({"apply", "-"}, grid + "\n"), text, 1, "\n");
      EXPECT_EQ(count(), before);
      fs::path const folder = core_test::shell_path(path(text));
      fs::create_directory(folder);
      expect_refusal(run({"--catalogue", path(text), "catalogue", "usual"}), text);
      fs::remove(folder);
    }
  }
}

TEST_F(Cli_win32, TellsThatItCannotReachItsCatalogue) {
  auto const page = core_test::system_pages().at(0);
  if (page.foreign.empty()) GTEST_SKIP() << "there are names of every letter";
  std::string const folder = path(zu::strconv::to_utf8(page.foreign.back())) + "/";
  expect_refusal(run_program({copied_program(folder), {"apply", local_system}, ""}),
                 "no catalogue");
}

}  // namespace
