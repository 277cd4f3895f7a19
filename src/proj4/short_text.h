// A definition in one line, with the names that the catalogue gives.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/pj_defs.h"
#include "proj4/proj4_str.h"
#include "suite/zuk_basic.h"

// A definition, the catalogue's record of its projection, and its parts as texts. A part is a
// value followed by the separator, or empty. When the definition does not give a number, the
// part has the number that the record fixes, if any. Datum and ellipsoid come from the
// definition alone: the datum that a record suggests would be a guess. Texts are in the
// system's ANSI code page.
class Tzu_pj4_parts : public Tzu_proj4_str {
 public:
  // Reads a definition (null counts as empty) and looks for the record of its projection:
  // among the zonal records when the definition has a zone, else among the usual ones. Returns
  // whether a record was found. Without a projection none is.
  bool init(char const* text);
  // The record found, or null. The catalogue owns it; it is valid until the catalogue is
  // loaded again.
  Tzu_pj_proj_def const* get_def() const noexcept { return def_; }

  // The record's caption, or the projection's key when there is no record.
  std::string get_pj4_caption() const;
  // The projection's key.
  std::string get_pj4_name() const { return get_part(zu::definition_key::proj); }
  std::string get_pj4_zone() const { return get_part(zu::definition_key::zone); }
  std::string get_pj4_lon0() const { return get_part(zu::definition_key::lon_0); }
  std::string get_pj4_lonc() const { return get_part(zu::definition_key::lonc); }
  std::string get_pj4_lat0() const { return get_part(zu::definition_key::lat_0); }
  std::string get_pj4_x0() const { return get_part(zu::definition_key::x_0); }
  std::string get_pj4_y0() const { return get_part(zu::definition_key::y_0); }
  std::string get_pj4_lat1() const { return get_part(zu::definition_key::lat_1); }
  std::string get_pj4_lat_ts() const { return get_part(zu::definition_key::lat_ts); }
  std::string get_pj4_lat2() const { return get_part(zu::definition_key::lat_2); }
  std::string get_pj4_k0() const { return get_part(zu::definition_key::k_0); }
  std::string get_pj4_alpha() const { return get_part(zu::definition_key::alpha); }
  std::string get_pj4_datum() const { return get_part(zu::definition_key::datum); }
  std::string get_pj4_towgs84() const {
    return get_part(zu::definition_key::towgs84);
  }  // "(" seven numbers by "," ")"
  std::string get_pj4_ellips() const { return get_part(zu::definition_key::ellps); }
  std::string get_pj4_a() const { return get_part(zu::definition_key::a); }
  std::string get_pj4_b() const { return get_part(zu::definition_key::b); }
  std::string get_pj4_rf() const { return get_part(zu::definition_key::rf); }
  // The part of any key; a flag's is empty.
  std::string get_part(zu::definition_key key) const;

 private:
  std::string part(std::string_view value) const;
  Tzu_pj_dbl_param const* fixed_number(zu::definition_key key) const;

  Tzu_pj_proj_def const* def_ = nullptr;
  std::string separator_ = "; ";
};

class Tzu_short_text_helper {
 public:
  // Feeds the summary as narrow text: the caption, then all parts from lon_0 to rf. Returns
  // false and feeds nothing when the definition has no projection or the adapter is null. A
  // projection that is not in the catalogue has its key as caption.
  static bool get_short_text(char const* definition, Izu_string_adp* adapter);
};
