// Interface texts of this library alone, beside those that it shares with the
// suite. They are wide, in the current language of those.
#pragma once

#include <string>
#include <string_view>

namespace zu {

enum class own_text {
  no_catalogue,  // stands above the folders that were looked for
  type_a_point,  // for who types a decimal comma
  // What a definition lost on being read: "%1" is the piece, "%2" what is kept.
  text_before,
  unknown_key,
  repeated_key,
  unread_value,
  unread_tail,
  eighth_number,
  changed_number,
  sphere_shift,
  other_lon_wrap,
};

wchar_t const* get_own_text(own_text which);

// The text with "%1" and "%2" replaced. A long value is clipped.
std::wstring fill_own_text(own_text which, std::wstring_view first, std::wstring_view second = {});

}  // namespace zu
