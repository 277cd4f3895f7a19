// Files by wide name: opening, reading and writing.
#pragma once

#include <cstddef>
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

// Opens with a mode of fopen ("rb", "rb+", "wb+"). Null when the file cannot be opened,
// is a folder, or has a name that the system's encoding cannot spell: a name with "?"
// in place of a letter would be another file.
stream open(std::wstring_view name, std::string_view mode);

// Moves to an offset from the start; offsets beyond 4 GiB are fine.
bool seek(std::FILE* handle, std::uint64_t offset) noexcept;

// Size of the open file in bytes; 0 when the system does not tell it.
std::uint64_t size(std::FILE* handle) noexcept;

// Text ends at the first zero byte.
enum class content_kind { bytes, text };

// In bytes. The files that are read as a whole are definitions and sources of tables;
// a larger file is something else and must not fill the memory.
inline constexpr std::size_t size_limit = std::size_t{32} << 20U;

// The whole content; empty on any failure and for a file beyond the limit. On Windows,
// where another process can lock a file, it tries 20 times, a millisecond apart.
std::optional<std::string> read_whole(std::wstring_view name,
                                      content_kind kind = content_kind::bytes);

// Replaces the content, with the same retry. False when the file cannot be opened for
// writing or not all of the content could be written.
//
// The content goes into a new file in the same folder, with a name that begins with
// "zu", and that file replaces the old one when it is complete. So a reader finds the
// old content or the new one, also after a full disk or a crash; a crash may leave the
// new file in the folder. A file that cannot be replaced in this way is overwritten: a
// file with several names, a device, another user's file, or a file in a folder where
// no file can be made.
bool write_whole(std::wstring_view name, std::string_view content);

bool exists(std::wstring_view name);

}  // namespace zu::file
