// dBase tables made byte by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace core_test {

inline std::string little_endian(std::uint64_t value, std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
  return bytes;
}

inline std::string dbf_header(std::uint32_t records, unsigned header_length,
                              unsigned record_length) {
  std::string const lengths = little_endian(header_length, 2) + little_endian(record_length, 2);
  return std::string("\x03\x01\x01\x01") + little_endian(records, 4) + lengths +
         std::string(20, '\0');
}

inline std::string dbf_field(std::string_view name, char type, unsigned length,
                             std::uint32_t offset = 0, unsigned decimal = 0) {
  std::string bytes(name);
  bytes.resize(11, '\0');
  bytes += type + little_endian(offset, 4) + little_endian(length, 1) + little_endian(decimal, 1);
  bytes.resize(32, '\0');
  return bytes;
}

}  // namespace core_test
