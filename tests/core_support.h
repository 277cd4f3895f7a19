// Folders, files, locales and environment variables for the span of one test.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace core_test {

// A folder of the test's own, removed with all that is in it.
class Ttemp_folder {
 public:
  Ttemp_folder() {
    std::string name = (std::filesystem::temp_directory_path() / "zu_test.XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no folder " << name;
    path_ = name;
  }
  ~Ttemp_folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Ttemp_folder(Ttemp_folder const&) = delete;
  Ttemp_folder& operator=(Ttemp_folder const&) = delete;

  std::string file(std::string const& name) const { return (path_ / name).string(); }
  // The folder's own name is ASCII, whatever the test appends to it.
  std::wstring wide(std::wstring_view name) const {
    return path_.wstring().append(L"/").append(name);
  }
  std::size_t count() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
  }

 private:
  std::filesystem::path path_;
};

inline void put_file(std::string const& name, std::string_view content) {
  std::ofstream(name, std::ios::binary) << content;
}

inline std::string get_file(std::string const& name) {
  std::ifstream stream(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Sets environment variables (an empty value counts as unset) and puts back
// what was there.
class Tenvironment {
 public:
  Tenvironment(std::initializer_list<std::pair<char const*, char const*>> values) {
    for (auto const& [name, value] : values) {
      char const* const before = std::getenv(name);
      before_.emplace_back(name,
                           before == nullptr ? std::nullopt : std::optional(std::string(before)));
      setenv(name, value, 1);
    }
  }
  ~Tenvironment() {
    for (auto const& [name, value] : before_)
      value ? setenv(name, value->c_str(), 1) : unsetenv(name);
  }
  Tenvironment(Tenvironment const&) = delete;
  Tenvironment& operator=(Tenvironment const&) = delete;

 private:
  std::vector<std::pair<char const*, std::optional<std::string>>> before_;
};

// Makes `encoding` the system's code page.
class Tsystem_encoding : public Tenvironment {
 public:
  explicit Tsystem_encoding(std::string_view encoding)
      : Tenvironment({{"LC_ALL", std::string("ru_RU.").append(encoding).c_str()}}) {}
};

// Sets the C library's locale as a host may. The locales are those of LOCPATH.
class Tc_locale {
 public:
  explicit Tc_locale(char const* name) : set_(std::setlocale(LC_ALL, name) != nullptr) {}
  ~Tc_locale() { static_cast<void>(std::setlocale(LC_ALL, "C")); }
  Tc_locale(Tc_locale const&) = delete;
  Tc_locale& operator=(Tc_locale const&) = delete;
  bool is_set() const { return set_; }

 private:
  bool set_;
};

}  // namespace core_test
