#include "terminal.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Needs the system's header first.
#include <shellapi.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "console_win32.h"
#include "text/strconv.h"

namespace terminal {
namespace {

struct local_deleter {
  void operator()(LPWSTR* list) const noexcept { LocalFree(list); }
};

// The program's streams on a console, until the program ends.
class Tconsole_streams {
 public:
  Tconsole_streams()
      : input_(open_console_reader(stdin)),
        output_(open_console_writer(stdout)),
        errors_(open_console_writer(stderr)) {
    if (input_) std::cin.rdbuf(input_.get());
    if (output_) std::cout.rdbuf(output_.get());
    if (errors_) std::cerr.rdbuf(errors_.get());
  }
  ~Tconsole_streams() {
    std::cout.flush();
    std::cin.rdbuf(own_input_);
    std::cout.rdbuf(own_output_);
    std::cerr.rdbuf(own_errors_);
  }
  Tconsole_streams(Tconsole_streams const&) = delete;
  Tconsole_streams& operator=(Tconsole_streams const&) = delete;

  // Null where standard input is no console.
  Tconsole_reader* input() { return input_.get(); }

 private:
  std::streambuf* own_input_ = std::cin.rdbuf();
  std::streambuf* own_output_ = std::cout.rdbuf();
  std::streambuf* own_errors_ = std::cerr.rdbuf();
  std::unique_ptr<Tconsole_reader> input_;
  std::unique_ptr<Tconsole_writer> output_;
  std::unique_ptr<Tconsole_writer> errors_;
};

Tconsole_streams& console_streams() {
  static Tconsole_streams streams;
  return streams;
}

// Null where the stream is another than standard input, or no console.
Tconsole_reader* console_of(std::FILE* stream) {
  return stream == stdin ? console_streams().input() : nullptr;
}

}  // namespace

// The arguments of main are in the system's code page, so this asks Windows.
std::vector<std::string> arguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  std::unique_ptr<LPWSTR, local_deleter> const list(CommandLineToArgvW(GetCommandLineW(), &count));
  if (!list) throw std::runtime_error("cannot read the command line");
  std::vector<std::string> texts;
  for (int i = 1; i < count; ++i) texts.push_back(from_wide(list.get()[i]));
  return texts;
}

void prepare_streams() {
  console_streams();
  for (std::FILE* const stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
}

std::size_t read_some(std::FILE* stream, std::span<char> buffer) {
  if (Tconsole_reader* const console = console_of(stream)) return console->read_some(buffer);
  int const got = _read(_fileno(stream), buffer.data(), static_cast<unsigned>(buffer.size()));
  if (got < 0) throw std::runtime_error("cannot read");
  return static_cast<std::size_t>(got);
}

bool is_ready(std::FILE* stream) {
  if (Tconsole_reader const* const console = console_of(stream)) return console->has_rest();
  auto* const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  if (GetFileType(handle) == FILE_TYPE_DISK) return true;
  DWORD there = 0;
  // The read of a closed pipe returns at once; the read of a console waits for the user.
  if (PeekNamedPipe(handle, nullptr, 0, nullptr, &there, nullptr) == 0)
    return GetFileType(handle) == FILE_TYPE_PIPE;
  return there > 0;
}

std::wstring to_wide(std::string_view text) { return zu::strconv::from_utf8(text); }
std::string from_wide(std::wstring_view text) { return zu::strconv::to_utf8(text); }
std::filesystem::path to_path(std::string const& name) { return to_wide(name); }

std::string to_library(std::string const& text) {
  std::wstring const wide = to_wide(text);
  if (!zu::strconv::has_system_spelling(wide))
    throw std::runtime_error("the system's code page cannot spell: " + text);
  return zu::strconv::to_system(wide);
}

std::string from_library(std::string const& text) {
  return from_wide(zu::strconv::from_system(text));
}

}  // namespace terminal
