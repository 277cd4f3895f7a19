// Whatever leaves the host's editor module, the application's window comes back.

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "editor_module.h"
#include "vcl/application.h"
#include "zu_pj_edit/zu_pj_edit.h"

extern "C" {
#include "host_guard.h"
}

namespace {

struct Tfree {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Tmodule = std::unique_ptr<std::remove_pointer_t<HMODULE>, Tfree>;

void* call(std::uintptr_t second) {
  int owner = 0;
  return zu_proj4_form_execute_w(&owner, nullptr, reinterpret_cast<void*>(second));
}

class wide_call : public testing::Test {
 protected:
  void SetUp() override {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    path.replace(path.rfind(L'\\'), std::wstring::npos,
                 L"\\editor_module\\zuk_scene2d_editor_bdl.dll");
    module.reset(LoadLibraryW(path.c_str()));
    ASSERT_NE(nullptr, module);
    application.set_handle(&kept);
  }
  void TearDown() override {
    EXPECT_EQ(&kept, application.get_handle());
    application.set_handle(nullptr);
  }

  Tzu_application& application = Tzu_application::instance();
  int kept = 0;
  Tmodule module;
};

TEST_F(wide_call, returns) { EXPECT_EQ(reinterpret_cast<void*>(EDITOR_RESULT), call(0)); }

TEST_F(wide_call, throws) { EXPECT_THROW(call(editor_throws_text), std::runtime_error); }

TEST_F(wide_call, raises_an_exception_of_another_language) {
  EXPECT_EQ(static_cast<DWORD>(EDITOR_CODE),
            call_guarded([](void* /*context*/) { call(editor_raises_code); }, nullptr));
}

}  // namespace
