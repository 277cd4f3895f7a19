// Paths as text: their parts, and the platform's spelling of them. Nothing here
// looks whether a path leads to something.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zu::path {

// Whether the character separates folders in a path of this platform.
bool is_separator(wchar_t c) noexcept;

// The parts are views into `path` and make it up: folder_of + file_name_of, and
// stem_of + extension_of the file name.

// Up to and with the last separator; empty without one.
std::wstring_view folder_of(std::wstring_view path) noexcept;
// Behind the last separator.
std::wstring_view file_name_of(std::wstring_view path) noexcept;
// The file name up to its last point, and from that point on.
std::wstring_view stem_of(std::wstring_view path) noexcept;
std::wstring_view extension_of(std::wstring_view path) noexcept;

// `path` with the extension of its file name, if any, replaced by `extension`
// (given with its point).
std::wstring replace_extension(std::wstring_view path, std::wstring_view extension);

// What `name` means inside `folder`: `name` itself where there is no folder, and
// when it begins at a root or, on Windows, with a drive.
std::wstring join(std::wstring_view folder, std::wstring_view name);

// Whether the path means the same from every current folder.
bool is_absolute(std::wstring_view path) noexcept;

// The absolute path of what `path` means in the current folder; empty for an
// empty path and where the current folder cannot be told. ".." is folded on
// Windows alone, as that system does: elsewhere "link/.." need not be ".".
std::wstring make_full(std::wstring_view path);

// The path as the system takes it. Empty for a path with a zero character, and
// for one that the system's encoding cannot spell: "?" in place of a letter
// would be another file.
std::filesystem::path to_native(std::wstring_view path);
std::wstring from_native(std::filesystem::path const& path);

}  // namespace zu::path
