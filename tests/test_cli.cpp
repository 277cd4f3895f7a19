// The command-line program as a shell sees it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "cli_support.h"

namespace {

namespace fs = std::filesystem;
using cli_test::Cli;
using cli_test::expect_lines;
using cli_test::local_system;
using cli_test::ordered;
using cli_test::shell_letters;
using cli_test::unordered;
using core_test::get_file;
using core_test::put_file;

using commands = std::vector<std::vector<std::string>>;

std::string const local_line = std::string(local_system) + "\n";

TEST_F(Cli, ListsTheCatalogueInBothForms) {
  for (std::string const list : {"usual", "zonal", "datums", "ellipsoids"}) {
    auto const plain = run({"catalogue", list});
    auto const json = run({"catalogue", list, "--json"});
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(json.status, 0);
    auto const items = nlohmann::json::parse(json.out);
    ASSERT_TRUE(items.is_array()) << list;
    EXPECT_GT(items.size(), 4U) << list;
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(plain.out, '\n')), items.size()) << list;
    std::set<unsigned> ids;
    for (auto const& item : items) {
      EXPECT_TRUE(ids.insert(item.at("id").get<unsigned>()).second) << item;
      EXPECT_NE(plain.out.find(item.at("name").get<std::string>()), std::string::npos) << item;
    }
  }
}

TEST_F(Cli, SpeaksTheLettersOfTheSystemsPage) {
  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const system(page);
    SCOPED_TRACE(page.encoding);
    std::string const file = path(shell_letters(page));
    put_file(path(page.bytes),
             "an older and longer content of the file, which has to go" + local_line);
    expect_lines(run({"save", local_system, file}), "");
    EXPECT_EQ(get_file(path(page.bytes)), "[projection]\n\npj4=" + local_line);
    expect_lines(run({"load", file}), local_line);
    std::string const grid = "+nadgrids=" + shell_letters(page);
    std::string const ordered_grid = grid + " +lon_wrap=45 +no_defs\n";
    expect_lines(run({"normalize", grid, "-"}, grid + "\n"), ordered_grid + ordered_grid);
    put_file(path("plain"), std::string("+nadgrids=") + page.bytes);
    expect_lines(run({"load", path("plain")}), grid + "\n");
  }
}

TEST_F(Cli, NoticesThatOutputIsLost) {
  for (auto const& command : commands{{"apply", local_system},
                                      {"catalogue", "usual"},
                                      {"to-esri", local_system},
                                      {"known", "--list"}}) {
    auto const result = run_program({ZU_PJ4, command, "", true});
    EXPECT_EQ(result.status, 2) << command.front();
    EXPECT_NE(result.err, "") << command.front();
  }
}

TEST_F(Cli, FindsItsCatalogueInAFolderOfAnyLetterOfThePage) {
  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const system(page);
    fs::path const program = ZU_PJ4;
    std::string const folder = path(shell_letters(page)) + "/";
    fs::path const copy = core_test::shell_path(folder);
    fs::create_directory(copy);
    fs::copy(program, copy / program.filename());
    fs::copy(program.parent_path() / "prj_def", copy / "prj_def");
    expect_lines(run_program({folder + program.filename().string(), {"apply", local_system}, ""}),
                 local_line);
    // Another one, where it is asked for; its table without records is a good one.
    fs::resize_file(copy / "prj_def/pj_datum.dbf", 353);
    expect_lines(run({"--catalogue", folder + "prj_def", "catalogue", "usual"}),
                 run({"catalogue", "usual"}).out);
    EXPECT_NE(run({"--catalogue", folder + "prj_def", "catalogue", "datums"}).out,
              run({"catalogue", "datums"}).out);
  }
  // What needs no catalogue goes without.
  fs::create_directory(path("folder"));
  expect_lines(run({"--catalogue", path("folder"), "normalize", unordered}), ordered);
}

TEST_F(Cli, ExplainsItself) {
  for (auto const& command : commands{{"--help"}, {"--version"}, {"apply", "--help"}}) {
    auto const result = run(command);
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out, "");
    EXPECT_EQ(result.err, "");
  }
}

}  // namespace
