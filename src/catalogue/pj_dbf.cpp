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
#include "catalogue/pj_columns.h"
#include "suite/zuk_basic.h"
#include "text/strconv.h"

namespace {

using zu::datum_column;
using zu::ellipse_column;
using zu::number_part;
using zu::proj_column;

std::string& catalogue_folder() {
  static std::string folder;
  return folder;
}

std::wstring main_module_folder() {
  wchar_t const* const module = zu_options_get_main_module_path();
  return module == nullptr ? std::wstring() : std::wstring(zu::path::folder_of(module));
}

// The parent of a folder. Both end with a separator; the parent of a root is empty.
std::wstring_view parent_of(std::wstring_view folder) {
  if (!folder.empty()) folder.remove_suffix(1);
  return zu::path::folder_of(folder);
}

// First beside the host's program, then beside this library, then the folder that was
// installed with it: the library is in the prefix's "lib" or in a folder inside of that.
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

// The current record of a table. Its columns are reached by an enumeration.
template <class Column>
class Trow {
 public:
  // Finds the columns. Returns the name of the first one that is missing, else empty.
  template <class Names>
  std::string attach(Tzu_file_dbf& table, Names const& names) {
    table_ = &table;
    for (auto const& name : names) {
      std::uint32_t index = 0;
      if (!table.find_prp_by_name(name, index)) return std::string(name);
      columns_.push_back(index);
    }
    return {};
  }

  std::string text(Column column) const { return std::string(cleaned(column)); }

  std::optional<double> number(Column column) const {
    return zu::number::scan_double(cleaned(column));
  }

  double number_or_0(Column column) const { return number(column).value_or(0); }

  bool is_on(Column column) const { return number_or_0(column) > 0; }

  std::uint32_t id(Column column) const {
    return static_cast<std::uint32_t>(zu::number::scan_int(cleaned(column)).value_or(0));
  }

 private:
  // Binary types have to be converted to text. All other fields are read in place.
  std::string_view raw(Column column) const {
    std::uint32_t const index = columns_[static_cast<std::size_t>(column)];
    char const type = table_->get_prp_type(index);
    return type == 'B' || type == 'I' ? table_->get_str(index) : table_->get_text(index);
  }

  // Only a "*" needs a copy of the field. Most fields are blank.
  std::string_view cleaned(Column column) const {
    std::string_view const text = zu::str::trim(raw(column));
    if (text.find('*') == std::string_view::npos) return text;
    buffer_ = Tzu_pj_dbf::wrk_str(text);
    return buffer_;
  }

  Tzu_file_dbf* table_ = nullptr;
  std::vector<std::uint32_t> columns_;
  mutable std::string buffer_;
};

template <class Column, class List, class Names, class Read>
int load(std::string const& name, List& list, Names const& columns, std::string* missing,
         Read read_record) {
  list.clear();
  List records;
  Tzu_file_dbf table;
  if (int const result = table.open(name.c_str(), true); result != 0) return result;
  Trow<Column> row;
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

void read_ellipse(Trow<ellipse_column> const& row, Tzu_pj_ellipse_def& record) {
  record.set_index(row.id(ellipse_column::id));
  record.set_caption(row.text(ellipse_column::name));
  record.set_prj4_name(row.text(ellipse_column::ellps));
  record.set_semi_major(row.number_or_0(ellipse_column::a));
  auto const b = row.number(ellipse_column::b);
  record.set_def_semi_minor(b.has_value());
  record.set_semi_minor(b.value_or(0));
  auto const rf = row.number(ellipse_column::rf);
  record.set_def_inv_flattening(rf.has_value());
  record.set_inv_flattening(rf.value_or(0));
}

void read_datum(Trow<datum_column> const& row, Tzu_pj_datum_def& record) {
  record.set_caption(row.text(datum_column::name));
  record.set_prj4_name(row.text(datum_column::datum));
  std::array<double, 7> shift{};
  for (std::size_t i = 0; i < shift.size(); ++i)
    shift[i] = row.number_or_0(
        static_cast<datum_column>(static_cast<std::size_t>(datum_column::shift_x) + i));
  record.set_towgs84(shift);
  record.set_ellipse_index(row.id(datum_column::ellipse_id));
}

void read_number(Trow<proj_column> const& row, std::size_t place, Tzu_pj_dbl_param& param) {
  auto const column = [place](number_part part) { return zu::number_column_at(place, part); };
  if (!row.is_on(column(number_part::given))) return;
  auto const value = row.number(column(number_part::value));
  auto const min = row.number(column(number_part::min));
  auto const max = row.number(column(number_part::max));
  param.set_use_proj4(true);
  param.set_def_default(value.has_value());
  param.set_default(value.value_or(0));
  // The dialog does not offer a number that the projection fixes.
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

void read_zone(Trow<proj_column> const& row, Tzu_pj_proj_def& record) {
  if (!row.is_on(proj_column::zone)) return;
  double const zone = row.number_or_0(proj_column::zone_value);
  record.get_zone().set_use_proj4(true);
  record.get_zone().set_default(zone > -1e9 && zone < 1e9 ? static_cast<int>(zone) : 0);
  set_text(record.get_zone_name(), row.text(proj_column::zone_name));
}

void read_proj(Trow<proj_column> const& row, Tzu_pj_proj_def& record) {
  record.set_caption(row.text(proj_column::name));
  record.set_add_caption(row.text(proj_column::alias));
  record.set_prj4_name(row.text(proj_column::proj));
  if (row.is_on(proj_column::south)) {
    record.get_south().set_use_proj4(true);
    record.get_south().set_def_default(true);
    record.get_south().set_default(true);
  }
  for (std::size_t place = 0; place < zu::number_columns.size(); ++place)
    if (auto const number = zu::number_columns[place].number)
      read_number(row, place, record.get_number(*number));
  if (row.is_on(proj_column::units)) {
    record.get_units().set_use_proj4(true);
    record.get_units().set_default(row.text(proj_column::units_value));
  }
  read_zone(row, record);
  set_text(record.get_datum(), row.text(proj_column::datum));
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
  return load<ellipse_column>(name, list, zu::ellipse_columns, missing, read_ellipse);
}

int Tzu_pj_dbf::load_pj_datum(std::string const& name, Tzu_pj_datum_defs& list,
                              std::string* missing) {
  return load<datum_column>(name, list, zu::datum_columns, missing, read_datum);
}

int Tzu_pj_dbf::load_pj_proj(std::string const& name, Tzu_pj_proj_defs& list,
                             std::string* missing) {
  return load<proj_column>(name, list, zu::proj_columns(), missing, read_proj);
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
