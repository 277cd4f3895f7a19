#include "layer_support.h"

#include <optional>
#include <string>

#include "basic/file.h"
#include "core_support.h"
#include "text/rc.h"

void layer_set_language(int language) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(language);
}

wchar_t const* layer_file(wchar_t const* name) {
  static core_test::Ttemp_folder const folder;
  static std::wstring path;
  path = folder.wide(name);
  return path.c_str();
}

char const* layer_content(wchar_t const* name) {
  static std::optional<std::string> content;
  content = zu::file::read_whole(name);
  return content ? content->c_str() : nullptr;
}
