// System calls that file_system.cpp makes on each platform in its own way.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zu::file_system::calls {

enum class outcome { done, other_volume, failed };

// Within a volume; an existing file is replaced. Whether a folder or a read-only file
// is replaced depends on the system.
outcome rename(std::filesystem::path const& from, std::filesystem::path const& to);

// Overwrites an existing file; a failure may leave it half-written.
bool copy(std::filesystem::path const& from, std::filesystem::path const& to);

// The same text for names that differ only in what the system ignores.
std::wstring fold_case(std::wstring_view name);

}  // namespace zu::file_system::calls
