#include "basic/file_system.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "basic/file_system_calls.h"
#include "basic/path.h"

namespace zu::file_system {
namespace {

constexpr mode_t writable = S_IWUSR | S_IWGRP | S_IWOTH;

bool get_status(std::filesystem::path const& name, struct stat& status) {
  return stat(name.c_str(), &status) == 0;
}

}  // namespace

std::optional<attributes> get_attributes(std::wstring_view name) {
  struct stat status {};
  if (!get_status(path::to_native(name), status)) return std::nullopt;
  attributes result;
  result.is_folder = S_ISDIR(status.st_mode);
  result.is_read_only = (status.st_mode & writable) == 0;
  auto const file_name = path::file_name_of(name);
  result.is_hidden = file_name.starts_with(L'.') && file_name != L"." && file_name != L"..";
  if (!result.is_folder) result.size = static_cast<std::uint64_t>(status.st_size);
  using std::chrono::microseconds;
  result.modified += std::chrono::seconds(status.st_mtim.tv_sec);
  result.modified += microseconds(status.st_mtim.tv_nsec / 1000);
  return result;
}

bool set_read_only(std::wstring_view name, bool read_only) {
  auto const native = path::to_native(name);
  struct stat status {};
  if (!get_status(native, status)) return false;
  mode_t const mode = status.st_mode & 07777U;
  return chmod(native.c_str(), read_only ? mode & ~writable : mode | S_IWUSR) == 0;
}

bool remove_file(std::wstring_view name) { return unlink(path::to_native(name).c_str()) == 0; }

std::optional<std::wstring> make_temporary_file(std::wstring_view folder) {
  std::string name = path::to_native(path::join(folder, L"zuXXXXXX"));
  int const file = mkstemp(name.data());
  if (file == -1) return std::nullopt;
  close(file);
  return path::from_native(name);
}

namespace calls {

outcome rename(std::filesystem::path const& from, std::filesystem::path const& to) {
  if (std::rename(from.c_str(), to.c_str()) == 0) return outcome::done;
  return errno == EXDEV ? outcome::other_volume : outcome::failed;
}

bool copy(std::filesystem::path const& from, std::filesystem::path const& to) {
  std::error_code error;
  return std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing,
                                    error);
}

std::wstring fold_case(std::wstring_view name) { return std::wstring(name); }

}  // namespace calls
}  // namespace zu::file_system
