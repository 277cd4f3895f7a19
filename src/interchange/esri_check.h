// Checks that ESRI's programs read an exported system correctly.
#pragma once

#include <string>

#include "interchange/gdal.h"

namespace zu::esri_check {

// The projection and the ellipsoid of a system as PROJ.4 text, without its datum. Empty
// where the system has no such text.
std::string projection_of(OGRSpatialReferenceH system);

// Why a WKT must not be written into a file. GDAL also writes WKT2, projection methods
// that no program reads, and methods without one of their parameters. Empty when GDAL
// reads the WKT back as a projection with the same coordinates to a millimetre. The
// shift of the datum is not compared, because ESRI's WKT has none.
std::string find_fault(std::string const& projection, char const* wkt);

}  // namespace zu::esri_check
