// Paths as text: their parts, and their form for the system. No function here checks
// whether a path exists.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zu::path {

// Whether the character separates folders in a path of this platform.
bool is_separator(wchar_t c) noexcept;

// The parts are views into `path`. folder_of and file_name_of together are the path;
// stem_of and extension_of together are the file name.

// Ends with the last separator; empty without a separator.
std::wstring_view folder_of(std::wstring_view path) noexcept;
// Begins after the last separator.
std::wstring_view file_name_of(std::wstring_view path) noexcept;
// The file name up to its last point, and the rest, which begins with that point.
std::wstring_view stem_of(std::wstring_view path) noexcept;
std::wstring_view extension_of(std::wstring_view path) noexcept;

// `path` with the extension of its file name, if any, replaced by `extension`
// (given with its point).
std::wstring replace_extension(std::wstring_view path, std::wstring_view extension);

// The path of `name` inside `folder`. It is `name` itself where the folder is empty, and
// where `name` begins with a root or, on Windows, with a drive.
std::wstring join(std::wstring_view folder, std::wstring_view name);

// Whether the path means the same from every current folder.
bool is_absolute(std::wstring_view path) noexcept;

// The absolute path for `path` in the current folder; empty for an empty path and where
// the system does not tell the current folder. Only Windows removes "..": on Linux
// "link/.." may be another folder than ".".
std::wstring make_full(std::wstring_view path);

// The path in the form for the system. Empty for a path with a zero character or a
// character that is not in the system's encoding: a name with "?" in place of a letter
// would be another file.
std::filesystem::path to_native(std::wstring_view path);
std::wstring from_native(std::filesystem::path const& path);

}  // namespace zu::path
