#include <io.h>
#include <windows.h>

#include <algorithm>

#include "basic/file.h"
#include "basic/file_content.h"

namespace zu::file {
namespace {

struct handle_closer {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using handle_ptr = std::unique_ptr<HANDLE, handle_closer>;

// Another program may hold the file for a moment (a virus scanner, a copy in
// progress), so a sharing violation is tried again; any other error is final.
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
  handle_ptr const file =
      open_handle(std::wstring(name), GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS);
  if (!file) return false;
  while (!content.empty()) {
    DWORD written = 0;
    auto const part = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1U << 20U));
    if (WriteFile(file.get(), content.data(), part, &written, nullptr) == 0 || written == 0)
      return false;
    content.remove_prefix(written);
  }
  return true;
}

bool exists(std::wstring_view name) {
  return GetFileAttributesW(std::wstring(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace zu::file
