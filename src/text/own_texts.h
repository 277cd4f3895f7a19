// Interface texts of this library alone, beside those that it shares with the
// suite. They are wide, in the current language of those.
#pragma once

namespace zu {

enum class own_text {
  no_catalogue,  // stands above the folders that were looked for
  type_a_point,  // for who types a decimal comma
};

wchar_t const* get_own_text(own_text which);

}  // namespace zu
