#include "text/strconv.h"

#include <algorithm>
#include <array>

#include "basic/code_page.h"
#include "basic/str.h"

namespace zu {
namespace strconv {
namespace {

// UTF-32LE and UTF-32BE have each other's name as synonym. That looks wrong, but hosts
// of the suite search both columns, so the table stays as it is.
constexpr std::array<encoding_row, encodings_count> table{{
    {"UTF-8", "UTF-8", code_page::utf8},
    {"UTF-16", "UTF-16", 0},
    {"UTF-16LE", "UTF-16LE", 0},
    {"UTF-16BE", "UTF-16BE", 0},
    {"UTF-32", "UTF-32", 0},
    {"UTF-32LE", "UTF-32BE", 0},
    {"UTF-32BE", "UTF-32LE", 0},
    {"CP1250", "Windows-1250", 1250},
    {"CP1251", "Windows-1251", code_page::cp1251},
    {"CP1252", "Windows-1252", 1252},
    {"CP1253", "Windows-1253", 1253},
    {"CP1254", "Windows-1254", 1254},
    {"CP1255", "Windows-1255", 1255},
    {"CP1256", "Windows-1256", 1256},
    {"CP1257", "Windows-1257", 1257},
    {"CP1258", "Windows-1258", 1258},
    {"CP866", "OEM 866", 866},
    {"ASCII", "US-ASCII", 20127},
    {"SYSTEM", "ANSI", code_page::system},
}};

}  // namespace

bool has_code_page(encodings encoding) noexcept {
  return encoding < encodings::utf_16 || encoding > encodings::utf_32be;
}

encoding_row const& get_encoding(encodings encoding) noexcept {
  auto const index = static_cast<std::size_t>(encoding);
  return table[std::min(index, table.size() - 1)];
}

std::string to_utf8(std::wstring_view text) {
  return code_page::to_multi_byte(code_page::utf8, text);
}
std::wstring from_utf8(std::string_view text) { return code_page::to_wide(code_page::utf8, text); }
std::string to_system(std::wstring_view text) {
  return code_page::to_multi_byte(code_page::system, text);
}
std::wstring from_system(std::string_view text) {
  return code_page::to_wide(code_page::system, text);
}
bool has_system_spelling(std::wstring_view text) { return from_system(to_system(text)) == text; }
std::wstring from_interface(std::string_view text) {
  return code_page::to_wide(code_page::cp1251, text);
}

std::wstring decode(encodings encoding, std::string_view text) {
  if (!has_code_page(encoding)) return {};
  return code_page::to_wide(get_encoding(encoding).code_page, text);
}

std::string encode(encodings encoding, std::wstring_view text) {
  if (!has_code_page(encoding)) return {};
  return code_page::to_multi_byte(get_encoding(encoding).code_page, text);
}

}  // namespace strconv

namespace strutil {

void trim_inplace(std::wstring& text, std::wstring_view set) {
  auto const first = text.find_first_not_of(set);
  if (first == std::wstring::npos) {
    text.clear();
    return;
  }
  text.erase(text.find_last_not_of(set) + 1);
  text.erase(0, first);
}

std::string trim(std::string_view text, std::string_view set) {
  return std::string(str::trim(text, set));
}

void drop_utf8_mark(std::wstring& text) {
  if (text.empty() || text.front() < 0x80) return;
  for (std::wstring const& mark : {std::wstring(1, 0xFEFF), strconv::from_system("\xEF\xBB\xBF")})
    if (!mark.empty() && text.starts_with(mark)) text.erase(0, mark.size());
}

}  // namespace strutil
}  // namespace zu
