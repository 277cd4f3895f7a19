// Definition files: PROJ.4 parameter files (.pj4), as INI or as plain text.
#pragma once

#include <string>
#include <string_view>

#include "suite/zuk_basic.h"

// Every load feeds the adapter once, only on success. Only a lack of memory throws;
// nothing is shown to the user. File names are wide.
class Tzu_add_file {
 public:
  // Tries the INI form, then the plain form.
  static bool load_pj4_simple(std::wstring_view name, Izu_string_adp* adapter);
  // Key "pj4" of section "projection", read as UTF-8. Fails for a plain file.
  static bool load_pj4_ini(std::wstring_view name, Izu_string_adp* adapter);
  // The plain form: only the definition, which begins with "+" after white space.
  static bool load_pj4_mgs(std::wstring_view name, Izu_string_adp* adapter);

  // The same for the content of a file: the INI form in UTF-8, the plain form in the
  // system's code page or in UTF-8 with a byte-order mark.
  static bool load_pj4_text(std::string const& content, Izu_string_adp* adapter);

  // Writes the INI form; the value is in the system's ANSI code page.
  static bool save_pj4_ini(std::wstring_view name, std::wstring_view definition);
  // Writes the plain form.
  static bool save_pj4_mgs(std::wstring_view name, std::wstring_view definition);
};
