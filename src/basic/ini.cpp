#include "basic/ini.h"

#include <algorithm>

#include "basic/file.h"
#include "basic/str.h"

using zu::str::equal_no_case;

bool Tzu_ini::load_from_file(std::wstring_view name) {
  auto const content = zu::file::read_whole(name, zu::file::content_kind::text);
  if (!content) return false;
  load_from_text(*content);
  return true;
}

void Tzu_ini::load_from_text(std::string_view text) {
  sections_.clear();
  constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
  if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
  for (std::string_view const raw : zu::str::split(text, "\n")) {
    std::string_view const line = zu::str::trim(raw);
    if (line.empty() || line.front() == ';' || line.front() == '#') continue;
    if (line.front() == '[') {
      sections_.push_back({std::string(zu::str::trim(line.substr(1, line.find(']') - 1))), {}});
    } else if (!sections_.empty() && line.find('=') != std::string_view::npos) {
      sections_.back().entries.push_back(Tzu_prp_val::parse(line));
    }
  }
}

bool Tzu_ini::save_to_file(std::wstring_view name) const {
  std::string content;
  for (section const& part : sections_) {
    content.append("[").append(part.name).append("]\n\n");
    for (Tzu_prp_val const& item : part.entries) content.append(item.get_text()).append("\n");
  }
  return zu::file::write_whole(name, content);
}

std::string Tzu_ini::get_as_str(std::string_view section_name, std::string_view key,
                                std::string_view default_value) const {
  for (section const& part : sections_) {
    if (!equal_no_case(part.name, section_name)) continue;
    for (Tzu_prp_val const& item : part.entries)
      if (equal_no_case(item.get_name(), key)) return item.get_as_str();
  }
  return std::string(default_value);
}

Tzu_ini::section& Tzu_ini::add_section(std::string_view name) {
  auto const found = std::ranges::find_if(
      sections_, [name](section const& part) { return equal_no_case(part.name, name); });
  return found != sections_.end() ? *found : sections_.emplace_back(section{std::string(name), {}});
}

void Tzu_ini::set_as_str(std::string_view section_name, std::string_view key,
                         std::string_view value) {
  section& part = add_section(section_name);
  auto const found = std::ranges::find_if(
      part.entries, [key](Tzu_prp_val const& item) { return equal_no_case(item.get_name(), key); });
  if (found != part.entries.end())
    found->set_as_str(value);
  else
    part.entries.emplace_back(key, value);
}
