// Functions for all fuzzers. A fuzzer is one function. libFuzzer calls it with random
// inputs, the ordinary tests call it with the seeds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core_support.h"
#include "text/string_adapter.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace fuzz {

inline std::string_view text_of(std::uint8_t const* data, std::size_t size) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as text
  return {reinterpret_cast<char const*>(data), size};
}

// Makes each byte a letter.
inline std::wstring widen(std::string_view text) {
  std::wstring wide;
  for (char const c : text) wide += static_cast<wchar_t>(static_cast<unsigned char>(c));
  return wide;
}

// Stops the fuzzer where the condition does not hold; the input is a finding then.
inline void require(bool holds, char const* what) {
  if (holds) return;
  std::fputs(what, stderr);
  std::fputs("\n", stderr);
  std::abort();
}

// The text that `produce` feeds. Its result must tell whether it fed one.
template <class Produce>
std::wstring fed(Produce produce) {
  constexpr wchar_t const* nothing = L"\x1unfed";
  std::wstring text = nothing;
  Tzu_std_wstring_adapter target(&text);
  zu::string_adp const adapter(target);
  bool const done = produce(adapter.get());
  require(done == (text != nothing), "the result and what is fed differ");
  return done ? text : std::wstring();
}

// A folder for the whole run.
inline core_test::Ttemp_folder const& folder() {
  static core_test::Ttemp_folder const folder;
  return folder;
}

}  // namespace fuzz
