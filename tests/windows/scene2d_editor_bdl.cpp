// A substitute for the editor module of the host suite.
#include <windows.h>

#include <stdexcept>

#include "editor_module.h"

namespace {
editor_record record{};
}  // namespace

extern "C" {

__declspec(dllexport) editor_record const* editor_module_record() { return &record; }

// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier): the suite's name
__declspec(dllexport) void* zu_proj4_form_execute_w__impl(void* window, void* first, void* second) {
  record = {record.calls + 1, window, first, second};
  auto const wanted = reinterpret_cast<std::uintptr_t>(second);
  if (wanted == editor_throws_text) throw std::runtime_error(editor_text);
  if (wanted == editor_raises_code) RaiseException(editor_code, 0, 0, nullptr);
  return reinterpret_cast<void*>(editor_result);
}
}
