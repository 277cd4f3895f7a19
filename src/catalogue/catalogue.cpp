#include "catalogue/catalogue.h"

#include <utility>

namespace {

template <class List>
void load_table(std::string const& path, int (*load)(std::string const&, List&, std::string*),
                List& list, std::vector<zu::catalogue_fault>& faults) {
  std::string column;
  if (load(path, list, &column) != Tzu_pj_dbf::loaded) faults.push_back({path, column});
}

}  // namespace

Tzu_pj_def_dbf& Tzu_pj_def_dbf::instance() {
  static Tzu_pj_def_dbf catalogue;
  return catalogue;
}

// The list of a table that does not load is empty. The dialog works without it.
void Tzu_pj_def_dbf::load() {
  Tzu_pj_proj_defs usual;
  Tzu_pj_proj_defs zonal;
  std::vector<zu::catalogue_fault> faults;
  load_table(Tzu_pj_dbf::get_proj_db_path(), &Tzu_pj_dbf::load_pj_proj, usual, faults);
  Tzu_pj_dbf::load_pj_longlat(usual);
  load_table(Tzu_pj_dbf::get_zone_db_path(), &Tzu_pj_dbf::load_pj_proj, zonal, faults);
  usual_ = std::move(usual);
  zonal_ = std::move(zonal);
  faults_ = std::move(faults);
  last_usual_ = nullptr;
  last_zonal_ = nullptr;
}

Tzu_pj_proj_def const* Tzu_pj_def_dbf::get_def(std::string_view prj4_name, double lat_0,
                                               bool has_lat_1, bool has_lat_2, bool has_lat_ts,
                                               bool has_k_0, int zone, bool south) {
  if (zone != 0) return last_zonal_ = zonal_.find_utm(prj4_name, zone, south);
  last_usual_ = usual_.find_by_name_lat_south(prj4_name, lat_0, has_lat_1, has_lat_2, has_lat_ts,
                                              has_k_0, south);
  return last_usual_;
}

std::string Tzu_pj_def_dbf::proj_caption_common(std::string_view prj4_name, double lat_0,
                                                bool has_lat_1, bool has_lat_2, bool has_lat_ts,
                                                bool has_k_0, bool south) {
  auto const* record =
      get_def(prj4_name, lat_0, has_lat_1, has_lat_2, has_lat_ts, has_k_0, 0, south);
  return record == nullptr ? std::string() : record->get_caption();
}

std::string Tzu_pj_def_dbf::proj_caption_zonal(std::string_view prj4_name, int zone, bool south) {
  last_zonal_ = zonal_.find_utm(prj4_name, zone, south);
  return last_zonal_ == nullptr ? std::string() : last_zonal_->get_caption();
}

Tzu_datum_def_dbf& Tzu_datum_def_dbf::instance() {
  static Tzu_datum_def_dbf catalogue;
  return catalogue;
}

void Tzu_datum_def_dbf::load() {
  Tzu_pj_datum_defs datums;
  Tzu_pj_ellipse_defs ellipses;
  std::vector<zu::catalogue_fault> faults;
  load_table(Tzu_pj_dbf::get_datum_db_path(), &Tzu_pj_dbf::load_pj_datum, datums, faults);
  load_table(Tzu_pj_dbf::get_ellipse_db_path(), &Tzu_pj_dbf::load_pj_ellipse, ellipses, faults);
  datums_ = std::move(datums);
  ellipses_ = std::move(ellipses);
  faults_ = std::move(faults);
}

std::vector<zu::catalogue_fault> zu::get_catalogue_faults() {
  auto faults = Tzu_pj_def_dbf::instance().get_faults();
  auto const& others = Tzu_datum_def_dbf::instance().get_faults();
  faults.insert(faults.end(), others.begin(), others.end());
  return faults;
}
