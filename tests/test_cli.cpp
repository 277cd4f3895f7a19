// The command-line program as a shell sees it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "basic/str.h"
#include "cli_support.h"

namespace {

using cli_test::Cli;
using cli_test::expect_lines;
using cli_test::local_system;
using cli_test::shell_letters;
using core_test::get_file;
using core_test::put_file;

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
  for (auto const& command : std::vector<std::vector<std::string>>{{"apply", local_system},
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
    std::string const folder = path(shell_letters(page)) + "/";
    expect_lines(run_program({copied_program(folder), {"apply", local_system}, ""}), local_line);
    // Another one, where it is asked for; its table without records is a good one.
    std::string const datums = "prj_def/pj_datum.dbf";
    std::string const table = get_file(path(page.bytes) + "/" + datums);
    auto const header = static_cast<unsigned char>(table.at(8)) +
                        static_cast<unsigned char>(table.at(9)) * std::uintmax_t{256};
    std::filesystem::resize_file(core_test::shell_path(folder + datums), header);
    expect_lines(run({"--catalogue", folder + "prj_def", "catalogue", "usual"}),
                 run({"catalogue", "usual"}).out);
    EXPECT_NE(run({"--catalogue", folder + "prj_def", "catalogue", "datums"}).out,
              run({"catalogue", "datums"}).out);
  }
}

// The dialog adds seven numbers to a datum's key. Two of the systems do not have them.
TEST_F(Cli, KnowsSystemsByDefinitionAlsoAfterTheDialog) {
  auto const lines_of = [](std::string const& text) { return zu::str::split(text, "\n"); };
  auto const list = run({"known", "--list"}).out;
  EXPECT_EQ(std::ranges::count(list, '\n'), 442);
  EXPECT_NE(list.find("\n73\tPulkovo_1942_GK_Zone_7\tconfirmed\t+proj=tmerc +lon_0=39 "),
            std::string::npos);
  std::string definitions;
  for (auto const row : lines_of(list)) {
    // Placeholders are not for use.
    if (row.empty() || row.ends_with("\tunconfirmed\t")) continue;
    EXPECT_NE(row.find("\tconfirmed\t+proj="), std::string_view::npos) << row;
    definitions.append(row.substr(row.rfind('\t') + 1)).append("\n");
  }
  EXPECT_EQ(std::ranges::count(definitions, '\n'), 381);
  auto const direct = run({"to-esri", "-"}, definitions).out;
  auto const edited = run({"to-esri", "-"}, run({"apply", "-"}, definitions).out).out;
  auto const before = lines_of(direct);
  auto const after = lines_of(edited);
  ASSERT_EQ(before.size(), after.size());
  std::vector<std::string> changed;
  for (std::size_t i = 0; i < before.size(); ++i)
    for (auto const text : {before[i], after[i]})
      if (before[i] != after[i]) changed.emplace_back(text.substr(0, text.find(',')));
  EXPECT_EQ(changed, (std::vector<std::string>{"GEOGCS[\"GCS_WGS_1984\"", "GEOGCS[\"GCS_unknown\"",
                                               "PROJCS[\"Russia_Cadastre_77_1\"", ""}));
}

// The text and one of its lines are longer than the buffer.
TEST_F(Cli, KeepsTheOrderOfLongInput) {
  std::string input;
  std::string output;
  auto const add = [&](std::string const& rest) {
    input.append("39 0 ").append(rest).append("\n");
    output.append("500000.0000 0.0000 ").append(rest).append("\n");
  };
  for (int i = 0; i < 400000; ++i) add(std::to_string(i) + " a name");
  add(std::string(std::size_t{5} << 20U, 'x'));
  for (int i = 0; i < 100000; ++i) add(std::to_string(i));
  put_file(path("long.txt"), input);
  std::vector<std::string> arguments{"transform", "--from", "EPSG:4326", "--to", "EPSG:32637"};
  EXPECT_TRUE(core_test::run({ZU_PJ4, arguments, input}).out == output);
  EXPECT_EQ(core_test::run({ZU_PJ4, arguments, input, true}).status, 2) << "output is lost";
  arguments.push_back(path("long.txt"));
  for (std::string const jobs : {"1", "7"}) {
    auto of_jobs = arguments;
    of_jobs.insert(of_jobs.end(), {"--jobs", jobs});
    auto const result = core_test::run({ZU_PJ4, of_jobs, ""});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(result.out == output) << "with jobs: " << jobs;
  }

  put_file(path("line.txt"), std::string(std::size_t{40} << 20U, '1'));
  arguments.back() = path("line.txt");
  EXPECT_EQ(run(arguments).err,
            "Error: this is no text of points: it has a line of more than 32 MB\n");
}

// Some lines are bad, and the cheap streams are longer than the queue.
TEST_F(Cli, AnswersTheSameWithAnyNumberOfJobs) {
  auto const lines = [](int count) {
    std::string text = "\xEF\xBB\xBFRussia_Cadastre_50_1\nno name\n\nEPSG:1\nEPSG:28407\r\n";
    for (int i = 0; i < count; ++i)
      text.append(i % 9 == 0 ? "+proj=none" : "+proj=tmerc +k_0=2x +ellps=krass")
          .append(" +lon_0=" + std::to_string(i) + "\n");
    return text + "no name";
  };
  std::vector<std::string> convert{"convert", "--to", "prj", "--out-dir", path("out")};
  for (int i = 0; i < 20; ++i) {
    convert.push_back(path(std::to_string(i % 15) + ".pj4"));
    if (i % 7 != 0) put_file(convert.back(), "+proj=longlat +ellps=krass +k=" + std::to_string(i));
  }
  for (auto const& [command, count] :
       std::vector<std::pair<std::vector<std::string>, int>>{{{"normalize", "-"}, 2000},
                                                             {{"apply", "-", "--strict"}, 2000},
                                                             {{"import", "-"}, 50},
                                                             {{"to-esri", "-"}, 50},
                                                             {{"check", "-"}, 5},
                                                             {convert, 0}}) {
    core_test::outcome one;
    for (std::string const jobs : {"1", "2", "7"}) {
      SCOPED_TRACE(command.front() + " with jobs: " + jobs);
      auto arguments = command;
      arguments.insert(arguments.end(), {"--jobs", jobs, "--lang", "en"});
      // Not recorded: names of files differ between systems.
      auto result = core_test::run({ZU_PJ4, arguments, lines(count)});
      EXPECT_NE(result.err, "");
      for (int i = 0; command == convert && i < 15; ++i)
        result.out += get_file(path("out/" + std::to_string(i) + ".prj"));
      if (jobs == "1") one = result;
      cli_test::expect_outcome(result, one.status, one.out, one.err);
    }
  }
}

}  // namespace
