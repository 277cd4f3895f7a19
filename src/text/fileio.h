// Whole text files in a named encoding.
#pragma once

#include <string>
#include <string_view>

#include "text/strconv.h"

namespace zu::fileio {

// Reads a file as text. The text ends at the first zero byte or at the end of the file;
// a byte-order mark stays in it. False on failure, also for a file beyond
// file::size_limit; `text` does not change then. Throws nothing.
bool readall(std::wstring_view name, strconv::encodings encoding, std::wstring& text) noexcept;

// Replaces the content of a file by the text, without a byte-order mark. False when the
// file cannot be opened or not all of it could be written. Throws nothing.
bool writeall(std::wstring_view name, strconv::encodings encoding, std::wstring_view text) noexcept;

}  // namespace zu::fileio
