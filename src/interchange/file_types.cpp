#include "interchange/file_types.h"

#include <zu_pj_edit/zu_pj4_layer.h>

#include <array>

#include "basic/float_environment.h"
#include "basic/path.h"
#include "basic/str.h"
#include "interchange/add_file.h"
#include "text/strconv.h"

namespace zu {
namespace {

bool load_parameters(std::wstring const& name, Izu_string_adp* adapter) {
  return in_float_scope([&] { return Tzu_add_file::load_pj4_simple(name, adapter); });
}

bool save_parameters(std::wstring const& name, std::wstring const& definition) {
  return in_float_scope([&] { return Tzu_add_file::save_pj4_ini(name, definition); });
}

bool load_esri(std::wstring const& name, Izu_string_adp* adapter) {
  return zu_pj4_import_esri(name.c_str(), adapter) != 0;
}

bool save_esri(std::wstring const& name, std::wstring const& definition) {
  return zu_pj4_export_esri_prj(definition.c_str(), name.c_str()) != 0;
}

constexpr auto rows = std::to_array<file_type>({
    {L".pj4", false, &load_parameters, &save_parameters},
    {L".prj", true, &load_esri, &save_esri},
});

}  // namespace

std::span<file_type const> file_types() noexcept { return rows; }

file_type const& type_of(file_kind kind) { return rows.at(static_cast<std::size_t>(kind)); }

file_kind kind_of_file(std::wstring_view name) {
  std::string const extension = strconv::to_utf8(path::extension_of(name));
  for (std::size_t row = 0; row < rows.size(); ++row)
    if (str::equal_no_case(extension, strconv::to_utf8(rows.at(row).extension)))
      return static_cast<file_kind>(row);
  return file_kind::parameters;
}

}  // namespace zu
