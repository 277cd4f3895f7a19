#include "basic/file_system.h"

#include <windows.h>

#include <array>

#include "basic/file_system_calls.h"
#include "basic/path.h"

namespace zu::file_system {
namespace {

std::uint64_t join_halves(DWORD high, DWORD low) noexcept {
  return (std::uint64_t{high} << 32U) | low;
}

}  // namespace

std::optional<attributes> get_attributes(std::wstring_view name) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(path::to_native(name).c_str(), GetFileExInfoStandard, &data) == 0)
    return std::nullopt;
  attributes result;
  result.is_folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  result.is_read_only = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  result.is_hidden = (data.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
  if (!result.is_folder) result.size = join_halves(data.nFileSizeHigh, data.nFileSizeLow);
  // Windows counts tenths of a microsecond since the year 1601.
  auto const since_1601 =
      join_halves(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime) / 10;
  using namespace std::chrono_literals;
  result.modified = std::chrono::sys_days{1601y / 1 / 1};
  result.modified += std::chrono::microseconds(since_1601);
  return result;
}

bool set_read_only(std::wstring_view name, bool read_only) {
  auto const native = path::to_native(name);
  DWORD const before = GetFileAttributesW(native.c_str());
  if (before == INVALID_FILE_ATTRIBUTES) return false;
  DWORD const bit = FILE_ATTRIBUTE_READONLY;
  return SetFileAttributesW(native.c_str(), read_only ? before | bit : before & ~bit) != 0;
}

bool remove_file(std::wstring_view name) { return DeleteFileW(path::to_native(name).c_str()) != 0; }

std::optional<std::wstring> make_temporary_file(std::wstring_view folder) {
  auto const native = folder.empty() ? std::filesystem::path(L".") : path::to_native(folder);
  // Takes its memory before the file exists.
  std::wstring name(MAX_PATH, L'\0');
  if (GetTempFileNameW(native.c_str(), L"zu", 0, name.data()) == 0) return std::nullopt;
  name.resize(name.find(L'\0'));
  return name;
}

namespace calls {

outcome rename(std::filesystem::path const& from, std::filesystem::path const& to) {
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0) return outcome::done;
  return GetLastError() == ERROR_NOT_SAME_DEVICE ? outcome::other_volume : outcome::failed;
}

bool copy(std::filesystem::path const& from, std::filesystem::path const& to) {
  return CopyFileW(from.c_str(), to.c_str(), FALSE) != 0;
}

std::wstring fold_case(std::wstring_view name) {
  std::wstring folded(name);
  CharUpperBuffW(folded.data(), static_cast<DWORD>(folded.size()));
  return folded;
}

}  // namespace calls
}  // namespace zu::file_system
