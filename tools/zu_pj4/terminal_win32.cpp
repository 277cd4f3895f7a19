#include "terminal.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Needs the system's header first.
#include <shellapi.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

#include "text/strconv.h"

namespace terminal {
namespace {

struct local_deleter {
  void operator()(LPWSTR* list) const noexcept { LocalFree(list); }
};

// Restores the console's code pages: the console stays after the program has ended.
class Tconsole_pages {
 public:
  Tconsole_pages() : input_(GetConsoleCP()), output_(GetConsoleOutputCP()) {
    SetConsoleCP(CP_UTF8);
    SetConsoleOutputCP(CP_UTF8);
  }
  ~Tconsole_pages() {
    SetConsoleCP(input_);
    SetConsoleOutputCP(output_);
  }
  Tconsole_pages(Tconsole_pages const&) = delete;
  Tconsole_pages& operator=(Tconsole_pages const&) = delete;

 private:
  UINT input_;
  UINT output_;
};

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
  static Tconsole_pages const pages;
  for (std::FILE* const stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
}

std::size_t read_some(std::FILE* stream, std::span<char> buffer) {
  int const got = _read(_fileno(stream), buffer.data(), static_cast<unsigned>(buffer.size()));
  if (got < 0) throw std::runtime_error("cannot read");
  return static_cast<std::size_t>(got);
}

bool is_ready(std::FILE* stream) {
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
