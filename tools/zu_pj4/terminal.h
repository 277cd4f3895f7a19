// The shell that runs the program: its arguments, its streams and its encoding. That is
// the encoding of the user's locale; on Windows it is UTF-8, because arguments and file
// names there have letters of any script.
#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace terminal {

// The arguments after the program's name.
std::vector<std::string> arguments(int argc, char** argv);

// Makes standard input and output pass bytes as they are, and a console read and show
// texts in the encoding until the program ends.
void prepare_streams();

// Reads what the stream has now, and waits only for the first byte; 0 is the end of the
// stream. Does not use the stream's buffer. Throws std::runtime_error when it fails.
std::size_t read_some(std::FILE* stream, std::span<char> buffer);
// Whether the next read does not have to wait for the writer of the stream.
bool is_ready(std::FILE* stream);

std::wstring to_wide(std::string_view text);
std::string from_wide(std::wstring_view text);
// A file's name.
std::filesystem::path to_path(std::string const& name);

// Convert between the encodings of the shell and of the library, which uses the system's
// code page. Throws std::runtime_error for a text that the code page cannot spell.
std::string to_library(std::string const& text);
std::string from_library(std::string const& text);

}  // namespace terminal
