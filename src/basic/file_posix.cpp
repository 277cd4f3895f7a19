#include <sys/stat.h>

#include "basic/code_page.h"
#include "basic/file.h"

namespace zu::file {
namespace {

// The name in the system's encoding; empty when it cannot be spelled there.
std::string name_bytes(std::wstring_view name) {
  std::string bytes = code_page::to_multi_byte(code_page::system, name);
  if (code_page::to_wide(code_page::system, bytes) != name) bytes.clear();
  return bytes;
}

bool is_folder(std::FILE* handle) noexcept {
  struct stat info {};
  return fstat(fileno(handle), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

stream open(std::wstring_view name, std::string_view mode) {
  std::string const bytes = name_bytes(name);
  if (bytes.empty()) return nullptr;
  stream result(std::fopen(bytes.c_str(), std::string(mode).append("e").c_str()));
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

std::optional<std::string> read_whole(std::wstring_view name) {
  stream const file = open(name, "rb");
  if (!file) return std::nullopt;
  std::string content;
  std::string block(65536, '\0');
  for (;;) {
    std::size_t const got = std::fread(block.data(), 1, block.size(), file.get());
    content.append(block, 0, got);
    if (got < block.size()) break;
  }
  if (std::ferror(file.get()) != 0) return std::nullopt;
  return content;
}

bool write_whole(std::wstring_view name, std::string_view content) {
  stream file = open(name, "wb");
  if (!file) return false;
  bool const written = std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
  // A full disk may show only when the buffered rest is written.
  return std::fclose(file.release()) == 0 && written;
}

bool exists(std::wstring_view name) {
  std::string const bytes = name_bytes(name);
  struct stat info {};
  return !bytes.empty() && stat(bytes.c_str(), &info) == 0;
}

bool is_separator(wchar_t c) noexcept { return c == L'/'; }

}  // namespace zu::file
