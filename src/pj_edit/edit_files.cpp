#include "pj_edit/edit_files.h"

#include "basic/file.h"
#include "basic/float_environment.h"
#include "basic/path.h"
#include "interchange/add_file.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace zu {
namespace {

// The user knows the folder.
std::wstring tell(own_text which, std::wstring const& name) {
  return fill_own_text(which, path::file_name_of(name));
}

bool has_esri(std::wstring const& definition) {
  std::wstring wkt;
  Tzu_std_wstring_adapter target(&wkt);
  string_adp const adapter(target);
  return zu_pj4_export_esri(definition.c_str(), adapter.get()) != 0;
}

}  // namespace

load_result load_definition(std::wstring const& name, file_kind kind) {
  bool const is_esri = kind == file_kind::esri;
  std::string definition;
  Tzu_std_string_adapter target(&definition);
  string_adp const adapter(target);
  if (is_esri)
    zu_pj4_import_esri(name.c_str(), adapter.get());
  else
    zu_pj4_load_simple_w(name.c_str(), adapter.get());
  if (!definition.empty()) return {definition, {}};
  own_text reason = is_esri ? own_text::load_no_wkt : own_text::load_no_definition;
  if (!file::exists(name))
    reason = own_text::load_no_file;
  else if (!file::read_whole(name))
    reason = own_text::load_unreadable;
  return {{}, tell(reason, name)};
}

std::wstring save_definition(std::wstring const& name, file_kind kind,
                             std::string const& definition) {
  std::wstring const text = strconv::from_system(definition);
  bool const saved = kind == file_kind::esri
                         ? zu_pj4_export_esri_prj(text.c_str(), name.c_str()) != 0
                         : in_float_scope([&] { return Tzu_add_file::save_pj4_ini(name, text); });
  if (saved) return {};
  bool const is_lost = kind == file_kind::esri && !has_esri(text);
  return tell(is_lost ? own_text::save_unconverted : own_text::save_unwritten, name);
}

}  // namespace zu
