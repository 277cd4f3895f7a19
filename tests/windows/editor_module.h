// Shared by test_wide_call and its editor module.
#pragma once

#include <cstdint>

// Values of the second argument that make the module's function throw.
enum : std::uintptr_t { editor_throws_text = 1, editor_raises_code = 2 };
constexpr char const* editor_text = "thrown by the editor module";
constexpr unsigned long editor_code = 0xE0424242UL;
// The result of the function, as a number.
constexpr std::uintptr_t editor_result = 0x1122334455667788;

struct editor_record {
  int calls;
  void* window;
  void* first;
  void* second;
};

// The module's function "editor_module_record" returns the last arguments.
using editor_record_function = editor_record const*();
