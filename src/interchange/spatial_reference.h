// Owners of the objects that GDAL's spatial-reference interface returns.
#pragma once

#include <memory>

#include "interchange/gdal.h"

namespace zu {

struct spatial_reference_closer {
  void operator()(OGRSpatialReferenceH system) const noexcept {
    gdal().OSRDestroySpatialReference(system);
  }
};
using spatial_reference = std::unique_ptr<void, spatial_reference_closer>;

struct exported_text_closer {
  void operator()(char* text) const noexcept { gdal().VSIFree(text); }
};
using exported_text = std::unique_ptr<char, exported_text_closer>;

struct string_list_closer {
  void operator()(char** list) const noexcept { gdal().CSLDestroy(list); }
};
using string_list = std::unique_ptr<char*, string_list_closer>;

}  // namespace zu
