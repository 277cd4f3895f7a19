#include "proj4/named_files.h"

#include <algorithm>
#include <array>
#include <string>

#include "basic/file.h"
#include "basic/str.h"

namespace zu::named_files {
namespace {

constexpr auto none = std::string_view::npos;
// PROJ drops these characters around "=".
constexpr std::string_view blanks = " \t\r\n\v\f;";

// These keys name files of the steps of a transformation. No coordinate system has such steps.
constexpr std::array<std::string_view, 5> step_keys{"grids", "xy_grids", "z_grids", "model",
                                                    "file"};

bool is_word(char c) noexcept {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         c == '-' || c == '.';
}

std::string_view key_before(std::string_view text) noexcept {
  auto const end = text.find_last_not_of(blanks) + 1;
  auto begin = end;
  while (begin > 0 && is_word(text[begin - 1])) --begin;
  return text.substr(begin, end - begin);
}

// The value includes the words behind it, because PROJ may read them as a part of it.
std::string_view value_behind(std::string_view text) noexcept {
  text = text.substr(0, text.find('='));
  auto const begin = text.find_first_not_of(" \t\r\n\v\f;\"");
  text.remove_prefix(std::min(begin, text.size()));
  return text.substr(0, text.find('"'));
}

bool is_path(std::string_view value) noexcept { return value.find_first_of("/\\~:") != none; }

// PROJ looks for the systems of all other authorities in files. It looks for these two in
// files, too, and has none for them. But it looks in the current folder last, and there may be
// one there.
bool is_in_database(std::string_view value) {
  value = value.substr(0, value.find_first_of(blanks));
  auto const cut = std::min(value.find(':'), value.size());
  std::string_view const authority = value.substr(0, cut);
  return (str::equal_no_case(authority, "epsg") || str::equal_no_case(authority, "IGNF")) &&
         cut < value.size() && std::ranges::all_of(value.substr(cut + 1), is_word) &&
         !file::exists(std::wstring(authority.begin(), authority.end()));
}

}  // namespace

bool has_none_but(std::string_view text, shift_grids allowed) {
  bool has_grids = false;
  bool is_pipeline = false;
  std::size_t last = 0;
  for (auto cut = text.find('='); cut != none; cut = text.find('=', last)) {
    std::string_view const key = key_before(text.substr(last, cut - last));
    std::string_view const value = value_behind(text.substr(cut + 1));
    last = cut + 1;
    if (std::ranges::find(step_keys, key) != step_keys.end()) return false;
    if (key == "init" && !is_in_database(value)) return false;
    is_pipeline = is_pipeline || (key == "proj" && value.starts_with("pipeline"));
    if ((key == "nadgrids" && allowed != shift_grids::any) || key == "geoidgrids") {
      if (is_path(value)) return false;
      has_grids = true;
    }
  }
  // A coordinate system only notes its grids, but the steps of a pipeline open them.
  return !has_grids || (allowed != shift_grids::none && !is_pipeline);
}

}  // namespace zu::named_files
