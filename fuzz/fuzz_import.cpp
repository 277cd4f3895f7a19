// Imports a text in any notation.
#include "fuzz.h"
#include "text/strconv.h"
#include "zu_pj_edit/zu_pj4_layer.h"

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::wstring const text = fuzz::widen(fuzz::text_of(data, size));
  auto const imported = [](std::wstring const& from) {
    return fuzz::fed([&](auto* adapter) { return zu_pj4_import_crs(from.c_str(), adapter) != 0; });
  };
  std::wstring const definition = imported(text);
  fuzz::fed([&](auto* adapter) { return zu_pj4_export_esri(definition.c_str(), adapter) != 0; });
  fuzz::fed([&](auto* adapter) { return zu_pj4_import_esri_prj(text.c_str(), adapter) != 0; });
  return 0;
}
