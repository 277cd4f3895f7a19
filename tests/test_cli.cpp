// The command-line program as a shell sees it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is of POSIX
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct closer {
  void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};
using stream = std::unique_ptr<std::FILE, closer>;

stream temporary(std::string_view content = "") {
  stream file(std::tmpfile());
  if (!file || std::fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
      std::fflush(file.get()) != 0)
    throw std::runtime_error("no temporary file");
  std::rewind(file.get());
  return file;
}

std::string content_of(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text += static_cast<char>(c);
  return text;
}

struct outcome {
  int status = -1;
  std::string out;
  std::string err;
};

struct surroundings {
  std::string input;
  std::string locale = "C";
  // Where the output goes instead of coming back.
  char const* output = nullptr;
};

// This environment without a display, in one locale.
std::vector<std::string> environment_in(std::string const& locale) {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    std::string_view const text = *variable;
    auto const is = [text](std::string_view name) { return text.starts_with(name); };
    if (!is("LC_") && !is("LANG") && !is("DISPLAY=") && !is("WAYLAND_DISPLAY="))
      variables.emplace_back(text);
  }
  variables.push_back("LC_ALL=" + locale);
  return variables;
}

bool has_locale(char const* name) {
  locale_t const locale = newlocale(LC_ALL_MASK, name, nullptr);
  if (locale == nullptr) return false;
  freelocale(locale);
  return true;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> list;
  list.reserve(texts.size() + 1);
  for (std::string& text : texts) list.push_back(text.data());
  list.push_back(nullptr);
  return list;
}

outcome run(std::vector<std::string> arguments, surroundings const& around = {}) {
  arguments.insert(arguments.begin(), ZU_PJ4);
  std::vector<std::string> environment = environment_in(around.locale);
  stream const in = temporary(around.input);
  stream const out(around.output == nullptr ? temporary() : stream(std::fopen(around.output, "w")));
  stream const err = temporary();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(in.get()), 0);
  posix_spawn_file_actions_adddup2(&actions, fileno(out.get()), 1);
  posix_spawn_file_actions_adddup2(&actions, fileno(err.get()), 2);
  pid_t process = 0;
  int const started = posix_spawn(&process, ZU_PJ4, &actions, nullptr, pointers(arguments).data(),
                                  pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (started != 0) throw std::runtime_error("cannot start " ZU_PJ4);
  int status = 0;
  waitpid(process, &status, 0);
  outcome result;
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  if (around.output == nullptr) result.out = content_of(out.get());
  result.err = content_of(err.get());
  return result;
}

