// Turns a CSV file of the catalogue into a dBase table.
//
//   make_prj_def TABLE.csv TABLE.dbf
//
// The first line names the columns. A column with "#" before its name is a note for
// the reader and does not go into the table. A table with a column "PROJ" is a table
// of projections. Its CSV has a short form, with one cell for each parameter:
//   empty      the projection does not have the parameter
//   any        it has the parameter, without limits
//   MIN..MAX   it has the parameter, within limits; one of them may be missing
//   =VALUE     it has the parameter with a fixed value
// The cells ZONE, UNITS and SOUTH hold the number of the zone, the key of the units
// and 1. Each parameter gets four columns in the table.

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "basic/file.h"
#include "basic/number.h"
#include "basic/str.h"
#include "catalogue/dbf.h"
#include "catalogue/pj_columns.h"
#include "text/strconv.h"

namespace {

using zu::proj_column;
using row = std::vector<std::string>;

struct table {
  row names;
  std::vector<row> rows;
  std::vector<std::size_t> lines;  // of the file, where each row stands
};

std::runtime_error error_at(std::size_t line, std::string const& what) {
  return std::runtime_error("line " + std::to_string(line) + ": " + what);
}

// The cells of one line. A comma inside quotes is text, and two quotes are one.
row split_line(std::string_view line) {
  row cells(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    char const c = line[i];
    if (c == '"' && quoted && i + 1 < line.size() && line[i + 1] == '"') {
      cells.back() += line[++i];
    } else if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      cells.emplace_back();
    } else {
      cells.back() += c;
    }
  }
  return cells;
}

table read_csv(std::string_view text) {
  table result;
  std::vector<bool> kept;
  std::size_t line_number = 0;
  for (std::string_view line : zu::str::split(text, "\n")) {
    ++line_number;
    line = zu::str::trim(line, "\r");
    if (line.empty()) continue;
    row const cells = split_line(line);
    if (kept.empty())
      for (std::string const& name : cells) kept.push_back(!name.starts_with('#'));
    if (cells.size() != kept.size())
      throw error_at(line_number, "has " + std::to_string(cells.size()) + " cells, the header " +
                                      std::to_string(kept.size()));
    row values;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (!kept[i]) continue;
      if (std::ranges::any_of(cells[i], [](char c) { return c < ' ' || c > '~'; }))
        throw error_at(line_number, "only ASCII reads the same under every code page: " + cells[i]);
      values.emplace_back(zu::str::trim(cells[i]));
    }
    if (result.names.empty()) {
      result.names = values;
    } else {
      result.rows.push_back(values);
      result.lines.push_back(line_number);
    }
  }
  if (result.names.empty()) throw std::runtime_error("has no header line");
  return result;
}

std::string checked_number(std::string_view text) {
  std::string_view const number = zu::str::trim(text);
  if (!zu::number::scan_double(number) ||
      number.find_first_not_of("+-.0123456789eE") != std::string_view::npos)
    throw std::runtime_error("no number: " + std::string(text));
  return std::string(number);
}

// The four columns of a parameter from its one cell.
std::array<std::string, 4> expand_parameter(std::string_view cell) {
  if (cell.empty()) return {"0", "", "", ""};
  if (cell == "any") return {"1", "", "", ""};
  if (cell.front() == '=') return {"1", checked_number(cell.substr(1)), "", ""};
  auto const dots = cell.find("..");
  if (dots == std::string_view::npos)
    throw std::runtime_error("neither any, MIN..MAX nor =VALUE: " + std::string(cell));
  auto const bound = [](std::string_view text) { return text.empty() ? "" : checked_number(text); };
  return {"1", "", bound(cell.substr(0, dots)), bound(cell.substr(dots + 2))};
}

std::string yes_or_no(bool yes) { return yes ? "1" : "0"; }

