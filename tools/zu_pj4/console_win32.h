// A Windows console as streams of UTF-8. The C run-time's own streams pass bytes in the
// console's code page, and many versions of Windows give zeros for the letters beyond
// ASCII that are typed while that page is UTF-8.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <span>
#include <streambuf>
#include <string>

namespace terminal {

class Tconsole_reader : public std::streambuf {
 public:
  // The handle stays its owner's.
  explicit Tconsole_reader(void* console) : console_(console) {}

  // What is left of the last line, or else the next line; 0 at the end.
  std::size_t read_some(std::span<char> buffer);
  bool has_rest() const { return gptr() < egptr(); }

 protected:
  int_type underflow() override;

 private:
  void* console_;
  // The first half of a letter that takes two units, until the second is read.
  std::wstring half_;
  std::string text_;
};

class Tconsole_writer : public std::streambuf {
 public:
  explicit Tconsole_writer(void* console) : console_(console) {}

 protected:
  int_type overflow(int_type letter) override;
  std::streamsize xsputn(char const* text, std::streamsize size) override;
  int sync() override;

 private:
  bool write_letters(std::size_t size);

  void* console_;
  std::string text_;
};

// Null where the stream is no console.
std::unique_ptr<Tconsole_reader> open_console_reader(std::FILE* stream);
std::unique_ptr<Tconsole_writer> open_console_writer(std::FILE* stream);

}  // namespace terminal
