#include <iconv.h>
#include <langinfo.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is of POSIX

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <utility>

#include "basic/code_page.h"
#include "basic/str.h"

namespace zu::code_page {
namespace {

struct locale_deleter {
  void operator()(locale_t handle) const noexcept { freelocale(handle); }
};
using locale_ptr = std::unique_ptr<std::remove_pointer_t<locale_t>, locale_deleter>;

// The name of the user's character locale, from the environment.
std::string_view locale_name() {
  for (char const* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    char const* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe)
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

std::string find_encoding(std::string_view name) {
  // The host may have set another locale than its user's, so this opens the user's
  // locale and does not change the host's.
  if (locale_ptr const user{newlocale(LC_CTYPE_MASK, "", nullptr)}; user) {
    std::string_view const codeset = nl_langinfo_l(CODESET, user.get());
    return codeset == "ANSI_X3.4-1968" ? "UTF-8" : std::string(codeset);
  }
  // The name of a locale tells its encoding even where the locale is not installed.
  auto const dot = name.find('.');
  if (dot == std::string_view::npos) return "UTF-8";
  return std::string(name.substr(dot + 1, name.find('@') - dot - 1));
}

// Looked up again only when the environment names another locale: the C library is
// slow at opening a locale, and keeps some memory for each.
std::string system_encoding() {
  static std::mutex mutex;
  std::scoped_lock const lock(mutex);
  static std::string known_name;
  static std::string encoding;
  if (std::string_view const name = locale_name(); encoding.empty() || name != known_name) {
    std::string found = find_encoding(name);
    known_name = name;
    encoding = std::move(found);
  }
  return encoding;
}

// The encoding of wchar_t. The C library's own name for it, "WCHAR_T", would also give
// numbers beyond Unicode.
constexpr char const* wide_encoding =
    std::endian::native == std::endian::little ? "UTF-32LE" : "UTF-32BE";

std::string encoding_name(unsigned code_page) {
  if (code_page == system) return system_encoding();
  if (code_page == utf8) return "UTF-8";
  if (code_page == 20127) return "US-ASCII";
  return "CP" + std::to_string(code_page);
}

class Tconverter {
 public:
  Tconverter(std::string const& to, std::string const& from) noexcept
      : handle_(iconv_open(to.c_str(), from.c_str())) {}
  ~Tconverter() {
    if (valid()) iconv_close(handle_);
  }
  Tconverter(Tconverter const&) = delete;
  Tconverter& operator=(Tconverter const&) = delete;

  bool valid() const noexcept { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // Converts bytes to bytes. Where a part of the source cannot be converted, `replace`
  // gets the rest of the source, cuts that part off and returns the text for it. The
  // source is a copy because iconv wants a pointer to writable bytes.
  template <class Replace>
  // cppcheck-suppress passedByValue
  std::string convert(std::string source, Replace replace) {
    std::string result;
    char* in = source.data();
    std::size_t in_left = source.size();
    std::string buffer(4096, '\0');
    while (in_left > 0) {
      char* out = buffer.data();
      std::size_t out_left = buffer.size();
      std::size_t const code = iconv(handle_, &in, &in_left, &out, &out_left);
      int const error = errno;
      result.append(buffer.data(), out);
      if (code != static_cast<std::size_t>(-1) || error == E2BIG) continue;
      flush(result);
      std::string_view rest(in, in_left);
      result.append(replace(rest));
      in += in_left - rest.size();
      in_left = rest.size();
    }
    flush(result);
    return result;
  }

 private:
  // With some code pages (1255, 1258) iconv keeps a letter until it knows whether a
  // combining mark follows.
  void flush(std::string& result) {
    std::string held(64, '\0');
    char* out = held.data();
    std::size_t out_left = held.size();
    iconv(handle_, nullptr, nullptr, &out, &out_left);
    result.append(held.data(), out);
  }

  iconv_t handle_;
};

// ASCII is the same in the pages that the library itself uses, and most of its texts
// are ASCII.
template <class Text>
bool is_plain(unsigned code_page, Text text) noexcept {
  return (code_page == system || code_page == utf8 || code_page == cp1251) &&
         std::ranges::all_of(text, [](auto c) { return c >= 0 && c < 0x80; });
}

// Windows reads and writes a byte that has no letter in one of these pages as the
// control character of that number. Tables and files come from Windows.
bool has_gaps_for_controls(std::string const& encoding) {
  return encoding.size() == 6 && encoding.starts_with("CP125");
}
bool is_control(wchar_t c) noexcept { return c >= 0x80 && c <= 0x9F; }

// The text begins with invalid UTF-8. How many of its bytes Windows replaces by one
// U+FFFD: the first byte and the bytes that could belong to the same letter.
std::size_t broken_utf8_size(std::string_view text) noexcept {
  auto const at = [text](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  unsigned const first = at(0);
  std::size_t const whole = first >= 0xC2 && first < 0xE0   ? 2
                            : first >= 0xE0 && first < 0xF0 ? 3
                            : first >= 0xF0 && first < 0xF5 ? 4
                                                            : 1;
  // The second byte can make the number too small, too large or a surrogate.
  unsigned const least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  unsigned const most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  bool const goes_on = at(1) >= least && at(1) <= most;
  std::size_t size = 1;
  while (size < (goes_on ? whole : std::min<std::size_t>(whole, 2)) && (at(size) & 0xC0U) == 0x80)
    ++size;
  return size;
}

std::string as_bytes(std::wstring_view text) {
  return {reinterpret_cast<char const*>(text.data()), text.size() * sizeof(wchar_t)};
}

}  // namespace

std::wstring to_wide(unsigned code_page, std::string_view text) {
  if (text.empty()) return {};
  if (is_plain(code_page, text)) return {text.begin(), text.end()};
  std::string const encoding = encoding_name(code_page);
  Tconverter converter(wide_encoding, encoding);
  if (!converter.valid()) return {};
  std::string const bytes =
      converter.convert(std::string(text), [&encoding](std::string_view& rest) {
        wchar_t const byte = static_cast<unsigned char>(rest.front());
        bool const as_control = has_gaps_for_controls(encoding) && is_control(byte);
        rest.remove_prefix(encoding == "UTF-8" ? broken_utf8_size(rest) : 1);
        return as_bytes(std::wstring(1, as_control ? byte : L'\uFFFD'));
      });
  std::wstring result(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(result.data(), bytes.data(), result.size() * sizeof(wchar_t));
  return result;
}

std::string to_multi_byte(unsigned code_page, std::wstring_view text) {
  if (text.empty()) return {};
  if (is_plain(code_page, text)) return {text.begin(), text.end()};
  std::string const encoding = encoding_name(code_page);
  Tconverter converter(encoding, wide_encoding);
  if (!converter.valid()) return {};
  return converter.convert(as_bytes(text), [&](std::string_view& rest) {
    wchar_t letter = 0;
    std::memcpy(&letter, rest.data(), sizeof letter);
    rest.remove_prefix(sizeof letter);
    std::string const byte(1, static_cast<char>(letter));
    bool const is_gap = has_gaps_for_controls(encoding) && is_control(letter) &&
                        to_wide(code_page, byte).front() == letter;
    return is_gap ? byte : "?";
  });
}

}  // namespace zu::code_page
