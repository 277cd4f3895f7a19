// Folders, files, code pages, locales and environment variables for the span
// of one test, and the record of the texts that a test gets.
#pragma once

#include <clocale>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform_support.h"

namespace core_test {

// A folder of the test's own, removed with all that is in it. Its own name is
// ASCII, whatever the test appends to it.
class Ttemp_folder {
 public:
  Ttemp_folder();
  ~Ttemp_folder();
  Ttemp_folder(Ttemp_folder const&) = delete;
  Ttemp_folder& operator=(Ttemp_folder const&) = delete;

  // In the system's code page, as put_file and get_file take it.
  std::string file(std::string_view name) const { return path_ + "/" + std::string(name); }
  std::wstring wide(std::wstring_view name) const {
    return std::wstring(path_.begin(), path_.end()).append(L"/").append(name);
  }
  std::size_t count() const;

 private:
  std::string path_;
};

void put_file(std::string const& name, std::string_view content);
std::string read_file(std::string const& name);
// Adds the content to the record, too.
std::string get_file(std::string const& name);

// Adds a text of the system under test to the record, and returns it. The record is a file of
// the program's name in the folder ZU_TEST_RECORD. It is the same on every platform, because
// suites with the name of a platform add nothing. Wide text is recorded as UTF-8.
std::string const& recorded(std::string const& text);
std::wstring const& recorded(std::wstring const& text);

// Sets environment variables (null takes one away) and puts back what was there.
class Tenvironment {
 public:
  Tenvironment(std::initializer_list<std::pair<char const*, char const*>> values);
  ~Tenvironment();
  Tenvironment(Tenvironment const&) = delete;
  Tenvironment& operator=(Tenvironment const&) = delete;

 private:
  std::vector<std::pair<char const*, std::optional<std::string>>> before_;
};

// A code page and what a test needs of it.
struct system_page {
  char const* encoding;
  wchar_t const* letters;
  char const* bytes;  // the letters in this page
  // Letters that the page does not have. Windows takes the first one
  // for the letter `like` when asked for that page.
  std::vector<wchar_t const*> foreign;
  char const* like;
};

// The pages that a test can have for the system's, at least one.
std::vector<system_page> system_pages();

// Makes a page of system_pages() the system's.
class Tsystem_page : public Tenvironment {
 public:
  explicit Tsystem_page(system_page const& page);
};

// Sets the C library's locale as a host may. One that is missing is a failure.
class Tc_locale {
 public:
  explicit Tc_locale(char const* name);
  ~Tc_locale() { static_cast<void>(std::setlocale(LC_ALL, "C")); }
  Tc_locale(Tc_locale const&) = delete;
  Tc_locale& operator=(Tc_locale const&) = delete;
  bool is_set() const { return set_; }

 private:
  bool set_;
};

}  // namespace core_test
