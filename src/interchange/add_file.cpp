#include "interchange/add_file.h"

#include <utility>

#include "basic/file.h"
#include "basic/ini.h"
#include "basic/str.h"
#include "interchange/proj4_conv.h"
#include "text/fileio.h"
#include "text/strconv.h"

namespace {

constexpr std::string_view section = "projection";
constexpr std::string_view key = "pj4";

bool expand_pj4(std::wstring const& definition, Izu_string_adp* adapter) {
  return zu::proj4_conv().expand_pj4(definition, adapter);
}

bool feed_ini(std::string const& content, Izu_string_adp* adapter) {
  // An INI reader finds nothing in a plain file and calls that success.
  if (zu::str::trim(content, " \t\n\r\v\f").starts_with('+')) return false;
  Tzu_ini ini;
  ini.load_from_text(content);
  if (!ini.has_sections()) return false;
  return expand_pj4(zu::strconv::from_utf8(ini.get_as_str(section, key)), adapter);
}

bool feed_plain(std::wstring text, Izu_string_adp* adapter) {
  zu::strutil::drop_utf8_mark(text);
  zu::strutil::trim_inplace(text);
  return text.starts_with(L'+') && expand_pj4(text, adapter);
}

}  // namespace

bool Tzu_add_file::load_pj4_simple(std::wstring_view name, Izu_string_adp* adapter) {
  return load_pj4_ini(name, adapter) || load_pj4_mgs(name, adapter);
}

// The name of an INI file must exist in the system's code page.
bool Tzu_add_file::load_pj4_ini(std::wstring_view name, Izu_string_adp* adapter) {
  if (!zu::strconv::has_system_spelling(name)) return false;
  auto const content = zu::file::read_whole(name, zu::file::content_kind::text);
  return content && feed_ini(*content, adapter);
}

bool Tzu_add_file::load_pj4_mgs(std::wstring_view name, Izu_string_adp* adapter) {
  std::wstring text;
  return zu::fileio::readall(name, zu::strconv::encodings::system, text) &&
         feed_plain(std::move(text), adapter);
}

bool Tzu_add_file::load_pj4_text(std::string const& content, Izu_string_adp* adapter) {
  return feed_ini(content, adapter) || feed_plain(zu::strconv::from_system(content), adapter);
}

bool Tzu_add_file::save_pj4_ini(std::wstring_view name, std::wstring_view definition) {
  if (!zu::strconv::has_system_spelling(name)) return false;
  Tzu_ini ini;
  ini.set_as_str(section, key, zu::strconv::to_system(definition));
  return ini.save_to_file(name);
}

bool Tzu_add_file::save_pj4_mgs(std::wstring_view name, std::wstring_view definition) {
  return zu::fileio::writeall(name, zu::strconv::encodings::system, definition);
}
