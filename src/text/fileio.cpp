#include "text/fileio.h"

#include <new>
#include <stdexcept>

#include "basic/file.h"

namespace zu::fileio {

bool readall(std::wstring_view name, strconv::encodings encoding, std::wstring& text) noexcept try {
  if (!strconv::has_code_page(encoding)) return false;
  auto const content = file::read_whole(name, file::content_kind::text);
  if (!content) return false;
  text = strconv::decode(encoding, *content);
  return true;
} catch (std::bad_alloc const&) {
  return false;
} catch (std::length_error const&) {
  return false;
}

bool writeall(std::wstring_view name, strconv::encodings encoding, std::wstring_view text) noexcept
    try {
  std::string const content = strconv::encode(encoding, text);
  // A failed conversion must not empty an existing file.
  if (content.empty() && !text.empty()) return false;
  return file::write_whole(name, content);
} catch (std::bad_alloc const&) {
  return false;
} catch (std::length_error const&) {
  return false;
}

}  // namespace zu::fileio
