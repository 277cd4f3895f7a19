// Converts definitions to and from ESRI WKT, EPSG codes and other notations of GDAL.
//
// Every result goes to a string adapter, which is fed once, only on success. Nothing
// throws and nothing is shown: a failure is false. The messages of GDAL and PROJ go to
// foreign_messages. Wide text is UTF-16 (UTF-32 where wchar_t has that size), narrow
// text is UTF-8.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "interchange/spatial_reference.h"
#include "suite/zuk_basic.h"

namespace zu {

// Make one converter for each conversion.
class proj4_conv {
 public:
  // Shift of a datum to WGS 84: dx, dy, dz in metres, rx, ry, rz in arc-seconds
  // (position vector), scale in ppm.
  using towgs84 = std::array<double, 7>;

  // The numbers of a geodetic system, and its names in ESRI's programs.
  struct mapping_type {
    towgs84 shift;
    double a;   // semi-major axis in metres
    double rf;  // inverse flattening
    char const* geogcs;
    char const* datum;
    char const* spheroid;
  };

  proj4_conv();

  // The WKT of a known system where the definition equals one, else GDAL's WKT with the
  // names of the matching mapping row.
  bool export_esri_pj(std::wstring_view definition, Izu_string_adp* adapter) noexcept;
  // The same into a file, in the system's code page; the file is opened only after the
  // conversion has succeeded.
  bool export_esri_file(std::wstring_view definition, std::wstring_view name) noexcept;
  static bool lookup_db(std::string_view definition, Izu_string_adp* adapter) noexcept;

  // Convert ESRI WKT to a definition and normalise the datum shift.
  bool import_esri(std::wstring_view wkt, Izu_string_adp* adapter) noexcept;
  bool import_esri_pj(std::wstring_view wkt, Izu_string_adp* adapter) noexcept;
  bool import_esri_file(std::wstring_view name, Izu_string_adp* adapter) noexcept;
  bool import_esri_lst(char** list, Izu_string_adp* adapter) noexcept;

  // Any text that GDAL or PROJ reads as a coordinate system. Addresses and names of files
  // are refused.
  bool import_crs(std::wstring_view text, Izu_string_adp* adapter) noexcept;
  bool import_crs_gdal(std::string_view text, Izu_string_adp* adapter) noexcept;
  bool import_crs_proj4(std::string_view text, Izu_string_adp* adapter) noexcept;
  // The name of the system that the last import chose for a text that is only similar to
  // that name; empty where it did not guess. UTF-8.
  std::string const& get_name_taken() const noexcept { return name_taken_; }

  // Feeds the definition as it is, or the definition of the system that "+init=" names;
  // text before "+init=" is dropped.
  bool expand_pj4(std::wstring_view definition, Izu_string_adp* adapter) noexcept;

  // Each pair of numbers is equal within 1e-6.
  static bool is_towgs_equal(towgs84 const& left, towgs84 const& right) noexcept;
  static bool is_datum_equal(mapping_type const& row, towgs84 const& shift, double a,
                             double rf) noexcept;
  // The first equal row; static data. Null when there is none.
  static mapping_type const* map_esri(towgs84 const& shift, double a, double rf) noexcept;

  // The first text in quotes after the first occurrence of the tag.
  static std::string extract_wkt_tag(std::string_view wkt, std::string_view tag);
  static void replace_wkt_tag(std::string& wkt, std::string_view tag, std::string_view name);
  static std::string remap_wkt(std::string_view wkt, mapping_type const& row);
  static void fix_gsk_wkt(std::string& wkt);
  // Sets the agreed shifts of Pulkovo 1942 and GSK-2011; other datums keep the shift that
  // GDAL read or guessed. False when there was too little memory.
  static bool fix_towgs84(OGRSpatialReferenceH system);

 private:
  // The ways of a conversion. They throw when memory runs out, so that no other way is
  // tried: its result may be different.
  static bool feed_known(std::string const& definition, Izu_string_adp* adapter);
  bool feed_esri(std::string const& definition, Izu_string_adp* adapter) const;
  bool feed_wkt2(std::string& text, Izu_string_adp* adapter) const;
  bool feed_by_gdal(std::string const& text, Izu_string_adp* adapter) const;
  bool feed_by_proj4(std::string const& text, Izu_string_adp* adapter);
  bool feed_proj4(Izu_string_adp* adapter) const;

  spatial_reference system_;
  std::string name_taken_;
};

}  // namespace zu
