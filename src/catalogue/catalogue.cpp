#include "catalogue/catalogue.h"

#include <utility>

#include "catalogue/pj_dbf.h"

Tzu_pj_def_dbf& Tzu_pj_def_dbf::instance() {
  static Tzu_pj_def_dbf catalogue;
  return catalogue;
}

// A table that does not load leaves its list empty and the dialog usable.
void Tzu_pj_def_dbf::load() {
  Tzu_pj_proj_defs usual;
  Tzu_pj_proj_defs zonal;
  Tzu_pj_dbf::load_pj_proj(Tzu_pj_dbf::get_proj_db_path(), usual);
  Tzu_pj_dbf::load_pj_longlat(usual);
  Tzu_pj_dbf::load_pj_proj(Tzu_pj_dbf::get_zone_db_path(), zonal);
  usual_ = std::move(usual);
  zonal_ = std::move(zonal);
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
  Tzu_pj_dbf::load_pj_datum(Tzu_pj_dbf::get_datum_db_path(), datums);
  Tzu_pj_dbf::load_pj_ellipse(Tzu_pj_dbf::get_ellipse_db_path(), ellipses);
  datums_ = std::move(datums);
  ellipses_ = std::move(ellipses);
}
