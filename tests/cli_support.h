// The command-line program as a shell sees it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "case_file.h"
#include "core_support.h"
#include "text/strconv.h"

namespace cli_test {

constexpr char const* local_system =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

inline void expect_outcome(core_test::outcome const& result, int status, std::string const& out,
                           std::string const& errors) {
  EXPECT_EQ(result.status, status);
  EXPECT_EQ(result.out, out);
  EXPECT_EQ(result.err, errors);
}

inline void expect_lines(core_test::outcome const& result, std::string const& lines) {
  expect_outcome(result, 0, lines, "");
}

// The letters of a page as the shell gives them to a program.
inline std::string shell_letters(core_test::system_page const& page) {
  return core_test::is_shell_utf8() ? zu::strconv::to_utf8(page.letters) : page.bytes;
}

// With a folder of its own, without a display, in the locale "C".
class Cli : public testing::Test {
 protected:
  // Texts are in the shell's encoding.
  std::string path(std::string const& name) const { return scope_.folder.file(name); }
  std::size_t count() const { return scope_.folder.count(); }

  core_test::outcome run(std::vector<std::string> arguments, std::string input = "") const {
    return run_program({ZU_PJ4, std::move(arguments), std::move(input)});
  }
  // The results go into the record, without the name of the folder and whatever
  // the shell's encoding.
  core_test::outcome run_program(core_test::command const& command) const {
    core_test::outcome result = core_test::run(command);
    core_test::recorded(std::to_string(result.status));
    for (auto const& text : {result.out, result.err}) {
      std::string const shown = scope_.without_folder(text);
      core_test::recorded(core_test::is_shell_utf8() ? zu::strconv::from_utf8(shown)
                                                     : zu::strconv::from_system(shown));
    }
    return result;
  }
  // Copies the program and its catalogue into a new folder, whose name ends with "/".
  static std::string copied_program(std::string const& folder) {
    std::filesystem::path const program = ZU_PJ4;
    std::filesystem::path const copy = core_test::shell_path(folder);
    std::filesystem::create_directory(copy);
    std::filesystem::copy(program, copy / program.filename());
    std::filesystem::copy(program.parent_path() / "prj_def", copy / "prj_def");
    return folder + program.filename().string();
  }

 private:
  case_file::scope const scope_;
};

}  // namespace cli_test
