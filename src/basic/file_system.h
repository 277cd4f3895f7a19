// Files and folders by wide name: what they are, and what is done with them as
// a whole. Nothing throws beyond an allocation failure: false or an empty result
// says that it was not done. A name that the system cannot spell names nothing.
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
  bool is_read_only = false;  // off Windows: nobody may write it
  bool is_hidden = false;     // off Windows: its name begins with a point
  std::uint64_t size = 0;     // in bytes; 0 for a folder
  // UTC. Microseconds hold every time that a file can bear.
  std::chrono::sys_time<std::chrono::microseconds> modified;
};

// Empty when there is no such file or folder.
std::optional<attributes> get_attributes(std::wstring_view name);
bool is_folder(std::wstring_view name);

// The same text for all names of one file, whether it is there or not; not a name
// to open it by.
std::wstring identity(std::wstring_view name);

// Off Windows, lets nobody write, or the owner at least.
bool set_read_only(std::wstring_view name, bool read_only);

// Copies a file. One that exists is replaced, unless it is read-only, when all of
// the copy is there: a failure leaves it as it was.
bool copy_file(std::wstring_view from, std::wstring_view to);

// Renames a file or folder; a file also onto another volume. An existing file is
// replaced by a file as copy_file does it, an existing folder never.
bool move(std::wstring_view from, std::wstring_view to);

// Of a folder it is false.
bool remove_file(std::wstring_view name);
// Makes a folder and the folders above it; true when it is there already.
bool make_folders(std::wstring_view name);

// The names, without `folder`, of the files in it that match `pattern`, sorted
// by their characters: "*" stands for any text, "?" for a character, all else
// for itself, on Windows in either case. Empty when the folder cannot be read.
// An empty `folder` is the current one.
std::optional<std::vector<std::wstring>> find(std::wstring_view folder, std::wstring_view pattern);

// Makes an empty file of a new name in `folder` (empty: the current one) and
// gives its path. The caller removes it.
std::optional<std::wstring> make_temporary_file(std::wstring_view folder);

}  // namespace zu::file_system
