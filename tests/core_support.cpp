#include "core_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

#include "text/strconv.h"

namespace core_test {
namespace {

namespace fs = std::filesystem;

// The record of this program replaces that of an earlier run.
void add_to_record(std::string_view text) {
  char const* const folder = std::getenv("ZU_TEST_RECORD");
  auto const* const test = testing::UnitTest::GetInstance()->current_test_info();
  if (folder == nullptr || test == nullptr) return;
  std::string const suite = test->test_suite_name();
  for (char const* platform : {"_posix", "_linux", "_win32"})
    if (suite.ends_with(platform)) return;
  static std::ofstream file(fs::path(folder) / program_path().stem(), std::ios::binary);
  file << "@" << suite << "." << test->name() << " " << std::to_string(text.size()) << "\n";
  EXPECT_TRUE(file << text << "\n") << "cannot write the record";
}

// In the double-byte page the second bytes are "\\", "G" and "]".
std::array<system_page, 4> const pages{
    {{"CP1251", L"\u0416\u0435\u20AC", "\xC6\xE5\x88", {L"\u00FC", L"\u4E2D", L"\U0001F600"}, "u"},
     {"CP1252", L"\u00FC\u00E9\u20AC", "\xFC\xE9\x80", {L"\u0101", L"\u0416", L"\u4E2D"}, "a"},
     {"CP932",
      L"\u8868\u0416\u30BE",
      "\x95\\\x84G\x83]",
      {L"\u00FC", L"\u0101", L"\U0001F600"},
      "u"},
     {"UTF-8", L"\u8868\u0416\u20AC", "\xE8\xA1\xA8\xD0\x96\xE2\x82\xAC", {}, "u"}}};

}  // namespace

Ttemp_folder::Ttemp_folder() {
  std::random_device random;
  std::error_code error;
  do {
    fs::path const name = fs::temp_directory_path() / ("zu_test." + std::to_string(random()));
    path_ = name.generic_string();
  } while (!fs::create_directory(path_, error) && !error);
  if (error) ADD_FAILURE() << "no folder " << path_ << ": " << error.message();
}

Ttemp_folder::~Ttemp_folder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::size_t Ttemp_folder::count() const {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(path_), {}));
}

void put_file(std::string const& name, std::string_view content) {
  std::ofstream(name, std::ios::binary) << content;
}

std::string read_file(std::string const& name) {
  std::ifstream stream(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string get_file(std::string const& name) { return recorded(read_file(name)); }

std::string const& recorded(std::string const& text) {
  add_to_record(text);
  return text;
}

std::wstring const& recorded(std::wstring const& text) {
  add_to_record(zu::strconv::to_utf8(text));
  return text;
}

Tenvironment::Tenvironment(std::initializer_list<std::pair<char const*, char const*>> values) {
  for (auto const& [name, value] : values) {
    char const* const before = std::getenv(name);
    before_.emplace_back(name,
                         before == nullptr ? std::nullopt : std::optional(std::string(before)));
    set_variable(name, value);
  }
}

Tenvironment::~Tenvironment() {
  for (auto const& [name, value] : before_) set_variable(name, value ? value->c_str() : nullptr);
}

Tc_locale::Tc_locale(char const* name) : set_(std::setlocale(LC_ALL, name) != nullptr) {
  if (!set_) ADD_FAILURE() << "there is no locale " << name;
}

std::vector<system_page> system_pages() {
  std::vector<system_page> possible;
  std::ranges::copy_if(pages, std::back_inserter(possible), can_have_system_page,
                       &system_page::encoding);
  if (possible.empty()) ADD_FAILURE() << "the tests know nothing of this system's code page";
  return possible;
}

Tsystem_page::Tsystem_page(system_page const& page)
    : Tenvironment({{"LC_ALL", std::string("ru_RU.").append(page.encoding).c_str()}}) {}

outcome run(command const& wanted) {
  Ttemp_folder const folder;
  put_file(folder.file("in"), wanted.input);
  int const status = run_in(folder.file(""), wanted);
  return {status, read_file(folder.file("out")), read_file(folder.file("err"))};
}

}  // namespace core_test
