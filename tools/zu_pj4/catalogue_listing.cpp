#include "catalogue_listing.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "basic/number.h"
#include "catalogue/catalogue.h"
#include "text/strconv.h"

namespace {

using json_value = nlohmann::ordered_json;

// JSON is always UTF-8.
std::string utf8(std::string const& text) {
  return zu::strconv::to_utf8(zu::strconv::from_system(text));
}

json_value describe(Tzu_pj_ellipse_def const& record) {
  json_value item{{"id", record.get_index()},
                  {"name", utf8(record.get_caption())},
                  {"ellps", utf8(record.get_prj4_name())},
                  {"a", record.get_semi_major()}};
  if (record.get_def_semi_minor()) item["b"] = record.get_semi_minor();
  if (record.get_def_inv_flattening()) item["rf"] = record.get_inv_flattening();
  return item;
}

json_value describe(Tzu_pj_datum_def const& record) {
  return {{"id", record.get_index()},
          {"name", utf8(record.get_caption())},
          {"datum", utf8(record.get_prj4_name())},
          {"towgs84", record.get_towgs84()},
          {"ellipsoid", record.get_ellipse_index()}};
}

json_value describe(Tzu_pj_dbl_param const& param) {
  json_value item = json_value::object();
  if (param.get_def_default()) item["value"] = param.get_default();
  if (param.get_def_min()) item["min"] = param.get_min();
  if (param.get_def_max()) item["max"] = param.get_max();
  return item;
}

json_value describe(Tzu_pj_proj_def const& record) {
  json_value item{{"id", record.get_index()},
                  {"name", utf8(record.get_caption())},
                  {"proj", utf8(record.get_prj4_name())}};
  if (record.get_zone().get_use_proj4()) item["zone"] = record.get_zone().get_default();
  if (record.is_south()) item["south"] = true;
  json_value parameters = json_value::object();
  for (std::size_t i = 0; i < proj_numbers_count; ++i) {
    auto const which = static_cast<proj_number>(i);
    if (record.get_number(which).get_use_proj4())
      parameters[std::string(proj_number_key(which))] = describe(record.get_number(which));
  }
  item["parameters"] = parameters;
  if (record.get_units().get_use_proj4()) item["units"] = utf8(record.get_units().get_default());
  return item;
}

// A cell of the plain listing: texts are not changed, numbers are as in definitions.
std::string cell(json_value const& value) {
  if (value.is_string()) return value.get<std::string>();
  if (value.is_number_float()) return zu::number::format_double(value.get<double>());
  std::string text;
  if (value.is_array()) {
    for (auto const& part : value) text += (text.empty() ? "" : ",") + cell(part);
  } else if (value.is_object()) {
    for (auto const& [key, limits] : value.items()) {
      text.append(text.empty() ? "" : " ").append(key);
      if (limits.contains("value")) text.append("=").append(cell(limits["value"]));
    }
  } else {
    text = value.dump();
  }
  return text;
}

template <class List>
json_value describe_all(List const& records) {
  json_value items = json_value::array();
  for (auto const& record : records) items.push_back(describe(record));
  return items;
}

json_value describe_list(std::string const& list) {
  if (list == "usual") return describe_all(Tzu_pj_def_dbf::instance().get_proj_defs());
  if (list == "zonal") return describe_all(Tzu_pj_def_dbf::instance().get_zone_defs());
  if (list == "datums") return describe_all(Tzu_datum_def_dbf::get_datums());
  return describe_all(Tzu_datum_def_dbf::get_ellipses());
}

}  // namespace

void print_catalogue(std::ostream& out, std::string const& list, bool json) {
  json_value const items = describe_list(list);
  if (json) {
    out << items.dump(2) << '\n';
    return;
  }
  for (auto const& item : items) {
    std::string line;
    for (auto const& [key, value] : item.items()) line += (line.empty() ? "" : "\t") + cell(value);
    out << line << '\n';
  }
}
