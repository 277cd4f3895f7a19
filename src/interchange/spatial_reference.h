// Owners of the objects that GDAL's spatial-reference interface returns.
#pragma once

#include <cpl_conv.h>
#include <cpl_string.h>
#include <ogr_srs_api.h>

#include <memory>

namespace zu {

struct spatial_reference_closer {
  void operator()(OGRSpatialReferenceH system) const noexcept {
    OSRDestroySpatialReference(system);
  }
};
using spatial_reference = std::unique_ptr<void, spatial_reference_closer>;

struct exported_text_closer {
  void operator()(char* text) const noexcept { VSIFree(text); }
};
using exported_text = std::unique_ptr<char, exported_text_closer>;

struct string_list_closer {
  void operator()(char** list) const noexcept { CSLDestroy(list); }
};
using string_list = std::unique_ptr<char*, string_list_closer>;

}  // namespace zu
