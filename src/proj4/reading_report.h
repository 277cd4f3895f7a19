// What is lost when a definition's text is read.
//
// Reading is lenient: it takes what it knows and drops the rest. The user who typed or pasted
// the text has to know about the rest, because coordinates may depend on it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zu {

enum class loss_reason {
  text_before,     // text before the first "+" is never read
  unknown_key,     // the key is none of those that are read
  repeated_key,    // the parameter is given by another piece
  unread_value,    // no number, no text, or a flag with a value that means no
  unread_tail,     // only the beginning of the value is read, "37" of "37d30"
  eighth_number,   // a datum shift of more than seven numbers
  changed_number,  // 1e12 and more: the written text is read as another number
  sphere_shift,    // a sphere is written without its datum shift
  other_lon_wrap,  // "+lon_wrap=45" is written, whatever the text says
  other_count      // zeros replace the missing numbers of a datum shift
};

struct reading_loss {
  std::string piece;  // as it stands in the text, with its "+"
  loss_reason reason;
  std::string kept;   // the part of the value that is read; empty when nothing is
  bool moves_points;  // whether coordinates depend on what was lost
};

// Everything that Tzu_proj4_str::decompose and compose lose of a text, in the order of the
// text. Empty for nearly all texts. Keys without a meaning for coordinates, such as "no_defs",
// "wktext" and "type=crs", are no losses. Takes about as long as decompose.
std::vector<reading_loss> find_reading_losses(std::string_view definition);

// A sentence for a user, in the interface language. The definition is in the system's code
// page.
std::wstring tell(reading_loss const& loss);

}  // namespace zu
