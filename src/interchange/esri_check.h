// Whether ESRI's programs read a system as it was meant.
#pragma once

#include <ogr_srs_api.h>

#include <string>

namespace zu::esri_check {

// A projection and its ellipsoid as PROJ.4 text, without a datum. Empty where a
// system has none.
std::string projection_of(OGRSpatialReferenceH system);

// Why the WKT made of a system is not to be written into a file: GDAL also writes
// the younger WKT, methods that nobody reads, and methods without one of their
// parameters. Empty when GDAL's reader makes a system of it whose projection gives
// the same coordinates to a millimetre. ESRI's WKT has no shifts of datums.
std::string find_fault(std::string const& projection, char const* wkt);

}  // namespace zu::esri_check
