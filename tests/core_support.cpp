#include "core_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>

#include "text/strconv.h"

namespace core_test {
namespace {

namespace fs = std::filesystem;

// Written when the program ends. It replaces the record of an earlier run.
class Trecord {
 public:
  Trecord() {
    if (char const* const folder = std::getenv("ZU_TEST_RECORD"))
      file_ = fs::path(folder) / program_path().stem();
  }
  ~Trecord() {
    if (content_.empty()) return;
    std::ofstream file(file_, std::ios::binary);
    if (!(file << content_).flush()) std::cerr << "cannot write the record " << file_ << '\n';
  }
  Trecord(Trecord const&) = delete;
  Trecord& operator=(Trecord const&) = delete;

  void add(std::string_view text) {
    if (file_.empty()) return;
    auto const* const test = testing::UnitTest::GetInstance()->current_test_info();
    if (test != nullptr && is_of_one_platform(test->test_suite_name())) return;
    content_.append("@").append(test == nullptr ? "" : test->test_suite_name()).append(".");
    content_.append(test == nullptr ? "" : test->name()).append(" ");
    content_.append(std::to_string(text.size())).append("\n").append(text).append("\n");
  }

 private:
  static bool is_of_one_platform(std::string_view suite) {
    return suite.ends_with("_posix") || suite.ends_with("_linux") || suite.ends_with("_win32");
  }

  fs::path file_;
  std::string content_;
};

Trecord& the_record() {
  static Trecord instance;
  return instance;
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
  the_record().add(text);
  return text;
}

std::wstring const& recorded(std::wstring const& text) {
  the_record().add(zu::strconv::to_utf8(text));
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

}  // namespace core_test
