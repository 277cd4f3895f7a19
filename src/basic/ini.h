// INI files: sections of keys and values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/prp_val.h"

// Section and key names are compared without regard to case; the first of equal
// ones counts. Text before the first section and lines without "=" are passed
// over, and so are lines that begin with ";" or "#".
class Tzu_ini {
 public:
  // File names are wide; content is 8-bit text as it stands. False when the
  // file cannot be read; what was loaded before stays then.
  bool load_from_file(std::wstring_view name);
  // A byte-order mark, which some editors put before UTF-8, is passed over.
  void load_from_text(std::string_view text);
  // "[section]\n\n", then "key=value\n" for each. False when the file cannot be
  // opened or not all of it could be written.
  bool save_to_file(std::wstring_view name) const;

  // False for a text that is no INI file at all.
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
