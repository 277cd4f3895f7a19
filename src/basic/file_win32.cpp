#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "basic/file.h"
#include "basic/file_content.h"
#include "basic/file_system.h"
#include "basic/path.h"

namespace zu::file {
namespace {

struct handle_closer {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using handle_ptr = std::unique_ptr<HANDLE, handle_closer>;

// Another program, such as a virus scanner, may lock the file for a moment, so this
// tries again after a sharing violation. Any other error is final.
handle_ptr open_handle(std::wstring const& name, DWORD access, DWORD disposition) {
  constexpr int attempts = 20;
  for (int i = 1;; ++i) {
    HANDLE const handle = CreateFileW(name.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return handle_ptr(handle);
    if (GetLastError() != ERROR_SHARING_VIOLATION || i == attempts) return nullptr;
    Sleep(1);
  }
}

bool write_all(HANDLE file, std::string_view content) noexcept {
  while (!content.empty()) {
    DWORD written = 0;
    auto const part = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1U << 20U));
    if (WriteFile(file, content.data(), part, &written, nullptr) == 0 || written == 0) return false;
    content.remove_prefix(written);
  }
  return true;
}

bool overwrite(std::wstring const& name, std::string_view content) {
  handle_ptr const file = open_handle(name, GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS);
  return file && write_all(file.get(), content);
}

// The owner and the permissions of a file.
std::vector<std::byte> permissions_of(HANDLE file) {
  constexpr SECURITY_INFORMATION wanted =
      OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
  DWORD size = 0;
  GetKernelObjectSecurity(file, wanted, nullptr, 0, &size);
  std::vector<std::byte> permissions(size);
  if (GetKernelObjectSecurity(file, wanted, permissions.data(), size, &size) == 0) return {};
  return permissions;
}

// Whether only the content changes when a new file replaces it. Windows refuses to
// replace hidden files and system files.
bool is_replaceable(HANDLE file) noexcept {
  BY_HANDLE_FILE_INFORMATION status{};
  constexpr DWORD usual =
      FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  return GetFileType(file) == FILE_TYPE_DISK && GetFileInformationByHandle(file, &status) != 0 &&
         status.nNumberOfLinks == 1 && (status.dwFileAttributes & ~usual) == 0;
}

// The path of the file behind a link, so that the link stays. Empty when the system
// does not tell it.
std::wstring own_name(HANDLE file) {
  std::wstring name(32768, L'\0');
  DWORD const length =
      GetFinalPathNameByHandleW(file, name.data(), static_cast<DWORD>(name.size()), 0);
  name.resize(length < name.size() ? length : 0);
  return name;
}

enum class outcome { done, failed, impossible };

// A file that is deleted with its owner.
class Tpart_file {
 public:
  explicit Tpart_file(std::wstring_view folder)
      : name_(file_system::make_temporary_file(folder)),
        handle_(name_ ? open_handle(*name_, GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS)
                      : nullptr) {}
  ~Tpart_file() {
    handle_.reset();
    if (name_) DeleteFileW(name_->c_str());
  }
  Tpart_file(Tpart_file const&) = delete;
  Tpart_file& operator=(Tpart_file const&) = delete;

  HANDLE get() const noexcept { return handle_.get(); }
  // Renames the file to `name`; false when that fails. ReplaceFileW is not used: it
  // removes the old file first.
  bool take_place(std::wstring const& name) noexcept {
    handle_.reset();
    return MoveFileExW(name_->c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
  }

 private:
  std::optional<std::wstring> name_;
  handle_ptr handle_;
};

// `old` is null where there is no old file.
outcome replace(handle_ptr old, std::wstring const& name, std::string_view content) {
  Tpart_file part(path::folder_of(name));
  if (part.get() == nullptr || (old && permissions_of(old.get()) != permissions_of(part.get())))
    return outcome::impossible;
  // The content is on the disk before the file gets its name, so a power cut leaves
  // the old content or the new one.
  if (!write_all(part.get(), content) || FlushFileBuffers(part.get()) == 0) return outcome::failed;
  old.reset();
  return part.take_place(name) ? outcome::done : outcome::impossible;
}

}  // namespace

stream open(std::wstring_view name, std::string_view mode) {
  return stream(
      _wfopen(std::wstring(name).c_str(), std::wstring(mode.begin(), mode.end()).c_str()));
}

bool seek(std::FILE* handle, std::uint64_t offset) noexcept {
  return _fseeki64(handle, static_cast<long long>(offset), SEEK_SET) == 0;
}

std::uint64_t size(std::FILE* handle) noexcept {
  long long const length = _filelengthi64(_fileno(handle));
  return length < 0 ? 0 : static_cast<std::uint64_t>(length);
}

std::optional<std::string> read_whole(std::wstring_view name, content_kind kind) {
  handle_ptr const file = open_handle(std::wstring(name), GENERIC_READ, OPEN_EXISTING);
  if (!file) return std::nullopt;
  auto const read = [&file](std::span<char> block) -> std::optional<std::size_t> {
    DWORD got = 0;
    if (ReadFile(file.get(), block.data(), static_cast<DWORD>(block.size()), &got, nullptr) == 0)
      return std::nullopt;
    return got;
  };
  return collect(read, kind);
}

bool write_whole(std::wstring_view name, std::string_view content) {
  std::wstring const native = path::to_native(name).wstring();
  outcome result = outcome::impossible;
  if (handle_ptr old = open_handle(native, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING)) {
    std::wstring const whole = is_replaceable(old.get()) ? own_name(old.get()) : std::wstring();
    if (!whole.empty()) result = replace(std::move(old), whole, content);
  } else if (GetLastError() == ERROR_FILE_NOT_FOUND) {
    result = replace(nullptr, path::make_full(native), content);
  } else {
    return false;
  }
  return result == outcome::impossible ? overwrite(native, content) : result == outcome::done;
}

bool exists(std::wstring_view name) {
  return GetFileAttributesW(std::wstring(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace zu::file
