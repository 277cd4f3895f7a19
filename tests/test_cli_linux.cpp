// The command-line program before a terminal and on a full disk, and what it asks of the
// system.

#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): POSIX's own

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "basic/file.h"
#include "basic/str.h"
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
  // Reading fails when the other side has closed the terminal.
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
  // Progress of points is shown for many points only.
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

// A program that asks line by line reads each answer before its next question.
TEST_F(Cli_linux, AnswersALineBeforeTheNextOneComes) {
  for (std::string const jobs : {"1", "3"}) {
    std::string const script = "coproc timeout 200 " ZU_PJ4 " import - --jobs " + jobs +
                               "\nfor text in none OGC:CRS84 +proj=longlat; do\n"
                               "  echo $text >&${COPROC[1]}; read -r answer <&${COPROC[0]}\n"
                               "  echo \"$text: $answer\"\ndone";
    expect_outcome(core_test::run({"/bin/bash", {"-c", script}, ""}), 0,
                   "none: \nOGC:CRS84: +proj=longlat +datum=WGS84 +no_defs\n"
                   "+proj=longlat: +proj=longlat +datum=WGS84 +no_defs\n",
                   "Error: line 1: cannot import \"none\": proj_create: unrecognized format / "
                   "unknown name\n");
  }
}

TEST_F(Cli_linux, NoticesAFullDiskAndTheLackOfADisplay) {
  expect_outcome(run({"save", local_system, "/dev/full"}), 2, "",
                 "Error: cannot write /dev/full\n");
  // A shell that finds the program gives it a name without a folder.
  auto const edited = core_test::run(
      {"/bin/sh", {"-c", "PATH=${1%/*}; zu_pj4 edit +proj=longlat", "sh", ZU_PJ4}, ""});
  EXPECT_EQ(edited.status, 2);
  EXPECT_NE(edited.err.find("display"), std::string::npos);
  EXPECT_EQ(edited.err.find('\n'), edited.err.size() - 1);
  std::string const alone = path("alone");
  std::filesystem::copy_file(ZU_PJ4, alone);
  expect_outcome(core_test::run({alone, {"edit", local_system}, ""}), 2, "",
                 "Error: cannot start " + path("zu_pj4_edit") + ": No such file or directory\n");
}

// A line each: a text with which GDAL or PROJ would open a file or a connection when they
// get it as it is, after "+init=" in a parameter file, or as an ESRI file.
std::string const reaching_texts = core_test::read_file(ZU_TEST_CASES "/texts/reaching.txt");

// What GDAL's own program makes of the files that are written.
TEST_F(Cli_linux, EsriFilesAreReadByOtherPrograms) {
  for (auto const& [definition, read] : std::initializer_list<std::array<char const*, 2>>{
           {"+proj=tmerc +lon_0=37.5 +lat_0=55.5 +x_0=12 +y_0=14 +k_0=1 +ellps=krass",
            "+proj=tmerc +lat_0=55.5 +lon_0=37.5 +k=1 +x_0=12 +y_0=14 +ellps=krass +units=m "
            "+no_defs"},
           // With GDAL's shift for the datum's name: the file holds none.
           {local_system,
            "+proj=tmerc +lat_0=0 +lon_0=78.05 +k=1 +x_0=4500000 +y_0=-5811057.628 +ellps=krass "
            "+towgs84=24.47,-130.89,-81.56,0,0,0.13,-0.22 +units=m +no_defs"}}) {
    put_file(path("a.pj4"), definition);
    expect_outcome(run({"convert", "--to", "prj", path("a.pj4")}), 0, "", "");
    auto const told = core_test::run({ZU_GDALSRSINFO, {"-o", "proj4", path("a.prj")}, ""});
    EXPECT_EQ(zu::str::trim(told.out), read) << told.err;
  }
}

class Cli_reach_linux : public cli_test::Cli {
 protected:
  void SetUp() override {
    // scripts/install_packages installs the tracer.
    auto const can_trace = core_test::run({"/usr/bin/strace", {"-qq", "/bin/true"}, ""});
    if (can_trace.status != 0) GTEST_SKIP() << "may not trace here: " << can_trace.err;
  }

