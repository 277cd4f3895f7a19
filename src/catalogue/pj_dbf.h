// Loading of the catalogue's tables.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/pj_defs.h"

namespace zu {

// Why a table of the catalogue is not loaded: it lacks the column, or, where that is
// empty, it cannot be opened.
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

  // Folder of the host's main module with its final separator, in the system's
  // ANSI code page; empty when the host tells none.
  static std::string get_dll_path();
  // Names another folder that holds the four tables themselves; an empty text
  // goes back to the usual ones. Takes effect on what is loaded after it.
  static void set_catalogue_folder(std::string folder);
  // The folder of the tables: "prj_def" beside the host's main module. Only where
  // there is no such folder, the one beside this library, and then the one that is
  // installed with it; where there is none of them, the first again.
  static std::string get_catalogue_folder();
  // What was looked for in vain; empty when the folder of the tables is there.
  static std::vector<std::wstring> get_missing_folders();

  static std::string get_proj_db_path();
  static std::string get_zone_db_path();
  static std::string get_datum_db_path();
  static std::string get_ellipse_db_path();

  // Text of a table field: "*" stands for a blank, blanks at the ends go.
  static std::string wrk_str(std::string_view text);

  // Each clears the list and fills it in the order of the table. A table that
  // cannot be opened or lacks a column leaves the list empty, and so does a lack of
  // memory, which is thrown. The name of the first missing column goes to `missing`.
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
