// What a definition's text loses on being read.
//
// Reading is lenient: it takes what it knows and leaves the rest. Whoever typed or
// pasted the text has to be told of the rest, since coordinates may depend on it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zu {

enum class loss_reason {
  text_before,     // text before the first "+" is never read
  unknown_key,     // the key is none of those that are read
  repeated_key,    // the parameter is given by another piece
  unread_value,    // no number, no text, or a flag that is said to be off
  unread_tail,     // only the begin of the value is read, "37" of "37d30"
  eighth_number,   // a datum shift of more than seven numbers
  changed_number,  // 1e12 and more: what is written is read as another number
  sphere_shift,    // a sphere is written without its datum shift
  other_lon_wrap,  // "+lon_wrap=45" is written, whatever the text says
  other_count      // zeros stand for the numbers that a datum shift lacks
};

struct reading_loss {
  std::string piece;  // as it stands in the text, with its "+"
  loss_reason reason;
  std::string kept;   // what is read of the value; empty when nothing
  bool moves_points;  // whether coordinates depend on what was lost
};

// What Tzu_proj4_str::decompose and compose lose of a text, in the order of the
// text. Empty for nearly all texts. Keys without a meaning for coordinates, as
// "no_defs", "wktext" and "type=crs", are no losses. Takes about the time of
// decompose.
std::vector<reading_loss> find_reading_losses(std::string_view definition);

// A sentence for a user, in the interface's language. The definition is in the
// system's code page.
std::wstring tell(reading_loss const& loss);

}  // namespace zu
