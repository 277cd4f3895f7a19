// Definition files: PROJ.4 parameter files (.pj4), as INI or as plain text.
#pragma once

#include <string>
#include <string_view>

#include "suite/zuk_basic.h"

// Every load feeds the adapter once, on success only. Nothing throws beyond an
// allocation failure and nothing is shown to the user. File names are wide.
class Tzu_add_file {
 public:
  // The INI form, and where that fails the plain form.
  static bool load_pj4_simple(std::wstring_view name, Izu_string_adp* adapter);
  // Key "pj4" of section "projection", read as UTF-8. Fails for a plain file.
  static bool load_pj4_ini(std::wstring_view name, Izu_string_adp* adapter);
  // The definition alone; it must begin with "+" after white space.
  static bool load_pj4_mgs(std::wstring_view name, Izu_string_adp* adapter);

  // The same of what a file of either form holds: the INI form in UTF-8, the plain one
  // in the system's code page or UTF-8 with a byte-order mark.
  static bool load_pj4_text(std::string const& content, Izu_string_adp* adapter);

  // Writes the INI form, the value in the system's ANSI code page.
  static bool save_pj4_ini(std::wstring_view name, std::wstring_view definition);
  // Writes the plain form.
  static bool save_pj4_mgs(std::wstring_view name, std::wstring_view definition);
};
