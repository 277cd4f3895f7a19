// Tests that are lines of text: files of cases, which docs/development.md describes.
#pragma once

#include <any>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core_support.h"

namespace case_file {

using words = std::vector<std::string>;

// What a file's cases share; each file has its own.
struct scope {
  scope();
  ~scope();
  scope(scope const&) = delete;
  scope& operator=(scope const&) = delete;

  // A file in the scope's folder.
  std::filesystem::path path(std::string const& utf8) const;
  // Replaces "<folder>" by the folder's name, and the name by "<folder>".
  std::string with_folder(std::string text) const;
  std::string without_folder(std::string text) const;

  core_test::Ttemp_folder const folder;
  core_test::Tenvironment const environment;
  std::filesystem::path const before;
  std::string input;  // the case's lines behind "< "
  std::any state;     // the operations' own
};

// Makes a text of texts. They are UTF-8 unless the operation says otherwise.
using operation = std::function<std::string(scope&, words const&)>;

// Those of the program, by their names in the files of cases.
std::map<std::string, operation>& operations();

}  // namespace case_file

// Begins an operation of a name.
// NOLINTBEGIN(cppcoreguidelines-macro-usage): the name is a word of the files
#define OPERATION(name)                                              \
  std::string name(case_file::scope& in, case_file::words const& a); \
  [[maybe_unused]] bool const name##_is_known =                      \
      case_file::operations().emplace(#name, &(name)).second;        \
  std::string name([[maybe_unused]] case_file::scope& in,            \
                   [[maybe_unused]] case_file::words const& a)
// NOLINTEND(cppcoreguidelines-macro-usage)
