// Interface texts of this library alone, beside those that it shares with the
// suite. They are wide, in the current language of those.
#pragma once

#include <string>
#include <string_view>

namespace zu {

enum class own_text {
  no_catalogue,  // stands before the folders that were looked for
  type_a_point,  // for who types a decimal comma
  // What a definition lost on being read, in the order of its reasons: "%1" is the piece,
  // "%2" what is kept.
  text_before,
  unknown_key,
  repeated_key,
  unread_value,
  unread_tail,
  eighth_number,
  changed_number,
  sphere_shift,
  other_lon_wrap,
  other_count,
  // The dialog's note. "%1" is a folder, a table, a file or a piece of a definition.
  damaged_catalogue,  // stands before the next two
  table_not_opened,
  column_missing,  // "%2" is the column
  load_no_file,
  load_unreadable,
  load_no_definition,
  load_no_wkt,
  save_unwritten,
  save_unconverted,
  saved_as,
  returns_empty,
  returns_empty_instead,
  not_kept,  // stands before what a definition loses
  not_in_catalogue,
  other_ellipsoid,  // "%2" is the one in its place
  grids_not_kept,
  // A check of a definition. "%1" is metres, a value or a reason, "%2" a place or limits.
  least_distance,
  most_distance,
  no_operation,
  out_of_limits,
  apply_empties,
  apply_changes,
  apply_moves,
  prj_refused,
  prj_changes,
  prj_moves,
  pulkovo_added,
  zeros_added,
  name_taken,  // "%1" is the name that PROJ found
  // What a description adds, as "caption = value".
  known_as,
  likely_code,  // "%2" is how sure PROJ is, of 100
  paste_nothing,
  paste_unreadable,
  paste_not_shown,
  // Of a number, behind its key.
  unit_degrees,
  unit_metres,
  unit_seconds,
  unit_millionths,
  unit_ratio,
  limits_between,
  limit_low,
  limit_high,
  fixed_by_datum,
  // The strip of the result.
  result_name,
  undo,
  redo,
  more,
  copy_definition,
  copy_esri,
  copy_unconverted,
  paste_system,
  // Of the window that finds a system.
  find_system,
  find_title,
  find_hint,
  find_words,
  find_list,
  find_details,
  find_deprecated,
  find_take,
  find_nothing,
  no_definition,
  area_box,  // "%1" is longitudes, "%2" latitudes
  deprecated,
  // Of the window that tries a point.
  try_point,
  trial_title,
  trial_longitude,
  trial_latitude,
  trial_x,
  trial_y,
  trial_own_longitude,
  trial_own_latitude,
  trial_hint,
  trial_close,
  no_transformation,
  point_refused,  // "%1" is PROJ's reason
};

wchar_t const* get_own_text(own_text which);

// The text with "%1" and "%2" replaced. A long value is clipped.
std::wstring fill_own_text(own_text which, std::wstring_view first, std::wstring_view second = {});

}  // namespace zu
