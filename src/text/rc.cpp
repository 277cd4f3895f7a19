#include "text/rc.h"

#include <span>
#include <string>

#include "suite/zuk_basic.h"
#include "text/rc_strings.h"

namespace {

constexpr int lang_russian = 1;
constexpr int button_group = 5;
constexpr int editor_group = 6;

struct Tstate {
  int lang = 0;
  bool auto_lang_flag = false;
  std::string buffer;
};

Tstate& state() {
  static Tstate instance;
  return instance;
}

}  // namespace

void Tzu_rc::get_auto_lang() {
  Tstate& now = state();
  if (now.auto_lang_flag) return;
  now.lang = zu_res_get_lng() == 0 ? lang_russian : 0;
  now.auto_lang_flag = true;
}

void Tzu_rc::set_lang(int lang) { state().lang = lang; }

bool Tzu_rc::is_russian() {
  get_auto_lang();
  return state().lang == lang_russian;
}

char const* Tzu_rc::get_str(int group, int index) {
  bool const russian = is_russian();
  Tstate& now = state();
  // Longer than any text, so the buffer never moves: an older pointer shows the new text.
  now.buffer.reserve(256);
  now.buffer = "unknown str";
  auto const groups = zu::rc_groups();
  if (static_cast<unsigned>(group) < groups.size()) {
    auto const entries = groups[static_cast<unsigned>(group)];
    if (index >= 0 && static_cast<unsigned>(index) < entries.size()) {
      auto const& entry = entries[static_cast<unsigned>(index)];
      now.buffer = russian ? entry.russian : entry.english;
    }
  }
  return now.buffer.c_str();
}

char const* Tzu_rc::get_str(zu::button_text which) {
  return get_str(button_group, static_cast<int>(which));
}

char const* Tzu_rc::get_str(zu::editor_text which) {
  return get_str(editor_group, static_cast<int>(which));
}
