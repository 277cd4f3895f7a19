// Interface texts by language.
#pragma once

namespace zu {

// The texts that this library shows, by name: an enumerator is the index in its group.

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
  static char const* get_str(zu::button_text which);
  static char const* get_str(zu::editor_text which);

  // Takes over the host's language, at the first call only: 0 of the host's
  // setting is Russian, anything else English.
  static void get_auto_lang();

  // The current language, taken over from the host where that is still to be done.
  static bool is_russian();

  // Sets the language: 1 is Russian, anything else English. A value set before
  // the first get_auto_lang or get_str is overwritten by the host's there.
  static void set_lang(int lang);
};