  // The files outside the test's folder that the program looks for, and the calls
  // by which it turns to the network.
  std::set<std::string> touched(std::vector<std::string> arguments, std::string const& input = "") {
    // One file for each thread, so that no call is cut in two.
    std::filesystem::create_directory(path("trace"));
    arguments.insert(arguments.begin(),
                     {"-ff", "--seccomp-bpf", "-qq", "-e", "trace=%file,%network", "-o",
                      path("trace/of"), "-s", "1000", ZU_PJ4});
    result = core_test::run({"/usr/bin/strace", arguments, input});
    std::string calls;
    for (auto const& trace : std::filesystem::directory_iterator(path("trace")))
      calls += core_test::read_file(trace.path());
    std::filesystem::remove_all(path("trace"));
    std::set<std::string> names;
    std::istringstream lines(calls);
    for (std::string call; std::getline(lines, call);) {
      if (call.starts_with("execve") || call.starts_with("+++")) continue;
      auto const name = call.find('"') + 1;
      bool const is_file = call.find("AT_") != std::string::npos || call[call.find('(') + 1] == '"';
      names.insert(is_file ? call.substr(name, call.find('"', name) - name)
                           : call.substr(0, call.find('(')));
    }
    std::erase_if(names, [&](auto const& one) { return one.starts_with(path("")); });
    return names;
  }

  static std::vector<std::string> beyond(std::set<std::string> some,
                                         std::set<std::string> const& usual) {
    std::erase_if(some, [&](auto const& one) { return usual.contains(one); });
    return {some.begin(), some.end()};
  }

  core_test::outcome result;

 private:
  // The sanitizer cannot look for leaks under a tracer.
  core_test::Tenvironment const environment_{{"PROJ_NETWORK", "ON"},
                                             {"ASAN_OPTIONS", "detect_leaks=0"}};
};

TEST_F(Cli_reach_linux, ImportsOpenNothingThatATextNames) {
  std::string const codes = "EPSG:28407\n+init=epsg:28407\nno such system\nPROJCS[\"x\"\n";
  ASSERT_NE(reaching_texts, "");
  auto const usual = touched({"import", "-"}, codes);
  ASSERT_TRUE(
      std::ranges::any_of(usual, [](auto const& name) { return name.ends_with("proj.db"); }));
  EXPECT_FALSE(usual.contains("socket"));
  EXPECT_EQ(beyond(touched({"import", "-"}, reaching_texts), usual), std::vector<std::string>());
  std::istringstream texts(reaching_texts);
  std::string nothing_of_any = reaching_texts;
  std::erase_if(nothing_of_any, [](char c) { return c != '\n'; });
  EXPECT_EQ(result.out, nothing_of_any);

  std::vector<std::string> arguments{"convert",   "--to",      "prj",
                                     "--out-dir", path("out"), path("p.pj4")};
  put_file(path("p.pj4"), "[projection]\npj4=+init=epsg:28407\n");
  auto const usual_of_files = touched(arguments);
  arguments.pop_back();
  for (std::string text; std::getline(texts, text);) {
    for (std::string const kind : {".pj4", ".prj"}) {
      arguments.push_back(path(std::to_string(arguments.size()) + kind));
      put_file(arguments.back(), (kind == ".prj" ? "" : "[projection]\npj4=+init=") + text);
    }
  }
  EXPECT_EQ(beyond(touched(arguments), usual_of_files), std::vector<std::string>());
  EXPECT_EQ(std::ranges::count(result.err, '\n'), 2 * nothing_of_any.size() + 1) << "each fails";
}

// A definition may name the grids of its datum shift, which PROJ then opens; but no
// other file, and nothing on the network.
TEST_F(Cli_reach_linux, TransformationsOpenGridsAndAskNobody) {
  std::string const geographic = "+proj=longlat +datum=WGS84";
  put_file(path("points"), "37 55");
  auto const of = [&](std::string const& from) {
    return touched({"transform", "--from", from, "--to", geographic, path("points")});
  };
  auto const usual = of("+proj=longlat +ellps=krass +towgs84=1,2,3");
  for (std::string const from :
       {"+proj=longlat +ellps=krass +nadgrids=http://localhost:1/a.tif",
        "+proj=longlat init=/etc/passwd:1 +ellps=krass", "+proj=tinshift file =/etc/passwd"}) {
    EXPECT_EQ(beyond(of(from), usual), std::vector<std::string>()) << from;
    EXPECT_NE(result.status, 0) << from;
  }
  for (std::string const from :
       {"+proj=longlat +datum=NAD27", "+proj=longlat +nadgrids=/a/b +a=1"}) {
    auto const names = of(from);
    EXPECT_FALSE(beyond(names, usual).empty()) << from;
    for (char const* call : {"socket", "connect", "sendto", "socketpair"})
      EXPECT_FALSE(names.contains(call)) << from;
  }
}

}  // namespace