// All columns of one projection from the cells of its short form.
row expand_projection(row const& names, row const& cells, row const& columns) {
  auto const cell = [&](std::string_view name) -> std::string {
    auto const at = std::ranges::find(names, name);
    return at == names.end() ? "" : cells[static_cast<std::size_t>(at - names.begin())];
  };
  row values(columns.size());
  auto const value_of = [&values](proj_column column) -> std::string& {
    return values.at(static_cast<std::size_t>(column));
  };
  auto const take = [&](proj_column column) {
    value_of(column) = cell(columns.at(static_cast<std::size_t>(column)));
  };
  take(proj_column::name);
  take(proj_column::alias);
  take(proj_column::proj);
  take(proj_column::zone_name);
  take(proj_column::datum);
  value_of(proj_column::south) = yes_or_no(zu::number::scan_double(cell("SOUTH")).value_or(0) > 0);
  for (std::size_t place = 0; place < zu::number_columns.size(); ++place) {
    auto const parts = expand_parameter(cell(zu::number_columns[place].name));
    for (std::size_t part = 0; part < parts.size(); ++part)
      value_of(zu::number_column_at(place, static_cast<zu::number_part>(part))) = parts[part];
  }
  value_of(proj_column::units_value) = cell("UNITS");
  value_of(proj_column::units) = yes_or_no(!cell("UNITS").empty());
  if (!cell("ZONE").empty()) value_of(proj_column::zone_value) = checked_number(cell("ZONE"));
  value_of(proj_column::zone) = yes_or_no(!cell("ZONE").empty());
  return values;
}

table expand_projections(table const& source) {
  table result{zu::proj_columns(), {}, source.lines};
  for (std::size_t i = 0; i < source.rows.size(); ++i) {
    try {
      result.rows.push_back(expand_projection(source.names, source.rows[i], result.names));
    } catch (std::runtime_error const& error) {
      throw error_at(source.lines[i], error.what());
    }
  }
  return result;
}

// The column has type N when every filled cell is a number, else type C.
Tzu_dbf_prpdef describe_column(table const& source, std::size_t column) {
  std::size_t length = 1;
  std::size_t decimals = 0;
  bool numeric = false;
  bool text = false;
  for (row const& cells : source.rows) {
    std::string const& cell = cells[column];
    if (cell.empty()) continue;
    length = std::max(length, cell.size());
    auto const point = cell.find('.');
    if (point != std::string::npos) decimals = std::max(decimals, cell.size() - point - 1);
    bool const is_number = cell.find_first_not_of("+-.0123456789") == std::string::npos;
    (is_number ? numeric : text) = true;
  }
  bool const as_number = numeric && !text;
  if (length > 254) throw std::runtime_error("a cell of " + source.names[column] + " is too long");
  if (source.names[column].size() > 10)
    throw std::runtime_error("column name is longer than ten characters: " + source.names[column]);
  return {source.names[column], as_number ? 'N' : 'C', static_cast<std::uint8_t>(length),
          static_cast<std::uint8_t>(as_number ? std::min<std::size_t>(decimals, 15) : 0)};
}

void write_dbf(std::string const& name, table const& source) {
  Tzu_dbf_prpdefs definitions;
  for (std::size_t i = 0; i < source.names.size(); ++i) definitions.add(describe_column(source, i));
  Tzu_file_dbf target;
  if (target.create(name.c_str(), definitions, static_cast<std::uint32_t>(source.rows.size())) != 0)
    throw std::runtime_error("cannot create " + name);
  for (std::uint32_t i = 0; i < source.rows.size(); ++i) {
    target.set_rec(i);
    for (std::uint32_t column = 0; column < source.names.size(); ++column) {
      std::string value = source.rows[i][column];
      // A number stands at the right end of its field.
      Tzu_dbf_prpdef const& definition = definitions.get(column);
      if (definition.get_type() == 'N')
        value.insert(0, definition.get_length() - value.size(), ' ');
      target.set_str(column, value.c_str());
    }
  }
  if (!target.close()) throw std::runtime_error("cannot write " + name);
}

int convert(std::string const& csv, std::string const& dbf) {
  auto const content = zu::file::read_whole(zu::strconv::from_system(csv));
  if (!content) {
    std::cerr << "make_prj_def: cannot read " << csv << '\n';
    return 2;
  }
  try {
    table const source = read_csv(*content);
    bool const projections = std::ranges::find(source.names, "PROJ") != source.names.end();
    write_dbf(dbf, projections ? expand_projections(source) : source);
  } catch (std::runtime_error const& error) {
    std::cerr << "make_prj_def: " << csv << ": " << error.what() << '\n';
    return 2;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: make_prj_def TABLE.csv TABLE.dbf\n";
    return 2;
  }
  return convert(argv[1], argv[2]);
}