std::string read_file(fs::path const& name) {
  std::ifstream file(name, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

void write_file(fs::path const& name, std::string_view content) {
  std::ofstream(name, std::ios::binary) << content;
}

// A folder that goes away with the test.
class Cli : public testing::Test {
 protected:
  Cli() {
    std::string name = (fs::temp_directory_path() / "zu_cli_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name;
  }
  ~Cli() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  std::string path(std::string const& name) const { return (folder_ / name).string(); }

 private:
  fs::path folder_;
};

void expect_lines(outcome const& result, std::string const& lines) {
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, lines);
  EXPECT_EQ(result.err, "");
}

constexpr char const* unordered =
    "+units=m +k=1 +proj=tmerc +ellps=WGS84 +lon_0=39 +towgs84=1,2,3 +x_0=7500000";
constexpr char const* ordered =
    "+proj=tmerc +lon_0=39 +x_0=7500000 +k_0=1 +towgs84=1,2,3,0,0,0,0 +ellps=WGS84 +units=m "
    "+lon_wrap=45 +no_defs\n";
constexpr char const* local_system =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

TEST_F(Cli, NormalizesArgumentsAndLinesOfInput) {
  std::string const once = ordered;
  expect_lines(run({"normalize", unordered}), once);
  expect_lines(run({"normalize", unordered, "", unordered}), once + "\n" + once);
  expect_lines(run({"normalize", "-"}, {std::string(unordered) + "\r\n\n" + unordered}),
               once + "\n" + once);
  expect_lines(run({"normalize", "-"}), "");
}

TEST_F(Cli, AppliesWithoutADisplay) {
  std::string const line = std::string(local_system) + "\n";
  expect_lines(run({"apply", local_system}), line);
  expect_lines(run({"apply", "-", "+proj=utm +zone=99"}, {line + line}), line + line + "\n");
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
  write_file(file, "an older and longer content of the file, which has to go");
  expect_lines(run({"save", local_system, file}), "");
  EXPECT_EQ(read_file(file), "[projection]\n\npj4=" + std::string(local_system) + "\n");
  expect_lines(run({"load", file}), std::string(local_system) + "\n");

  // As written, not normalised.
  std::string const plain = path("plain.txt");
  write_file(plain, "\r\n  +proj=longlat   +R=5 \r\n");
  expect_lines(run({"load", plain}), "+proj=longlat   +R=5\n");
}

TEST_F(Cli, TakesFileNamesInTheCharactersOfTheLocale) {
  for (auto const& [locale, name] :
       {std::pair{"ru_RU.UTF-8", "\xD1\x84.pj4"}, std::pair{"ru_RU.CP1251", "\xF4.pj4"}}) {
    if (!has_locale(locale)) GTEST_SKIP() << locale << " is not there";
    std::string const file = path(name);
    expect_lines(run({"save", local_system, file}, {"", locale}), "");
    EXPECT_TRUE(fs::exists(file)) << locale;
    expect_lines(run({"load", file}, {"", locale}), std::string(local_system) + "\n");
  }
}

TEST_F(Cli, TellsErrorsInOneLine) {
  write_file(path("empty.pj4"), "");
  write_file(path("text.pj4"), "no definition\n");
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
      {"save", local_system, path("a.PRJ")},
      {"save", local_system, path("missing/a.pj4")},
      {"save", local_system, path("folder")},
      {"save", local_system, "/dev/full"},
      {"--catalogue", path("missing"), "catalogue", "usual"},
      {"--catalogue", path("folder"), "catalogue", "usual"},
      {"--catalogue", path("folder"), "apply", local_system},
      {"edit", local_system},
  };
  for (auto const& command : commands) {
    std::string const told = testing::PrintToString(command);
    auto const result = run(command);
    EXPECT_EQ(result.status, 2) << told;
    EXPECT_EQ(result.out, "") << told;
    EXPECT_TRUE(result.err.starts_with("zu_pj4: ") && result.err.size() > 12) << told << result.err;
    EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << told << result.err;
  }
}

TEST_F(Cli, SaysWhatIsWrong) {
  EXPECT_NE(run({"edit", local_system}).err.find("display"), std::string::npos);
  for (char const* name : {"a.prj", "missing.pj4"})
    EXPECT_NE(run({"load", path(name)}).err.find(path(name)), std::string::npos);
}

TEST_F(Cli, NoticesThatOutputIsLost) {
  write_file(path("a.pj4"), "+proj=longlat");
  for (auto const& command : std::vector<std::vector<std::string>>{{"normalize", unordered},
                                                                   {"apply", local_system},
                                                                   {"catalogue", "usual"},
                                                                   {"load", path("a.pj4")}}) {
    auto const result = run(command, {"", "C", "/dev/full"});
    EXPECT_EQ(result.status, 2) << command.front();
    EXPECT_NE(result.err, "") << command.front();
  }
}

TEST_F(Cli, TakesAnotherCatalogue) {
  fs::path const shipped = fs::path(ZU_PJ4).parent_path() / "prj_def";
  fs::copy(shipped, path("other"));
  fs::copy_file(path("other/pj_proj1.dbf"), path("other/pj_proj2.dbf"),
                fs::copy_options::overwrite_existing);
  std::string const line = std::string(local_system) + "\n";
  expect_lines(run({"--catalogue", shipped.string(), "apply", local_system}), line);
  EXPECT_NE(run({"--catalogue", path("other"), "catalogue", "zonal"}).out,
            run({"catalogue", "zonal"}).out);
  // What needs no catalogue goes without.
  fs::create_directory(path("folder"));
  expect_lines(run({"--catalogue", path("folder"), "normalize", unordered}), ordered);
}

TEST_F(Cli, GivesTheSameInEveryLocale) {
  for (auto const& command :
       std::vector<std::vector<std::string>>{{"normalize", local_system},
                                             {"apply", local_system},
                                             {"apply", "+proj=utm +zone=37 +south +ellps=intl"},
                                             {"catalogue", "ellipsoids"},
                                             {"catalogue", "datums", "--json"},
                                             {"catalogue", "zonal", "--json"},
                                             {"load", path("missing.pj4")}}) {
    auto const expected = run(command);
    for (char const* locale : {"ru_RU.UTF-8", "de_DE.UTF-8", "ru_RU.CP1251"}) {
      auto const result = run(command, {"", locale});
      EXPECT_EQ(result.status, expected.status) << locale;
      EXPECT_EQ(result.out, expected.out) << locale;
      EXPECT_EQ(result.err, expected.err) << locale;
    }
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
