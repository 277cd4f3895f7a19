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

TEST_F(Cli, NormalizesArgumentsAndLinesOfInput) {
  std::string const once = ordered;
  expect_lines(run({"normalize", unordered}), once);
  expect_lines(run({"normalize", unordered, "", unordered}), once + "\n" + once);
  expect_lines(run({"normalize", "-"}, std::string(unordered) + "\r\n\n" + unordered),
               once + "\n" + once);
  expect_lines(run({"normalize", "-"}), "");
}

TEST_F(Cli, AppliesWithoutADisplay) {
  std::string const line = std::string(local_system) + "\n";
  expect_lines(run({"apply", local_system}), line);
  expect_lines(run({"apply", "-", "+proj=utm +zone=99"}, line + line), line + line + "\n");
}

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
      EXPECT_FALSE(item.at("name").get<std::string>().empty()) << item;
      EXPECT_NE(plain.out.find(item.at("name").get<std::string>()), std::string::npos) << item;
    }
  }
}

TEST_F(Cli, SavesAndLoadsParameterFiles) {
  std::string const file = path("a b.pj4");
  put_file(file, "an older and longer content of the file, which has to go");
  expect_lines(run({"save", local_system, file}), "");
  EXPECT_EQ(get_file(file), "[projection]\n\npj4=" + std::string(local_system) + "\n");
  expect_lines(run({"load", file}), std::string(local_system) + "\n");

  // As written, not normalised.
  std::string const plain = path("plain.txt");
  put_file(plain, "\r\n  +proj=longlat   +R=5 \r\n");
  expect_lines(run({"load", plain}), "+proj=longlat   +R=5\n");
}

TEST_F(Cli, TakesFileNamesInLettersOfAnyScript) {
  // UTF-8 off Windows, too.
  core_test::Tenvironment const environment{{"LC_ALL", "ru_RU.UTF-8"}};
  put_file(path("plain.pj4"), "+proj=longlat +ellps=krass\r\n");
  for (std::string const letters : {"\u0444", "\u00FC", "\u03B1\u03C9", "\u4E2D", "\U0001F600"}) {
    std::string const file = path(letters + ".pj4");
    fs::copy_file(path("plain.pj4"), core_test::shell_path(file));
    expect_lines(run({"load", file}), "+proj=longlat +ellps=krass\n");
    fs::remove(core_test::shell_path(file));
    auto const result = run({"load", file});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "Error: " + file + ": no such file\n");
  }
}

TEST_F(Cli, SpeaksTheLettersOfTheSystemsPage) {
  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const system(page);
    std::string const file = path(shell_letters(page));
    expect_lines(run({"save", local_system, file}), "");
    EXPECT_EQ(get_file(path(page.bytes)),
              "[projection]\n\npj4=" + std::string(local_system) + "\n");
    expect_lines(run({"load", file}), std::string(local_system) + "\n");
    std::string const grid = "+nadgrids=" + shell_letters(page);
    expect_lines(run({"normalize", grid}), grid + " +lon_wrap=45 +no_defs\n");
    expect_lines(run({"normalize", "-"}, grid + "\n"), grid + " +lon_wrap=45 +no_defs\n");
    put_file(path("plain"), std::string("+nadgrids=") + page.bytes);
    expect_lines(run({"load", path("plain")}), grid + "\n");
  }
}

TEST_F(Cli, TellsErrorsInOneLine) {
  put_file(path("empty.pj4"), "");
  put_file(path("text.pj4"), "no definition\n");
  fs::create_directory(path("folder"));
  std::vector<std::vector<std::string>> const commands{
      {},
      {"no-such-command"},
      {"normalize"},
      {"normalize", "--no-such-option", "+proj=longlat"},
      {"catalogue"},
      {"catalogue", "no-such-list"},
      {"--lang", "de", "normalize", "+proj=longlat"},
      {"load"},
      {"load", path("missing.pj4")},
      {"load", path("empty.pj4")},
      {"load", path("text.pj4")},
      {"load", path("folder")},
      {"load", path("a.prj")},
      {"save", "+proj=nonsense", path("a.PRJ")},
      {"from-esri"},
      {"from-esri", path("text.pj4")},
      {"convert", path("text.pj4")},
      {"convert", path("text.pj4"), "--to", "txt"},
      {"known"},
      {"known", "--list", "name"},
      {"save", local_system, path("missing/a.pj4")},
      {"save", local_system, path("folder")},
      {"--catalogue", path("missing"), "catalogue", "usual"},
      {"--catalogue", path("folder"), "catalogue", "usual"},
      {"--catalogue", path("folder"), "apply", local_system},
  };
  for (auto const& command : commands) {
    std::string const told = testing::PrintToString(command);
    auto const result = run(command);
    EXPECT_EQ(result.status, 2) << told;
    EXPECT_EQ(result.out, "") << told;
    EXPECT_TRUE(result.err.starts_with("Error: ") && result.err.size() > 12) << told << result.err;
    EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << told << result.err;
  }
}

TEST_F(Cli, SaysWhatIsWrong) {
  for (char const* name : {"a.prj", "missing.pj4"})
    EXPECT_NE(run({"load", path(name)}).err.find(path(name)), std::string::npos);
}

TEST_F(Cli, NoticesThatOutputIsLost) {
  put_file(path("a.pj4"), "+proj=longlat");
  for (auto const& command : std::vector<std::vector<std::string>>{{"normalize", unordered},
                                                                   {"apply", local_system},
                                                                   {"catalogue", "usual"},
                                                                   {"to-esri", local_system},
                                                                   {"import", "EPSG:28407"},
                                                                   {"known", "--list"},
                                                                   {"load", path("a.pj4")}}) {
    auto const result = run_program({ZU_PJ4, command, "", true});
    EXPECT_EQ(result.status, 2) << command.front();
    EXPECT_NE(result.err, "") << command.front();
  }
}

TEST_F(Cli, TakesAnotherCatalogue) {
  fs::path const shipped = fs::path(ZU_PJ4).parent_path() / "prj_def";
  fs::copy(shipped, path("other"));
  fs::remove(path("other/pj_proj2.dbf"));
  fs::copy_file(path("other/pj_proj1.dbf"), path("other/pj_proj2.dbf"));
  std::string const line = std::string(local_system) + "\n";
  expect_lines(run({"--catalogue", shipped.string(), "apply", local_system}), line);
  EXPECT_NE(run({"--catalogue", path("other"), "catalogue", "zonal"}).out,
            run({"catalogue", "zonal"}).out);
  // What needs no catalogue goes without.
  fs::create_directory(path("folder"));
  expect_lines(run({"--catalogue", path("folder"), "normalize", unordered}), ordered);
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
                 std::string(local_system) + "\n");
    EXPECT_EQ(run({"--catalogue", folder + "prj_def", "catalogue", "datums"}).out,
              run({"catalogue", "datums"}).out);
  }
}

TEST_F(Cli, ExplainsItself) {
  for (auto const& command : std::vector<std::vector<std::string>>{
           {"--help"}, {"--version"}, {"apply", "--help"}, {"catalogue", "--help"}}) {
    auto const result = run(command);
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out, "");
    EXPECT_EQ(result.err, "");
  }
}

}  // namespace
