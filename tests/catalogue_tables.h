// Writes tables of a catalogue with shapelib, which shares no code with our reader.
#pragma once

#include <gtest/gtest.h>
#include <shapefil.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

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
    for (int field = 0; field < static_cast<int>(names.size()); ++field)
      DBFWriteNULLAttribute(table.get(), record, field);
    std::istringstream cells(row);
    for (std::string cell; std::getline(cells, cell, ';');) {
      auto const equals = cell.find('=');
      int const field = DBFGetFieldIndex(table.get(), cell.substr(0, equals).c_str());
      EXPECT_TRUE(
          DBFWriteAttributeDirectly(table.get(), record, field, cell.substr(equals + 1).data()))
          << cell;
    }
    ++record;
  }
}

}  // namespace core_test
