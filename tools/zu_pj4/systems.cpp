#include "systems.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>

#include "basic/number.h"
#include "basic/str.h"
#include "error.h"
#include "finder/system_search.h"
#include "terminal.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "text_lines.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace systems {
namespace {

// In the order of their kinds.
constexpr std::array<std::string_view, 4> kind_names{"known", "zonal", "projected", "geographic"};

std::string utf8(std::string const& text) { return zu::strconv::to_utf8(terminal::to_wide(text)); }

std::string shown(std::string const& text) {
  return terminal::from_wide(zu::strconv::from_utf8(text));
}

// A definition, in any notation, has at least one of these characters.
bool may_be_id(std::string_view text) {
  return text.find_first_of("+=[{\n") == std::string_view::npos;
}

zu::geographic_place read_place(std::string const& text) {
  auto const parts = zu::str::split(text, ",");
  auto const longitude = zu::number::read_double(zu::str::trim(parts.front()));
  auto const latitude =
      parts.size() == 2 ? zu::number::read_double(zu::str::trim(parts.back())) : std::nullopt;
  if (!longitude || !latitude || std::abs(*longitude) > 360 || std::abs(*latitude) > 90)
    throw Terror("no longitude and latitude, as in 37.6,55.75: " + text_lines::in_one_line(text));
  return {*longitude, *latitude};
}

nlohmann::ordered_json as_json(zu::listed_system const& system) {
  nlohmann::ordered_json row{{"id", system.id},
                             {"name", system.name},
                             {"kind", kind_names.at(static_cast<std::size_t>(system.kind))},
                             {"area", system.get_area()},
                             {"deprecated", system.is_deprecated}};
  if (system.box)
    row["box"] = {system.box->west, system.box->south, system.box->east, system.box->north};
  return row;
}

}  // namespace

std::string known_to_proj(std::string const& text) {
  if (!may_be_id(text)) return text;
  auto const definition = zu::definition_of_shipped(text);
  return definition ? terminal::from_library(*definition) : text;
}

std::string definition_of(std::string const& text) {
  bool const is_code = may_be_id(text) && text.find(':') != std::string::npos;
  return is_code ? definition_in_any(text) : known_to_proj(text);
}

std::string definition_in_any(std::string const& text) {
  if (text.find("+proj=") != std::string::npos) return text;
  std::string known = known_to_proj(text);
  if (known != text) return known;
  std::wstring definition;
  Tzu_std_wstring_adapter target(&definition);
  zu::string_adp const adapter(target);
  if (zu_pj4_import_crs(terminal::to_wide(zu::str::trim(text)).c_str(), adapter.get()) == 0)
    throw Terror("no coordinate system " + text_lines::in_one_line(text));
  return terminal::from_wide(definition);
}

int find(std::ostream& out, search const& wanted) {
  zu::search_request request;
  for (std::string const& word : wanted.words) request.words.append(utf8(word)).append(" ");
  if (!wanted.at.empty()) request.place = read_place(wanted.at);
  auto const* const kind = std::ranges::find(kind_names, wanted.kind);
  if (kind != kind_names.end())
    request.kind = static_cast<zu::system_kind>(kind - kind_names.begin());
  request.deprecated = wanted.deprecated;

  zu::Tsystem_search search;
  search.add(zu::list_shipped_systems());
  search.add(zu::list_database_systems());
  auto const found = search.find(request, wanted.limit);
  for (std::size_t const place : found) {
    zu::listed_system const& system = search.systems()[place];
    if (wanted.json)
      out << as_json(system).dump() << '\n';
    else
      out << shown(system.id) << '\t' << shown(system.name) << '\t' << shown(system.get_area())
          << '\n';
  }
  return found.empty() ? exit_some_failed : 0;
}

}  // namespace systems
