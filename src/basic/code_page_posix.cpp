#include <iconv.h>
#include <langinfo.h>
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is of POSIX

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "basic/code_page.h"
#include "basic/str.h"

namespace zu::code_page {
namespace {

struct locale_deleter {
  void operator()(locale_t handle) const noexcept { freelocale(handle); }
};
using locale_ptr = std::unique_ptr<std::remove_pointer_t<locale_t>, locale_deleter>;

// The name that the environment gives the user's character locale.
std::string_view locale_name() {
  for (char const* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    char const* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe)
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

std::string find_encoding(std::string_view name) {
  // The host may run in another locale than its user's, so neither setlocale's
  // present value nor a global change of it will do.
  if (locale_ptr const user{newlocale(LC_CTYPE_MASK, "", nullptr)}; user) {
    std::string_view const codeset = nl_langinfo_l(CODESET, user.get());
    return codeset == "ANSI_X3.4-1968" ? "UTF-8" : std::string(codeset);
  }
  // A locale that is not generated here still says which encoding it means.
  auto const dot = name.find('.');
  if (dot == std::string_view::npos) return "UTF-8";
  return std::string(name.substr(dot + 1, name.find('@') - dot - 1));
}

// Asked anew only when the environment names another locale: the C library
// takes long to open one, and keeps something of each.
std::string const& system_encoding() {
  static std::string known_name;
  static std::string encoding;
  if (std::string_view const name = locale_name(); encoding.empty() || name != known_name) {
    known_name = name;
    encoding = find_encoding(name);
  }
  return encoding;
}

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

  // Converts bytes to bytes. One source unit that has no counterpart (`unit`
  // bytes long) is replaced by `replacement`.
  std::string convert(std::string source, std::size_t unit, std::string_view replacement) {
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
      std::size_t const skipped = std::min(unit, in_left);
      in += skipped;
      in_left -= skipped;
      result.append(replacement);
    }
    flush(result);
    return result;
  }

 private:
  // Some code pages (1255, 1258) hold a letter back until they know whether a
  // combining mark follows it.
  void flush(std::string& result) {
    std::string held(64, '\0');
    char* out = held.data();
    std::size_t out_left = held.size();
    iconv(handle_, nullptr, nullptr, &out, &out_left);
    result.append(held.data(), out);
  }

  iconv_t handle_;
};

// ASCII is the same in the pages that the library itself uses, and most of its
// texts are no more.
template <class Text>
bool is_plain(unsigned code_page, Text text) noexcept {
  return (code_page == system || code_page == utf8 || code_page == cp1251) &&
         std::ranges::all_of(text, [](auto c) { return c >= 0 && c < 0x80; });
}

}  // namespace

std::wstring to_wide(unsigned code_page, std::string_view text) {
  if (text.empty()) return {};
  if (is_plain(code_page, text)) return {text.begin(), text.end()};
  Tconverter converter("WCHAR_T", encoding_name(code_page));
  if (!converter.valid()) return {};
  wchar_t const unknown = L'\uFFFD';
  std::string const bytes = converter.convert(
      std::string(text), 1, {reinterpret_cast<char const*>(&unknown), sizeof unknown});
  std::wstring result(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(result.data(), bytes.data(), result.size() * sizeof(wchar_t));
  return result;
}

std::string to_multi_byte(unsigned code_page, std::wstring_view text) {
  if (text.empty()) return {};
  if (is_plain(code_page, text)) return {text.begin(), text.end()};
  Tconverter converter(encoding_name(code_page), "WCHAR_T");
  if (!converter.valid()) return {};
  std::string source(text.size() * sizeof(wchar_t), '\0');
  std::memcpy(source.data(), text.data(), source.size());
  return converter.convert(std::move(source), sizeof(wchar_t), "?");
}

}  // namespace zu::code_page
