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
  // With the name of the folder in place of "<folder>", and the other way round.
  std::string with_folder(std::string text) const;
  std::string without_folder(std::string text) const;

  core_test::Ttemp_folder const folder;
  core_test::Tenvironment const environment;
  std::filesystem::path const before;
  std::string input;  // the case's lines behind "< "
  std::any state;     // the operations' own
};

// Texts to a text, all in UTF-8 unless the operation says otherwise.
using operation = std::function<std::string(scope&, words const&)>;
using operations = std::map<std::string, operation>;

// Those of the program. "put", "cat", "mkdir", "ls", "cd" and "env" are there besides.
operations const& of_program();

}  // namespace case_file
