// Loading of the catalogue's tables.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/pj_defs.h"

namespace zu {

// Why a table of the catalogue is not loaded: it does not have the column. When `column` is
// empty, the table cannot be opened.
struct catalogue_fault {
  std::string table;  // path, in the system's code page
  std::string column;
};

}  // namespace zu

class Tzu_pj_dbf {
 public:
  // Results of loading.
  static constexpr int loaded = 0;
  static constexpr int not_opened = 1;
  static constexpr int column_missing = 200;

  // Folder of the host's main module with a separator at its end, in the system's ANSI code
  // page. Empty when the host does not tell it.
  static std::string get_dll_path();
  // Sets another folder that holds the four tables directly. An empty text goes back to the
  // usual folders. Tables that are loaded already stay.
  static void set_catalogue_folder(std::string folder);
  // The folder of the tables: "prj_def" beside the host's main module. If there is no such
  // folder, the one beside this library, and then the one that was installed with it. If none
  // exists, the first one again.
  static std::string get_catalogue_folder();
  // The folders that do not exist; empty when the folder of the tables exists.
  static std::vector<std::wstring> get_missing_folders();

  static std::string get_proj_db_path();
  static std::string get_zone_db_path();
  static std::string get_datum_db_path();
  static std::string get_ellipse_db_path();

  // Cleans the text of a table field: replaces "*" by a blank and removes blanks at both ends.
  static std::string wrk_str(std::string_view text);

  // Each clears the list and fills it in the order of the table. The list stays empty when the
  // table cannot be opened or does not have a column, and when there is not enough memory,
  // which is thrown. `missing` receives the name of the first missing column.
  static int load_pj_ellipse(std::string const& name, Tzu_pj_ellipse_defs& list,
                             std::string* missing = nullptr);
  static int load_pj_datum(std::string const& name, Tzu_pj_datum_defs& list,
                           std::string* missing = nullptr);
  static int load_pj_proj(std::string const& name, Tzu_pj_proj_defs& list,
                          std::string* missing = nullptr);

  // Appends the two geographic entries that need no table.
  static void load_pj_longlat(Tzu_pj_proj_defs& list);

  static constexpr std::string_view LONGLAT_NAME = "Longitude/Latitude";
  static constexpr std::string_view LONGLAT_PROJ = "longlat";
  static constexpr std::string_view LATLONG_NAME = "Latitude/Longitude";
  static constexpr std::string_view LATLONG_PROJ = "latlong";
};
