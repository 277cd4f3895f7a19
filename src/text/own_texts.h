// Interface texts that only this library has; text/rc.h has those of the suite. They are wide
// texts in the same language.
#pragma once

#include <string>
#include <string_view>

namespace zu {

enum class own_text {
  no_catalogue,  // comes before the list of folders
  type_a_point,  // for a user who types a decimal comma
  // The losses of reading a definition, in the order of loss_reason. "%1" is the piece, "%2"
  // the part that is kept.
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
  // For the dialog's note. "%1" is a folder, a table, a file or a piece of a definition.
  damaged_catalogue,  // comes before the next two
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
  not_kept,  // comes before the list of losses
  not_in_catalogue,
  other_ellipsoid,  // "%2" is the ellipsoid that replaces it
  grids_not_kept,
  // For the check of a definition. "%1" is metres, a value or a reason, "%2" a place or
  // limits.
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
  // Additional lines "caption = value" of a description.
  known_as,
  likely_code,  // "%2" is PROJ's confidence, 0 to 100
  paste_nothing,
  paste_unreadable,
  paste_not_shown,
  // For a number, behind its key.
  unit_degrees,
  unit_metres,
  unit_seconds,
  unit_millionths,
  unit_ratio,
  limits_between,
  limit_low,
  limit_high,
  fixed_by_datum,
  // For the strip of the result.
  result_name,
  undo,
  redo,
  more,
  copy_definition,
  copy_esri,
  copy_unconverted,
  paste_system,
  // For the window that finds a system.
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
  // For the window that tries a point.
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

// The text with the values in place of "%1" and "%2". A long value is cut.
std::wstring fill_own_text(own_text which, std::wstring_view first, std::wstring_view second = {});

}  // namespace zu
