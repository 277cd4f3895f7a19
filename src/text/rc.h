// Interface texts by language.
#pragma once

// Every caption and message by group and index, in English or Russian. The
// texts are in code page 1251 whatever the system's code page is; show them
// through zu::strconv::from_interface.
class Tzu_rc {
 public:
  // Number of the interface languages' groups.
  static constexpr int groups_count = 12;

  // The text of an entry in the current language, "unknown str" outside the
  // table. The pointer is to a buffer of the library's, valid until the next
  // call.
  static char const* get_str(int group, int index);

  // Takes over the host's language, at the first call only: 0 of the host's
  // setting is Russian, anything else English.
  static void get_auto_lang();

  // The current language, taken over from the host where that is still to be done.
  static bool is_russian();

  // Sets the language: 1 is Russian, anything else English. A value set before
  // the first get_auto_lang or get_str is overwritten by the host's there.
  static void set_lang(int lang);
};
