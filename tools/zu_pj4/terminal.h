// The shell that the program is run from: its arguments, its streams, and the
// encoding of texts that pass there. That is the one of the user's locale, and
// UTF-8 on Windows, where arguments and file names hold letters of any script.
#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace terminal {

// The arguments behind the program's name.
std::vector<std::string> arguments(int argc, char** argv);

// Makes standard input and output pass bytes as they are, and a console read and show
// texts in the encoding until the program ends.
void prepare_streams();

// Reads what the stream has by now, at least a byte where it does not end there: 0
// is the end. Its own buffer is passed by. std::runtime_error where it fails.
std::size_t read_some(std::FILE* stream, std::span<char> buffer);
// Whether the next read would not wait for whoever writes the stream.
bool is_ready(std::FILE* stream);

std::wstring to_wide(std::string_view text);
std::string from_wide(std::wstring_view text);
// A file's name.
std::filesystem::path to_path(std::string const& name);

// Between the shell and the library, whose texts are in the system's code page.
// A text that cannot be spelled there is a std::runtime_error.
std::string to_library(std::string const& text);
std::string from_library(std::string const& text);

}  // namespace terminal
