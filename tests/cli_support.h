// The command-line program as a shell sees it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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
  std::string path(std::string const& name) const { return folder_.file(name); }
  std::size_t count() const { return folder_.count(); }

  core_test::outcome run(std::vector<std::string> arguments, std::string input = "") const {
    return run_program({ZU_PJ4, std::move(arguments), std::move(input)});
  }
  // The results go into the record, without the name of the folder and whatever
  // the shell's encoding.
  core_test::outcome run_program(core_test::command const& command) const {
    core_test::outcome result = core_test::run(command);
    core_test::recorded(std::to_string(result.status));
    core_test::recorded(letters_of(without_folder(result.out)));
    core_test::recorded(letters_of(without_folder(result.err)));
    return result;
  }

 private:
  static std::wstring letters_of(std::string const& text) {
    return core_test::is_shell_utf8() ? zu::strconv::from_utf8(text)
                                      : zu::strconv::from_system(text);
  }
  std::string without_folder(std::string text) const {
    std::string const name = path("");
    for (std::size_t at = 0; (at = text.find(name, at)) != std::string::npos;)
      text.replace(at, name.size(), "<folder>/");
    return text;
  }

  core_test::Ttemp_folder const folder_;
  core_test::Tenvironment const environment_{
      {"LC_ALL", "C"}, {"DISPLAY", nullptr}, {"WAYLAND_DISPLAY", nullptr}};
};

}  // namespace cli_test
