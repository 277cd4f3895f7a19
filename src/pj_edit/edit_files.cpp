#include "pj_edit/edit_files.h"

#include "basic/file.h"
#include "basic/path.h"
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
  file_type const& type = type_of(kind);
  std::string definition;
  Tzu_std_string_adapter target(&definition);
  string_adp const adapter(target);
  if (type.load(name, adapter.get()) && !definition.empty()) return {definition, {}};
  own_text reason = type.has_wkt ? own_text::load_no_wkt : own_text::load_no_definition;
  if (!file::exists(name))
    reason = own_text::load_no_file;
  else if (!file::read_whole(name))
    reason = own_text::load_unreadable;
  return {{}, tell(reason, name)};
}

std::wstring save_definition(std::wstring const& name, file_kind kind,
                             std::string const& definition) {
  std::wstring const text = strconv::from_system(definition);
  file_type const& type = type_of(kind);
  if (type.save(name, text)) return {};
  bool const is_lost = type.has_wkt && !has_esri(text);
  return tell(is_lost ? own_text::save_unconverted : own_text::save_unwritten, name);
}

}  // namespace zu
