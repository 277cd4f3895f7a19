// Imports an ESRI projection file and exports its definition into a file.
#include "fuzz.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

std::wstring imported(std::wstring const& name) {
  return fuzz::fed([&](auto* adapter) { return zu_pj4_import_esri(name.c_str(), adapter) != 0; });
}

}  // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static std::string const narrow = fuzz::folder().file("f.prj");
  static std::wstring const name = fuzz::folder().wide(L"f.prj");
  core_test::put_file(narrow, fuzz::text_of(data, size));
  std::wstring const definition = imported(name);
  fuzz::require(imported(name) == definition, "the same file gives different definitions");
  if (zu_pj4_export_esri_prj(definition.c_str(), name.c_str()) != 0)
    fuzz::require(!imported(name).empty(), "a file of ours cannot be read");
  return 0;
}
