#include "terminal.h"
#include "text/strconv.h"

namespace terminal {

std::vector<std::string> arguments(int argc, char** argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void prepare_streams() {}

std::wstring to_wide(std::string_view text) { return zu::strconv::from_system(text); }
std::string from_wide(std::wstring_view text) { return zu::strconv::to_system(text); }
std::filesystem::path to_path(std::string const& name) { return name; }

// The library's encoding is this one.
std::string to_library(std::string const& text) { return text; }
std::string from_library(std::string const& text) { return text; }

}  // namespace terminal
