#include "console_win32.h"

#include <io.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>
#include <string_view>

#include "text/strconv.h"

namespace terminal {
namespace {

// The system refuses more than 64 KB at a time.
constexpr std::size_t most_letters = 8192;

// Null where it is none.
HANDLE console_of(std::FILE* stream) {
  auto* const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) != 0 ? handle : nullptr;
}

constexpr bool goes_on(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// How many bytes the letter has that begins with this one.
constexpr std::size_t letter_size(char first) {
  auto const byte = static_cast<unsigned char>(first);
  if (byte < 0xC0U) return 1;
  if (byte < 0xE0U) return 2;
  return byte < 0xF0U ? 3 : 4;
}

// The size without the beginning of a letter at the end.
std::size_t size_of_whole_letters(std::string_view text) {
  std::size_t last = text.size();
  while (last > 0 && text.size() - last < 3 && goes_on(text[last - 1])) --last;
  if (last == 0) return text.size();
  --last;
  return letter_size(text[last]) > text.size() - last ? last : text.size();
}

}  // namespace

std::streambuf::int_type Tconsole_reader::underflow() {
  constexpr wchar_t end_of_input = 0x1A;  // Ctrl+Z
  std::array<wchar_t, most_letters> letters{};
  do {
    std::ranges::copy(half_, letters.begin());
    DWORD got = 0;
    if (ReadConsoleW(console_, letters.data() + half_.size(),
                     static_cast<DWORD>(letters.size() - half_.size()), &got, nullptr) == 0)
      throw std::runtime_error("cannot read");
    if (got == 0 || letters[half_.size()] == end_of_input) return traits_type::eof();
    std::wstring_view read(letters.data(), half_.size() + got);
    half_.clear();
    if (IS_HIGH_SURROGATE(read.back())) {
      half_ = read.back();
      read.remove_suffix(1);
    }
    text_ = zu::strconv::to_utf8(read);
    // The key Return gives two characters.
    std::erase(text_, '\r');
  } while (text_.empty());
  setg(text_.data(), text_.data(), text_.data() + text_.size());
  return traits_type::to_int_type(text_.front());
}

std::size_t Tconsole_reader::read_some(std::span<char> buffer) {
  if (!has_rest() && underflow() == traits_type::eof()) return 0;
  auto const size = std::min(buffer.size(), static_cast<std::size_t>(egptr() - gptr()));
  return static_cast<std::size_t>(sgetn(buffer.data(), static_cast<std::streamsize>(size)));
}

std::streambuf::int_type Tconsole_writer::overflow(int_type letter) {
  if (traits_type::eq_int_type(letter, traits_type::eof())) return traits_type::not_eof(letter);
  char const one = traits_type::to_char_type(letter);
  return xsputn(&one, 1) == 1 ? letter : traits_type::eof();
}

std::streamsize Tconsole_writer::xsputn(char const* text, std::streamsize size) {
  text_.append(text, static_cast<std::size_t>(size));
  return text_.size() < most_letters || sync() == 0 ? size : 0;
}

int Tconsole_writer::sync() { return write_letters(size_of_whole_letters(text_)) ? 0 : -1; }

bool Tconsole_writer::write_letters(std::size_t size) {
  std::wstring const letters = zu::strconv::from_utf8(std::string_view(text_).substr(0, size));
  text_.erase(0, size);
  std::wstring_view rest = letters;
  while (!rest.empty()) {
    DWORD written = 0;
    auto const count = static_cast<DWORD>(std::min(rest.size(), most_letters));
    if (WriteConsoleW(console_, rest.data(), count, &written, nullptr) == 0 || written == 0)
      return false;
    rest.remove_prefix(written);
  }
  return true;
}

std::unique_ptr<Tconsole_reader> open_console_reader(std::FILE* stream) {
  HANDLE const console = console_of(stream);
  return console == nullptr ? nullptr : std::make_unique<Tconsole_reader>(console);
}

std::unique_ptr<Tconsole_writer> open_console_writer(std::FILE* stream) {
  HANDLE const console = console_of(stream);
  return console == nullptr ? nullptr : std::make_unique<Tconsole_writer>(console);
}

}  // namespace terminal
