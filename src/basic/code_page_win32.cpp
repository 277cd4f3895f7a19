#include <windows.h>

#include "basic/code_page.h"

namespace zu::code_page {

// Both functions ask for the length first and give nothing when the second call gives
// another length: a partial text is worse than none.

std::wstring to_wide(unsigned code_page, std::string_view text) {
  if (text.empty()) return {};
  auto const size = static_cast<int>(text.size());
  int const length = MultiByteToWideChar(code_page, 0, text.data(), size, nullptr, 0);
  if (length <= 0) return {};
  std::wstring result(static_cast<std::size_t>(length), L'\0');
  if (MultiByteToWideChar(code_page, 0, text.data(), size, result.data(), length) != length)
    return {};
  return result;
}

std::string to_multi_byte(unsigned code_page, std::wstring_view text) {
  if (text.empty()) return {};
  auto const size = static_cast<int>(text.size());
  int const length =
      WideCharToMultiByte(code_page, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  if (length <= 0) return {};
  std::string result(static_cast<std::size_t>(length), '\0');
  if (WideCharToMultiByte(code_page, 0, text.data(), size, result.data(), length, nullptr,
                          nullptr) != length)
    return {};
  return result;
}

}  // namespace zu::code_page
