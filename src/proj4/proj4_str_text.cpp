#include "proj4/proj4_str.h"
#include "text/rc.h"
#include "text/strconv.h"

namespace {

// Values come in the system's code page, captions in that of the interface.
std::string to_interface(std::string_view value) {
  return zu::strconv::encode(zu::strconv::encodings::cp1251, zu::strconv::from_system(value));
}

}  // namespace

char const* Tzu_proj4_str::get_text() {
  text_.clear();
  auto const add = [this](zu::editor_text caption, std::string_view value) {
    text_.append(Tzu_rc::get_str(caption)).append(" = ").append(value).append("\r\n");
  };
  for (zu::definition_key const key : zu::described_keys) {
    visit(key, [&](auto const& param) {
      if (param.get_def()) add(*zu::entry_of(key).caption, to_interface(param.get_value_text()));
    });
  }
  if (text_.empty())
    add(zu::editor_text::projection, std::string(Tzu_rc::get_str(zu::editor_text::kind_none)));
  return text_.c_str();
}
