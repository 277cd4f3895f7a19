#include <dlfcn.h>
#include <execinfo.h>

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "failing_allocator.h"

namespace failing_allocator {
namespace {

// The start of the module with the code; null for the standard library's code.
// Its templates may be compiled into any module.
void const* module_of(void const* code) noexcept {
  Dl_info info{};
  if (dladdr(code, &info) == 0) return nullptr;
  std::string_view const name = info.dli_sname == nullptr ? "" : info.dli_sname;
  bool const is_standard =
      std::string_view(info.dli_fname).find("libstdc++") != std::string_view::npos ||
      name.starts_with("_ZNSt") || name.starts_with("_ZNKSt") || name.starts_with("_ZSt");
  return is_standard ? nullptr : info.dli_fbase;
}

}  // namespace

bool own(void const* caller) noexcept {
  static void const* const program = module_of(reinterpret_cast<void const*>(&own));
  std::array<void*, 24> frames{};
  auto const count = static_cast<std::size_t>(backtrace(frames.data(), frames.size()));
  bool is_behind = false;
  for (void const* const code : std::span(frames).first(count)) {
    is_behind = is_behind || code == caller;
    void const* const module = is_behind ? module_of(code) : nullptr;
    if (module != nullptr) return module == program;
  }
  return false;
}

}  // namespace failing_allocator
