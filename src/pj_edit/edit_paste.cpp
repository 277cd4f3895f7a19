#include "pj_edit/edit_paste.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/str.h"
#include "finder/system_list.h"
#include "interchange/proj4_conv.h"
#include "pj_edit/edit_tips.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "text/string_adapter.h"

namespace zu {
namespace {

struct found_definition {
  std::string text;  // empty when there is none
  std::wstring note;
};

// Whether a text is several numbers and nothing else. PROJ's search by name would find systems
// for some of them.
bool is_list_of_numbers(std::wstring const& text) {
  constexpr wchar_t const* digits = L"0123456789";
  return text.find_first_not_of(digits) != std::wstring::npos &&
         text.find_first_not_of(L"0123456789.,;+- \t\r\n") == std::wstring::npos;
}

found_definition find_definition(std::wstring const& text) {
  if (is_list_of_numbers(text)) return {};
  if (text.find(L"+proj=") != std::wstring::npos && strconv::has_system_spelling(text))
    return {strconv::to_system(text), {}};
  if (auto const shipped = definition_of_shipped(strconv::to_system(text))) return {*shipped, {}};
  found_definition found;
  proj4_conv converter;
  Tzu_std_string_adapter target(&found.text);
  string_adp const adapter(target);
  if (!converter.import_crs(text, adapter.get())) return {};
  if (!converter.get_name_taken().empty())
    found.note =
        fill_own_text(own_text::name_taken, strconv::from_utf8(converter.get_name_taken()));
  return found;
}

}  // namespace

std::optional<std::array<double, 7>> read_shift(std::wstring_view text) {
  std::string narrow = strutil::trim(strconv::to_utf8(text));
  for (std::string_view const key : {"+towgs84=", "towgs84="})
    if (narrow.starts_with(key)) narrow.erase(0, key.size());
  std::ranges::replace_if(
      narrow, [](char c) { return c == ',' || c == ';' || c == '\t' || c == '\n' || c == '\r'; },
      ' ');
  std::array<double, 7> numbers{};
  std::size_t count = 0;
  for (std::string_view const piece : str::split(narrow, " ")) {
    if (piece.empty()) continue;
    auto const number = number::read_double(piece);
    if (!number || count == numbers.size()) return {};
    numbers.at(count) = *number;
    ++count;
  }
  return count == 3 || count == numbers.size() ? std::optional(numbers) : std::nullopt;
}

paste_result paste_definition(Tzu_pj_editor& editor, std::wstring const& text) {
  std::wstring trimmed = text;
  strutil::trim_inplace(trimmed);
  if (trimmed.empty()) return {false, get_own_text(own_text::paste_nothing)};
  auto const shift = read_shift(trimmed);
  if (shift && editor.state().kind != definition_kind::none) {
    editor.set_shifts(*shift);
    return {editor.is_datum_editable(), tell_ellipse(editor)};
  }
  found_definition const found = find_definition(trimmed);
  if (found.text.empty()) return {false, fill_own_text(own_text::paste_unreadable, trimmed)};
  // A system that the form cannot show must not replace the one that it shows.
  Tzu_pj_editor trial(editor.lists());
  trial.set_proj4_string(found.text.c_str());
  if (trial.state().kind == definition_kind::none)
    return {false, fill_own_text(own_text::paste_not_shown, trimmed)};
  editor.set_proj4_string(found.text.c_str());
  return {true, found.note};
}

}  // namespace zu
