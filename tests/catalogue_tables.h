// Writes tables of a catalogue with shapelib, which shares no code with our reader.
#pragma once

#include <gtest/gtest.h>
#include <shapefil.h>

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/pj_dbf.h"
#include "core_support.h"

namespace core_test {

using table_columns = std::vector<std::string>;

inline table_columns columns_of(std::string const& table) {
  if (table == "pj_ellps") return {"ELLPS_ID", "ELLPS_NAME", "ELLPS", "A", "B", "RF"};
  if (table == "pj_datum")
    return {"DATUM_NAME", "DATUM",    "SHIFT_X0", "SHIFT_Y0", "SHIFT_Z0",
            "ROTAT_X0",   "ROTAT_Y0", "ROTAT_Z0", "SCALE_F0", "ELLPS_ID"};
  table_columns names{"PRJ_NAME", "PRJ_ALIAS", "PROJ",   "SOUTH",  "UNITS",
                      "UNITS_V",  "ZONE",      "ZONE_V", "ZONE_N", "DATUM"};
  for (char const* key :
       {"LAT_1", "LAT_2", "LAT_TS", "LAT_0", "LON_0", "LONC", "ALPHA", "K", "K_0", "X_0", "Y_0"})
    for (char const* part : {"", "_V", "_MIN", "_MAX"}) names.push_back(std::string(key) + part);
  return names;
}

// Rows are written as "COLUMN=text;COLUMN=text". Names and keys are text, all
// others numbers. A column that a row does not give becomes shapelib's null, which is
// asterisks in a number.
inline void write_table(std::string const& file, table_columns const& names,
                        std::vector<std::string> const& rows) {
  std::unique_ptr<DBFInfo, decltype(&DBFClose)> const table(DBFCreateEx(file.c_str(), nullptr),
                                                            DBFClose);
  ASSERT_TRUE(table) << file;
  table_columns const texts{"PRJ_NAME", "PRJ_ALIAS",  "PROJ",       "UNITS_V", "ZONE_N",
                            "DATUM",    "ELLPS_NAME", "DATUM_NAME", "ELLPS"};
  for (std::string const& column : names) {
    bool const is_text = std::ranges::find(texts, column) != texts.end();
    int const field = is_text ? DBFAddField(table.get(), column.c_str(), FTString, 30, 0)
                              : DBFAddField(table.get(), column.c_str(), FTDouble, 22, 6);
    ASSERT_GE(field, 0) << column;
  }
  for (int record = 0; std::string const& row : rows) {
    std::map<std::string, std::string> cells;
    std::istringstream parts(row);
    for (std::string part; std::getline(parts, part, ';');)
      cells[part.substr(0, part.find('='))] = part.substr(part.find('=') + 1);
    for (int field = 0; std::string const& column : names) {
      if (cells.contains(column))
        DBFWriteAttributeDirectly(table.get(), record, field, cells[column].data());
      else
        DBFWriteNULLAttribute(table.get(), record, field);
      ++field;
    }
    ++record;
  }
}

// The catalogue is a folder of the test's own, without a table at first.
class Tcatalogue_test : public testing::Test {
 protected:
  Tcatalogue_test() { Tzu_pj_dbf::set_catalogue_folder(folder.file("")); }
  ~Tcatalogue_test() override { Tzu_pj_dbf::set_catalogue_folder(""); }

  void write(std::string const& table, std::vector<std::string> const& rows) {
    write_table(folder.file(table + ".dbf"), columns_of(table), rows);
  }

  Ttemp_folder const folder;
};

}  // namespace core_test
