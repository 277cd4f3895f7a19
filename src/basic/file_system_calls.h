// What file_system asks of the platform beside its own calls.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zu::file_system::calls {

enum class outcome { done, other_volume, failed };

// Within a volume; an existing file is replaced. The systems differ in what else
// they let be replaced.
outcome rename(std::filesystem::path const& from, std::filesystem::path const& to);

// Over an existing file, which a failure may leave half-written.
bool copy(std::filesystem::path const& from, std::filesystem::path const& to);

// The same text for all names that are one file's to the system.
std::wstring fold_case(std::wstring_view name);

}  // namespace zu::file_system::calls
