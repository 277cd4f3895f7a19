// Files by wide name. The one place that knows how the platform names, opens
// and positions a file.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zu::file {

struct closer {
  void operator()(std::FILE* stream) const noexcept { (void)std::fclose(stream); }
};
// Owns a stream of the C run-time and closes it.
using stream = std::unique_ptr<std::FILE, closer>;

// Opens with a mode of fopen ("rb", "rb+", "wb+"). Null when the file cannot
// be opened, is a folder, or has a name that the system's encoding cannot
// spell: "?" in place of a letter would be another file.
stream open(std::wstring_view name, std::string_view mode);

// Moves to an offset from the start; offsets beyond 4 GiB are fine.
bool seek(std::FILE* handle, std::uint64_t offset) noexcept;

// Size of the open file in bytes; 0 when it cannot be told.
std::uint64_t size(std::FILE* handle) noexcept;

// The whole content, or empty on any failure. A file that another process
// holds is tried 20 times, a millisecond apart, where the system knows such
// holding.
std::optional<std::string> read_whole(std::wstring_view name);

// Replaces the content, with the same retry. False when the file cannot be
// opened or not all of it could be written.
bool write_whole(std::wstring_view name, std::string_view content);

bool exists(std::wstring_view name);

// Whether the character separates folders in a path of this platform.
bool is_separator(wchar_t c) noexcept;

// `name` with the extension of its last component, if any, replaced by
// `extension` (given with its point).
std::wstring replace_extension(std::wstring_view name, std::wstring_view extension);

// The leading part of `path` up to and with its last separator; empty when it
// has none.
std::wstring_view folder_of(std::wstring_view path) noexcept;

}  // namespace zu::file
