// INI files: sections of keys and values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/prp_val.h"

// Names of sections and keys are compared without regard to case; of equal names the
// first one counts. Text before the first section, lines without "=" and lines that
// begin with ";" or "#" are ignored.
class Tzu_ini {
 public:
  // The name is wide; the content is 8-bit text and is not converted. False when the
  // file cannot be read; the object does not change then.
  bool load_from_file(std::wstring_view name);
  // Ignores a byte-order mark, which some editors write before UTF-8.
  void load_from_text(std::string_view text);
  // Writes "[section]\n\n", then "key=value\n" for each key. False when the file cannot
  // be opened or not all of it could be written.
  bool save_to_file(std::wstring_view name) const;

  // False after loading a text that is no INI file.
  bool has_sections() const noexcept { return !sections_.empty(); }

  std::string get_as_str(std::string_view section, std::string_view key,
                         std::string_view default_value = {}) const;
  void set_as_str(std::string_view section, std::string_view key, std::string_view value);

 private:
  struct section {
    std::string name;
    std::vector<Tzu_prp_val> entries;
  };
  section& add_section(std::string_view name);

  std::vector<section> sections_;
};
