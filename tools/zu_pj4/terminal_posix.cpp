#include "terminal.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

#include "text/strconv.h"

namespace terminal {

std::vector<std::string> arguments(int argc, char** argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void prepare_streams() {}

std::size_t read_some(std::FILE* stream, std::span<char> buffer) {
  for (;;) {
    ssize_t const got = read(fileno(stream), buffer.data(), buffer.size());
    if (got >= 0) return static_cast<std::size_t>(got);
    if (errno != EINTR) throw std::runtime_error("cannot read");
  }
}

bool is_ready(std::FILE* stream) {
  pollfd input{fileno(stream), POLLIN, 0};
  return poll(&input, 1, 0) != 0;
}

std::wstring to_wide(std::string_view text) { return zu::strconv::from_system(text); }
std::string from_wide(std::wstring_view text) { return zu::strconv::to_system(text); }
std::filesystem::path to_path(std::string const& name) { return name; }

// The library has the same encoding.
std::string to_library(std::string const& text) { return text; }
std::string from_library(std::string const& text) { return text; }

}  // namespace terminal
