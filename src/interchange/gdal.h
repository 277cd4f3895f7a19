// GDAL's functions, under their own names.
//
// A host that only opens the dialog must not wait for GDAL: with all the libraries that it
// needs it takes longer to load than this library and the toolkit together. So on Linux the
// first conversion loads it. On Windows it is a part of this library.
#pragma once

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_string.h>
#include <ogr_srs_api.h>

// Only macros give the name of a function and its text from one list.
// NOLINTBEGIN(cppcoreguidelines-macro-usage, bugprone-macro-parentheses)
#define ZU_GDAL_FUNCTIONS(function)                                                                \
  function(CPLDefaultErrorHandler) function(CPLPopErrorHandler) function(CPLPushErrorHandler)      \
      function(CSLAddString) function(CSLDestroy) function(OSRAddGuessedTOWGS84)                   \
          function(OSRDestroySpatialReference) function(OSRExportToProj4) function(OSRExportToWkt) \
              function(OSRGetAttrValue) function(OSRGetInvFlattening) function(OSRGetSemiMajor)    \
                  function(OSRGetTOWGS84) function(OSRImportFromESRI) function(OSRImportFromProj4) \
                      function(OSRImportFromWkt) function(OSRIsGeographic)                         \
                          function(OSRIsProjected) function(OSRMorphToESRI)                        \
                              function(OSRNewSpatialReference) function(OSRSetFromUserInput)       \
                                  function(OSRSetPROJSearchPaths) function(OSRSetTOWGS84)          \
                                      function(VSIFree)

namespace zu {

struct gdal_functions {
#define ZU_GDAL_MEMBER(name) decltype(&::name) name;
  ZU_GDAL_FUNCTIONS(ZU_GDAL_MEMBER)
#undef ZU_GDAL_MEMBER
};
// NOLINTEND(cppcoreguidelines-macro-usage, bugprone-macro-parentheses)

// Loads GDAL at the first call; it stays loaded. Any thread may call this. Throws
// std::runtime_error when GDAL cannot be loaded; the next call tries again.
gdal_functions const& gdal();

}  // namespace zu
