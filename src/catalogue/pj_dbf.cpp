#include "catalogue/pj_dbf.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "basic/file_system.h"
#include "basic/module.h"
#include "basic/number.h"
#include "basic/path.h"
#include "basic/str.h"
#include "catalogue/dbf.h"
#include "suite/zuk_basic.h"
#include "text/strconv.h"

namespace {

std::string& catalogue_folder() {
  static std::string folder;
  return folder;
}

std::wstring main_module_folder() {
  wchar_t const* const module = zu_options_get_main_module_path();
  return module == nullptr ? std::wstring() : std::wstring(zu::path::folder_of(module));
}

// The folder that a folder with its final separator is in; empty for a root.
std::wstring_view parent_of(std::wstring_view folder) {
  if (!folder.empty()) folder.remove_suffix(1);
  return zu::path::folder_of(folder);
}

// Beside the host's program; beside this library; where it was installed with this
// library, whose folder is the prefix's "lib" or a folder in it.
std::vector<std::wstring> possible_folders() {
  std::wstring const program = main_module_folder();
  std::wstring const own(zu::path::folder_of(zu::module::own_path()));
  std::vector<std::wstring> folders{program + L"prj_def"};
  if (own.empty()) return folders;
  if (own != program) folders.push_back(own + L"prj_def");
  for (auto prefix = parent_of(own); !prefix.empty(); prefix = parent_of(prefix)) {
    folders.push_back(zu::path::join(prefix, L"" ZU_DATA_FOLDER L"/prj_def"));
    if (parent_of(parent_of(own)) == prefix) break;
  }
  return folders;
}

std::string table_path(std::string_view name) {
  return (Tzu_pj_dbf::get_catalogue_folder() + "/").append(name);
}

// The record under the cursor of a table, by position of the wanted columns.
class Trow {
 public:
  // Finds the columns. Returns the name of the first one that is missing, else empty.
  std::string_view attach(Tzu_file_dbf& table, std::span<std::string_view const> names) {
    table_ = &table;
    for (std::string_view const name : names) {
      std::uint32_t index = 0;
      if (!table.find_prp_by_name(name, index)) return name;
      columns_.push_back(index);
    }
    return {};
  }

  std::string text(std::size_t column) const { return std::string(cleaned(column)); }

  std::optional<double> number(std::size_t column) const {
    return zu::number::scan_double(cleaned(column));
  }

  double number_or_0(std::size_t column) const { return number(column).value_or(0); }

  std::optional<int> integer(std::size_t column) const {
    return zu::number::scan_int(cleaned(column));
  }

 private:
  // Fields of the binary types have to be rendered; all others are read where
  // they stand.
  std::string_view raw(std::size_t column) const {
    std::uint32_t const index = columns_[column];
    char const type = table_->get_prp_type(index);
    return type == 'B' || type == 'I' ? table_->get_str(index) : table_->get_text(index);
  }

  // Only a "*" needs a copy of the field. Most fields are blank.
  std::string_view cleaned(std::size_t column) const {
    std::string_view const text = zu::str::trim(raw(column));
    if (text.find('*') == std::string_view::npos) return text;
    buffer_ = Tzu_pj_dbf::wrk_str(text);
    return buffer_;
  }

