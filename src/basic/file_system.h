// Files and folders by wide name: their attributes, copying, moving, deleting and
// finding. Only a lack of memory throws; every other failure is false or an empty
// result. A name that the system's encoding cannot spell is the name of no file.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zu::file_system {

struct attributes {
  bool is_folder = false;
  bool is_read_only = false;  // on Linux: nobody has the permission to write it
  bool is_hidden = false;     // on Linux: its name begins with a point
  std::uint64_t size = 0;     // in bytes; 0 for a folder
  // UTC. Every time that a file can have fits into microseconds.
  std::chrono::sys_time<std::chrono::microseconds> modified;
};

// Empty when there is no such file or folder.
std::optional<attributes> get_attributes(std::wstring_view name);
bool is_folder(std::wstring_view name);

// A text that is the same for all names of one file, whether the file exists or not.
// It is for comparing only, not a name to open the file with.
std::wstring identity(std::wstring_view name);

// On Linux read-only means that nobody may write; without it the owner may.
bool set_read_only(std::wstring_view name, bool read_only);

// Copies a file. An existing file is replaced when the copy is complete, so a failure
// does not change it. A read-only file is not replaced.
bool copy_file(std::wstring_view from, std::wstring_view to);

// Renames a file or folder; a file can also move to another volume. A file replaces an
// existing file as in copy_file; an existing folder is never replaced.
bool move(std::wstring_view from, std::wstring_view to);

// Of a folder it is false.
bool remove_file(std::wstring_view name);
// Makes a folder and the folders above it; true when it is there already.
bool make_folders(std::wstring_view name);

// The names of the files in `folder` that match `pattern`, without the folder, sorted
// by their characters. In the pattern "*" is any text and "?" any character; Windows
// ignores the case of letters. Empty when the folder cannot be read. An empty `folder`
// is the current one.
std::optional<std::vector<std::wstring>> find(std::wstring_view folder, std::wstring_view pattern);

// Makes an empty file with a new name in `folder` (empty: the current one) and returns
// its path. The caller removes the file.
std::optional<std::wstring> make_temporary_file(std::wstring_view folder);

}  // namespace zu::file_system
