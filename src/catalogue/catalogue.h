// The reference catalogue: projections, datums and ellipsoids of the
// installation, loaded on first use and kept until the library is unloaded.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/pj_dbf.h"
#include "catalogue/pj_defs.h"

// Projections. For the dialog's thread only: the look-ups below remember the last record that
// they found.
class Tzu_pj_def_dbf {
 public:
  Tzu_pj_def_dbf() { load(); }
  static Tzu_pj_def_dbf& instance();

  // Reads the tables again. Earlier records are gone then. When there is not enough memory
  // they stay.
  void load();

  Tzu_pj_proj_defs const& get_proj_defs() const noexcept { return usual_; }
  Tzu_pj_proj_defs const& get_zone_defs() const noexcept { return zonal_; }
  // Why tables are not loaded; empty when all are.
  std::vector<zu::catalogue_fault> const& get_faults() const noexcept { return faults_; }
  Tzu_pj_proj_def const* get_last_proj() const noexcept { return last_usual_; }
  Tzu_pj_proj_def const* get_last_zone() const noexcept { return last_zonal_; }

  // Searches the zonal list for a zone number other than 0, the usual list for 0. Null when
  // nothing matches.
  Tzu_pj_proj_def const* get_def(std::string_view prj4_name, double lat_0, bool has_lat_1,
                                 bool has_lat_2, bool has_lat_ts, bool has_k_0, int zone,
                                 bool south);
  // The caption of the record that the same searches find; empty when they find none.
  std::string proj_caption_common(std::string_view prj4_name, double lat_0, bool has_lat_1,
                                  bool has_lat_2, bool has_lat_ts, bool has_k_0, bool south);
  std::string proj_caption_zonal(std::string_view prj4_name, int zone, bool south);

 private:
  Tzu_pj_proj_defs usual_;
  Tzu_pj_proj_defs zonal_;
  std::vector<zu::catalogue_fault> faults_;
  Tzu_pj_proj_def const* last_usual_ = nullptr;
  Tzu_pj_proj_def const* last_zonal_ = nullptr;
};

// Datums and ellipsoids. There is no record found last here: no look-up would ever set one.
class Tzu_datum_def_dbf {
 public:
  Tzu_datum_def_dbf() { load(); }
  static Tzu_datum_def_dbf& instance();
  static Tzu_pj_datum_defs const& get_datums() { return instance().datums_; }
  static Tzu_pj_ellipse_defs const& get_ellipses() { return instance().ellipses_; }

  void load();

  Tzu_pj_datum_defs const& get_datum_defs() const noexcept { return datums_; }
  Tzu_pj_ellipse_defs const& get_ellipse_defs() const noexcept { return ellipses_; }
  std::vector<zu::catalogue_fault> const& get_faults() const noexcept { return faults_; }

 private:
  Tzu_pj_datum_defs datums_;
  Tzu_pj_ellipse_defs ellipses_;
  std::vector<zu::catalogue_fault> faults_;
};

namespace zu {

// The faults of all tables of the installation's catalogue.
std::vector<catalogue_fault> get_catalogue_faults();

}  // namespace zu
