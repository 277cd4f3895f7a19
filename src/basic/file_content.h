// The common part of reading whole files.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "basic/file.h"

namespace zu::file {

// Collects what `read` reads. `read` fills a block and returns the number of bytes, 0 at
// the end of the file, and nothing on an error.
template <class Read>
std::optional<std::string> collect(Read read, content_kind kind) {
  std::string content;
  std::string block(65536, '\0');
  for (;;) {
    std::optional<std::size_t> const got = read(std::span(block));
    if (!got) return std::nullopt;
    std::size_t const end = kind == content_kind::text ? std::min(block.find('\0'), *got) : *got;
    if (content.size() + end > size_limit) return std::nullopt;
    content.append(block, 0, end);
    if (*got == 0 || end < *got) return content;
  }
}

}  // namespace zu::file
