#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "basic/file.h"
#include "basic/file_content.h"
#include "basic/path.h"

namespace zu::file {
namespace {

bool is_folder(std::FILE* handle) noexcept {
  struct stat info {};
  return fstat(fileno(handle), &info) == 0 && S_ISDIR(info.st_mode);
}

bool write_all(stream file, std::string_view content) noexcept {
  // A full disk may give its error only when the buffer is written. The content is on
  // the disk before the file gets its name, so a power cut leaves the old content or
  // the new one. A pipe or a device cannot be synchronised: EINVAL.
  bool const written =
      std::fwrite(content.data(), 1, content.size(), file.get()) == content.size() &&
      std::fflush(file.get()) == 0 && (fsync(fileno(file.get())) == 0 || errno == EINVAL);
  return std::fclose(file.release()) == 0 && written;
}

// Opens a file of a new name in the folder.
stream make_part(std::filesystem::path const& folder, std::string& name) {
  // A name that exists belongs to another thread, or to a process that crashed.
  for (int i = 0; i < 1000; ++i) {
    name = folder / ("zu" + std::to_string(getpid()) + "." + std::to_string(i));
    stream part(std::fopen(name.c_str(), "wbxe"));
    if (part || errno != EEXIST) return part;
  }
  return nullptr;
}

// Whether only the content changes when a new file replaces it. A file that another
// process has just replaced has no name left: its link count is 0.
bool is_replaceable(std::filesystem::path const& name, struct stat const& status) noexcept {
  return S_ISREG(status.st_mode) && status.st_nlink <= 1 && status.st_uid == geteuid() &&
         access(name.c_str(), W_OK) == 0 &&
         getxattr(name.c_str(), "system.posix_acl_access", nullptr, 0) <= 0;
}

enum class outcome { done, failed, impossible };

// On a full disk an overwritten file would have neither the old nor the new content.
outcome outcome_of_error() noexcept {
  return errno == ENOSPC || errno == EDQUOT ? outcome::failed : outcome::impossible;
}

// `old` has the owner and the permissions of the old file, if there is one.
outcome replace(std::filesystem::path const& name, struct stat const* old,
                std::string_view content) {
  std::string part_name;
  stream part = make_part(name.parent_path(), part_name);
  if (!part) return outcome_of_error();
  int const number = fileno(part.get());
  outcome result = outcome::failed;
  if (old != nullptr &&
      (fchown(number, old->st_uid, old->st_gid) != 0 || fchmod(number, old->st_mode & 07777U) != 0))
    result = outcome::impossible;
  else if (write_all(std::move(part), content))
    result = std::rename(part_name.c_str(), name.c_str()) == 0 ? outcome::done : outcome_of_error();
  if (result != outcome::done) unlink(part_name.c_str());
  return result;
}

}  // namespace

stream open(std::wstring_view name, std::string_view mode) {
  stream result(std::fopen(path::to_native(name).c_str(), std::string(mode).append("e").c_str()));
  if (result && is_folder(result.get())) result.reset();
  return result;
}

bool seek(std::FILE* handle, std::uint64_t offset) noexcept {
  return fseeko(handle, static_cast<off_t>(offset), SEEK_SET) == 0;
}

std::uint64_t size(std::FILE* handle) noexcept {
  struct stat info {};
  if (fstat(fileno(handle), &info) != 0 || info.st_size < 0) return 0;
  return static_cast<std::uint64_t>(info.st_size);
}

std::optional<std::string> read_whole(std::wstring_view name, content_kind kind) {
  stream const file = open(name, "rb");
  if (!file) return std::nullopt;
  auto const read = [&file](std::span<char> block) -> std::optional<std::size_t> {
    std::size_t const got = std::fread(block.data(), 1, block.size(), file.get());
    if (got < block.size() && std::ferror(file.get()) != 0) return std::nullopt;
    return got;
  };
  return collect(read, kind);
}

bool write_whole(std::wstring_view name, std::string_view content) {
  std::string const native = path::to_native(name);
  if (native.empty()) return false;
  struct stat old {};
  outcome result = outcome::impossible;
  if (stat(native.c_str(), &old) == 0) {
    std::error_code error;
    // The file behind a link is replaced, not the link.
    auto const whole = std::filesystem::canonical(native, error);
    if (!error && is_replaceable(whole, old)) result = replace(whole, &old, content);
  } else if (lstat(native.c_str(), &old) != 0 && errno == ENOENT) {
    result = replace(native, nullptr, content);
  }
  if (result != outcome::impossible) return result == outcome::done;
  stream file = open(name, "wb");
  return file && write_all(std::move(file), content);
}

bool exists(std::wstring_view name) {
  struct stat info {};
  return stat(path::to_native(name).c_str(), &info) == 0;
}

}  // namespace zu::file
