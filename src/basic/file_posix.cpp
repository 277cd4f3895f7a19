#include <sys/stat.h>

#include "basic/file.h"
#include "basic/file_content.h"
#include "basic/path.h"

namespace zu::file {
namespace {

bool is_folder(std::FILE* handle) noexcept {
  struct stat info {};
  return fstat(fileno(handle), &info) == 0 && S_ISDIR(info.st_mode);
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
  stream file = open(name, "wb");
  if (!file) return false;
  bool const written = std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
  // A full disk may show only when the buffered rest is written.
  return std::fclose(file.release()) == 0 && written;
}

bool exists(std::wstring_view name) {
  struct stat info {};
  return stat(path::to_native(name).c_str(), &info) == 0;
}

}  // namespace zu::file