  Tzu_file_dbf* table_ = nullptr;
  std::vector<std::uint32_t> columns_;
  mutable std::string buffer_;
};

template <class List, std::size_t Count, class Read>
int load(std::string const& name, List& list, std::array<std::string_view, Count> const& columns,
         std::string* missing, Read read_record) {
  list.clear();
  List records;
  Tzu_file_dbf table;
  if (int const result = table.open(name.c_str(), true); result != 0) return result;
  Trow row;
  if (auto const column = row.attach(table, columns); !column.empty()) {
    if (missing != nullptr) *missing = column;
    return Tzu_pj_dbf::column_missing;
  }
  // The header may claim more records than there are.
  std::uint32_t const count = table.get_records_in_file();
  for (std::uint32_t i = 0; i < count; ++i) {
    table.set_rec(i);
    auto& record = records.add();
    record.set_index(i + 1);
    read_record(row, record);
  }
  list = std::move(records);
  return Tzu_pj_dbf::loaded;
}

constexpr std::array<std::string_view, 6> ellipse_columns{"ELLPS_ID", "ELLPS_NAME", "ELLPS",
                                                          "A",        "B",          "RF"};
constexpr std::array<std::string_view, 10> datum_columns{
    "DATUM_NAME", "DATUM",    "SHIFT_X0", "SHIFT_Y0", "SHIFT_Z0",
    "ROTAT_X0",   "ROTAT_Y0", "ROTAT_Z0", "SCALE_F0", "ELLPS_ID"};

// Columns of the projection tables. The K columns must exist, as in every table
// of the suite, but K_0 alone carries the scale.
constexpr std::array<std::string_view, 54> proj_columns{
    "PRJ_NAME", "PRJ_ALIAS", "PROJ",       "SOUTH",       //
    "LAT_1",    "LAT_1_V",   "LAT_1_MIN",  "LAT_1_MAX",   //
    "LAT_2",    "LAT_2_V",   "LAT_2_MIN",  "LAT_2_MAX",   //
    "LAT_TS",   "LAT_TS_V",  "LAT_TS_MIN", "LAT_TS_MAX",  //
    "LAT_0",    "LAT_0_V",   "LAT_0_MIN",  "LAT_0_MAX",   //
    "LON_0",    "LON_0_V",   "LON_0_MIN",  "LON_0_MAX",   //
    "LONC",     "LONC_V",    "LONC_MIN",   "LONC_MAX",    //
    "ALPHA",    "ALPHA_V",   "ALPHA_MIN",  "ALPHA_MAX",   //
    "K",        "K_V",       "K_MIN",      "K_MAX",       //
    "K_0",      "K_0_V",     "K_0_MIN",    "K_0_MAX",     //
    "X_0",      "X_0_V",     "X_0_MIN",    "X_0_MAX",     //
    "Y_0",      "Y_0_V",     "Y_0_MIN",    "Y_0_MAX",     //
    "UNITS",    "UNITS_V",   "ZONE",       "ZONE_V",     "ZONE_N", "DATUM"};

struct number_columns {
  proj_number number;
  std::size_t first;  // the parameter's own column; _V, _MIN and _MAX follow it
};
constexpr std::array<number_columns, proj_numbers_count> number_places{{{proj_number::lat_1, 4},
                                                                        {proj_number::lat_2, 8},
                                                                        {proj_number::lat_ts, 12},
                                                                        {proj_number::lat_0, 16},
                                                                        {proj_number::lon_0, 20},
                                                                        {proj_number::lonc, 24},
                                                                        {proj_number::alpha, 28},
                                                                        {proj_number::k_0, 36},
                                                                        {proj_number::x_0, 40},
                                                                        {proj_number::y_0, 44}}};
constexpr std::size_t units_at = 48;
constexpr std::size_t zone_at = 50;
constexpr std::size_t datum_at = 53;

bool is_on(Trow const& row, std::size_t column) { return row.number_or_0(column) > 0; }

void read_number(Trow const& row, std::size_t first, Tzu_pj_dbl_param& param) {
  if (!is_on(row, first)) return;
  auto const value = row.number(first + 1);
  auto const min = row.number(first + 2);
  auto const max = row.number(first + 3);
  param.set_use_proj4(true);
  param.set_def_default(value.has_value());
  param.set_default(value.value_or(0));
  // What the projection fixes is not offered for editing.
  param.set_show(!value.has_value());
  param.set_def_min(min.has_value());
  param.set_min(min.value_or(0));
  param.set_def_max(max.has_value());
  param.set_max(max.value_or(0));
}

void set_text(Tzu_pj_str_param& param, std::string text) {
  param.set_def_default(!text.empty());
  param.set_default(std::move(text));
}

void read_zone(Trow const& row, Tzu_pj_proj_def& record) {
  if (!is_on(row, zone_at)) return;
  double const zone = row.number_or_0(zone_at + 1);
  record.get_zone().set_use_proj4(true);
  record.get_zone().set_default(zone > -1e9 && zone < 1e9 ? static_cast<int>(zone) : 0);
  set_text(record.get_zone_name(), row.text(zone_at + 2));
}

void read_proj(Trow const& row, Tzu_pj_proj_def& record) {
  record.set_caption(row.text(0));
  record.set_add_caption(row.text(1));
  record.set_prj4_name(row.text(2));
  if (is_on(row, 3)) {
    record.get_south().set_use_proj4(true);
    record.get_south().set_def_default(true);
    record.get_south().set_default(true);
  }
  for (auto const& place : number_places)
    read_number(row, place.first, record.get_number(place.number));
  if (is_on(row, units_at)) {
    record.get_units().set_use_proj4(true);
    record.get_units().set_default(row.text(units_at + 1));
  }
  read_zone(row, record);
  set_text(record.get_datum(), row.text(datum_at));
}

}  // namespace

