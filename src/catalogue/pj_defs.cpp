#include "catalogue/pj_defs.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "basic/str.h"

using zu::number::distance;
using zu::str::equal_no_case;
using zu::str::trim_stricmp;

namespace {

// For comparing b with rf: the definition may give one and the record have the other.
constexpr double form_tolerance = 1e-6;

bool has_semi_minor(Tzu_pj_ellipse_def const& record, double a, double b) {
  if (record.get_def_semi_minor()) return record.get_semi_minor() == b;
  // A sphere has no inverse flattening.
  return record.get_def_inv_flattening() && a != b &&
         distance(a / (a - b), record.get_inv_flattening()) <= form_tolerance;
}

bool has_flattening(Tzu_pj_ellipse_def const& record, double a, double rf) {
  if (record.get_def_inv_flattening()) return record.get_inv_flattening() == rf;
  // No ellipsoid has an inverse flattening below 1.
  return record.get_def_semi_minor() && std::abs(rf) >= 1 &&
         distance((1 - 1 / rf) * a, record.get_semi_minor()) <= form_tolerance;
}

}  // namespace

Tzu_pj_ellipse_def const* Tzu_pj_ellipse_defs::find_by_name(std::string_view prj4_name) const {
  return find(
      [prj4_name](auto const& record) { return equal_no_case(record.get_prj4_name(), prj4_name); });
}

Tzu_pj_ellipse_def const* Tzu_pj_ellipse_defs::find_by_params(bool has_a, double a, bool has_b,
                                                              double b, bool has_rf,
                                                              double rf) const {
  return find([=](Tzu_pj_ellipse_def const& record) {
    return has_a && record.get_semi_major() == a &&
           ((has_b && has_semi_minor(record, a, b)) || (has_rf && has_flattening(record, a, rf)));
  });
}

Tzu_pj_datum_def const* Tzu_pj_datum_defs::find_by_name(std::string_view prj4_name) const {
  return find([prj4_name](auto const& record) {
    return !record.get_prj4_name().empty() && equal_no_case(record.get_prj4_name(), prj4_name);
  });
}

Tzu_pj_datum_def const* Tzu_pj_datum_defs::find_by_caption(std::string_view caption) const {
  return find([caption](auto const& record) {
    return !record.get_caption().empty() && equal_no_case(record.get_caption(), caption);
  });
}

Tzu_pj_datum_def const* Tzu_pj_datum_defs::find_by_params(
    std::uint32_t ellipse_index, std::span<double const, 7> towgs84) const {
  return find([=](Tzu_pj_datum_def const& record) {
    return record.get_ellipse_index() == ellipse_index &&
           std::ranges::equal(record.get_towgs84(), towgs84,
                              [](double x, double y) { return distance(x, y) < 1e-6; });
  });
}

Tzu_pj_proj_def const* Tzu_pj_proj_defs::find_by_caption_and_zone(std::string_view caption,
                                                                  int zone) const {
  return find([=](Tzu_pj_proj_def const& record) {
    return record.get_zone().get_default() == zone &&
           trim_stricmp(record.get_caption(), caption) == 0;
  });
}

Tzu_pj_proj_def const* Tzu_pj_proj_defs::find_utm(std::string_view prj4_name, int zone,
                                                  bool south) const {
  return find([=](Tzu_pj_proj_def const& record) {
    return record.get_zone().get_default() == zone && record.is_south() == south &&
           equal_no_case(record.get_prj4_name(), prj4_name);
  });
}

Tzu_pj_proj_def const* Tzu_pj_proj_defs::find_by_name_south(std::string_view prj4_name,
                                                            bool south) const {
  return find([=](Tzu_pj_proj_def const& record) {
    return record.is_south() == south && equal_no_case(record.get_prj4_name(), prj4_name);
  });
}

bool Tzu_pj_proj_defs::fits(Tzu_pj_proj_def const& record, std::string_view prj4_name, double lat_0,
                            bool south) {
  if (!equal_no_case(record.get_prj4_name(), prj4_name)) return false;
  if (record.get_south().get_def_default() && record.get_south().get_default() != south)
    return false;
  return !record.get_lat_0().get_def_default() ||
         distance(lat_0, record.get_lat_0().get_default()) < 0.0001;
}

Tzu_pj_proj_def const* Tzu_pj_proj_defs::find_by_name_lat_south(std::string_view prj4_name,
                                                                double lat_0, bool has_lat_1,
                                                                bool has_lat_2, bool has_lat_ts,
                                                                bool has_k_0, bool south) const {
  return find([=](Tzu_pj_proj_def const& record) {
    auto const lacks = [](bool given, Tzu_pj_dbl_param const& param) {
      return given && !param.get_use_proj4();
    };
    return fits(record, prj4_name, lat_0, south) && !lacks(has_lat_1, record.get_lat_1()) &&
           !lacks(has_lat_2, record.get_lat_2()) && !lacks(has_lat_ts, record.get_lat_ts()) &&
           !lacks(has_k_0 && !has_lat_ts, record.get_k_0());
  });
}
