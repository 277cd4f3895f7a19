// Interface texts by language.
#pragma once

namespace zu {

// The names of the texts that this library shows. An enumerator is the index of its text in
// the group.

enum class button_text { apply, cancel, help, succeeded, terminated, save, load };

enum class editor_text {
  ellipse,
  ellipse_name,
  semi_major,
  semi_minor,
  inv_flattening,
  geographic_system,
  datum,
  datum_params,
  axis_x,
  axis_y,
  axis_z,
  shift,
  rotate,
  scale,
  projection,
  projection_name,
  projection_params,
  lon_0,
  lonc,
  lat_0,
  x_0,
  y_0,
  lat_1,
  lat_ts,
  lat_2,
  k,
  k_0,
  alpha,
  kind,
  kind_none,
  kind_usual,
  kind_zonal,
  zonal_name,
  zone,
  projection_file,
  file_filter
};

}  // namespace zu

// Every caption and message by group and index, in English or Russian. The texts are always in
// code page 1251, whatever the system's code page is: show them through
// zu::strconv::from_interface.
class Tzu_rc {
 public:
  // Number of groups of texts.
  static constexpr int groups_count = 12;

  // The text of an entry in the current language, "unknown str" outside the table. The library
  // owns the text; it is valid until the next call.
  static char const* get_str(int group, int index);
  static char const* get_str(zu::button_text which);
  static char const* get_str(zu::editor_text which);

  // Takes over the host's language at the first call, and does nothing later. 0 in the host's
  // setting is Russian, anything else English.
  static void get_auto_lang();

  // Whether the current language is Russian. Takes over the host's language first if that was
  // not done yet.
  static bool is_russian();

  // Sets the language: 1 is Russian, anything else English. The first get_auto_lang or get_str
  // overwrites a value set before it with the host's language.
  static void set_lang(int lang);
};
