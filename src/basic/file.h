// Files by wide name. The one place that knows how the platform names, opens
// and positions a file.
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

// Opens with a mode of fopen ("rb", "rb+", "wb+"). Null when the file cannot
// be opened, is a folder, or has a name that the system's encoding cannot
// spell: "?" in place of a letter would be another file.
stream open(std::wstring_view name, std::string_view mode);

// Moves to an offset from the start; offsets beyond 4 GiB are fine.
bool seek(std::FILE* handle, std::uint64_t offset) noexcept;

// Size of the open file in bytes; 0 when it cannot be told.
std::uint64_t size(std::FILE* handle) noexcept;

// Text ends at the first zero byte.
enum class content_kind { bytes, text };

// What is read as a whole is a definition or a table's source; a file beyond
// this size, in bytes, is something else and must not fill the memory.
inline constexpr std::size_t size_limit = std::size_t{32} << 20U;

// The whole content, or empty on any failure and beyond the limit. A file that
// another process holds is tried 20 times, a millisecond apart, where the system
// knows such holding.
std::optional<std::string> read_whole(std::wstring_view name,
                                      content_kind kind = content_kind::bytes);

// Replaces the content, with the same retry. False when the file cannot be opened
// for writing or not all of it could be written.
//
// The content is written beside the file, under a name of its own that begins with
// "zu", and takes the file's place when all of it is there: who reads the file
// finds the old content or the new one, also after a full disk or the program's
// death, which may leave the other file behind. A file that cannot be replaced so
// is overwritten: one with several names, a device, another user's, or one in a
// folder that takes no new file.
bool write_whole(std::wstring_view name, std::string_view content);

bool exists(std::wstring_view name);

}  // namespace zu::file