std::string Tzu_pj_dbf::get_dll_path() { return zu::strconv::to_system(main_module_folder()); }

void Tzu_pj_dbf::set_catalogue_folder(std::string folder) {
  catalogue_folder() = std::move(folder);
}

std::string Tzu_pj_dbf::get_catalogue_folder() {
  if (!catalogue_folder().empty()) return catalogue_folder();
  auto const folders = possible_folders();
  auto const found = std::ranges::find_if(folders, zu::file_system::is_folder);
  return zu::strconv::to_system(found == folders.end() ? folders.front() : *found);
}

std::vector<std::wstring> Tzu_pj_dbf::get_missing_folders() {
  auto folders = possible_folders();
  if (!catalogue_folder().empty()) folders = {zu::strconv::from_system(catalogue_folder())};
  if (std::ranges::any_of(folders, zu::file_system::is_folder)) folders.clear();
  return folders;
}

std::string Tzu_pj_dbf::get_proj_db_path() { return table_path("pj_proj1.dbf"); }
std::string Tzu_pj_dbf::get_zone_db_path() { return table_path("pj_proj2.dbf"); }
std::string Tzu_pj_dbf::get_datum_db_path() { return table_path("pj_datum.dbf"); }
std::string Tzu_pj_dbf::get_ellipse_db_path() { return table_path("pj_ellps.dbf"); }

std::string Tzu_pj_dbf::wrk_str(std::string_view text) {
  std::string cleaned(text);
  for (char& c : cleaned)
    if (c == '*') c = ' ';
  return std::string(zu::str::trim(cleaned));
}

int Tzu_pj_dbf::load_pj_ellipse(std::string const& name, Tzu_pj_ellipse_defs& list,
                                std::string* missing) {
  return load(name, list, ellipse_columns, missing,
              [](Trow const& row, Tzu_pj_ellipse_def& record) {
                record.set_index(static_cast<std::uint32_t>(row.integer(0).value_or(0)));
                record.set_caption(row.text(1));
                record.set_prj4_name(row.text(2));
                record.set_semi_major(row.number_or_0(3));
                auto const b = row.number(4);
                record.set_def_semi_minor(b.has_value());
                record.set_semi_minor(b.value_or(0));
                auto const rf = row.number(5);
                record.set_def_inv_flattening(rf.has_value());
                record.set_inv_flattening(rf.value_or(0));
              });
}

int Tzu_pj_dbf::load_pj_datum(std::string const& name, Tzu_pj_datum_defs& list,
                              std::string* missing) {
  return load(name, list, datum_columns, missing, [](Trow const& row, Tzu_pj_datum_def& record) {
    record.set_caption(row.text(0));
    record.set_prj4_name(row.text(1));
    std::array<double, 7> shift{};
    for (std::size_t i = 0; i < shift.size(); ++i) shift[i] = row.number_or_0(2 + i);
    record.set_towgs84(shift);
    record.set_ellipse_index(static_cast<std::uint32_t>(row.integer(9).value_or(0)));
  });
}

int Tzu_pj_dbf::load_pj_proj(std::string const& name, Tzu_pj_proj_defs& list,
                             std::string* missing) {
  return load(name, list, proj_columns, missing, read_proj);
}

void Tzu_pj_dbf::load_pj_longlat(Tzu_pj_proj_defs& list) {
  auto const add = [&list](std::string_view caption, std::string_view proj) {
    Tzu_pj_proj_def& record = list.add();
    record.set_index(static_cast<std::uint32_t>(list.get_size()));
    record.set_caption(std::string(caption));
    record.set_prj4_name(std::string(proj));
  };
  add(LONGLAT_NAME, LONGLAT_PROJ);
  add(LATLONG_NAME, LATLONG_PROJ);
}
