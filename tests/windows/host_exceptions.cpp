// A host in C++: what the editor module throws reaches the host through the
// library.
#include <windows.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "editor_module.h"
#include "host_support.h"

int main() {
  std::array<wchar_t, MAX_PATH> path{};
  library_path(path.data(), MAX_PATH, L"editor_module\\zuk_scene2d_editor_bdl.dll");
  HMODULE const editor = LoadLibraryW(path.data());
  CHECK(editor != nullptr);
  HWND const host = open_host();
  for (int i = 0; i < 3; ++i) {
    std::string caught;
    try {
      the_library()->execute_w(host, nullptr, reinterpret_cast<void*>(editor_throws_text));
    } catch (std::runtime_error const& error) {
      caught = error.what();
    }
    CHECK_TEXT(caught.c_str(), EDITOR_TEXT);
    CHECK(the_library()->execute_w(host, nullptr, nullptr) ==
          reinterpret_cast<void*>(EDITOR_RESULT));
  }
  CHECK(IsWindowEnabled(host));
  CHECK(run_form(host, MOSCOW_TM("37.5"), script_apply).changed == 1);
  int const good = test_failures() == 0 ? 1 : 0;
  std::printf("exceptions_reach_the_host: %s\n%d passed, %d failed\n",
              good != 0 ? "passed" : "failed", good, 1 - good);
  return good != 0 ? 0 : 1;
}
