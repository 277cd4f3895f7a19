// The wide call and the host's editor module: the arguments, the result and the exceptions.
// The application's window and the host's floating-point traps must come back.

#include <gtest/gtest.h>
#include <windows.h>

#include <stdexcept>
#include <string>

#include "core_support.h"
#include "editor_module.h"
#include "float_state.h"
#include "vcl/application.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace {
// The code of the exception that ended the last guarded call.
DWORD& caught_code() {
  static DWORD code = 0;
  return code;
}
}  // namespace

extern "C" {
void call_guarded(void (*body)(void* context), void* context);

LONG CALLBACK keep_code(EXCEPTION_POINTERS const* exception, void* /*frame*/) {
  caught_code() = exception->ExceptionRecord->ExceptionCode;
  return EXCEPTION_EXECUTE_HANDLER;
}
}

// GCC has no __try. This is
//   __try { body(context); } __except (keep_code(...)) {}
// NOLINTNEXTLINE(hicpp-no-assembler)
asm(R"(
	.text
	.globl call_guarded
	.def call_guarded; .scl 2; .type 32; .endef
	.seh_proc call_guarded
call_guarded:
	subq $40, %rsp
	.seh_stackalloc 40
	.seh_endprologue
	movq %rcx, %rax
	movq %rdx, %rcx
.Lguarded_begin:
	call *%rax
	nop
.Lguarded_end:
.Lguarded_caught:
	addq $40, %rsp
	ret
	.seh_handler __C_specific_handler, @except
	.seh_handlerdata
	.long 1
	.rva .Lguarded_begin, .Lguarded_end, keep_code, .Lguarded_caught
	.text
	.seh_endproc
)");

namespace {

using core_test::Tloaded_module;

std::string beside_program(std::string const& name) {
  return (core_test::program_path().parent_path() / name).string();
}

void* pointer(std::uintptr_t number) { return reinterpret_cast<void*>(number); }

std::string const editor_path = beside_program("editor_module/zuk_scene2d_editor_bdl.dll");
constexpr std::uintptr_t first = 0x0123456789ABCDEF;
constexpr std::uintptr_t second = 0xFEDCBA9876543210;

// The function in this program, and the one that the library exports.
class wide_call : public testing::TestWithParam<bool> {
 public:
  void* call(std::uintptr_t last) {
    int owner = 0;
    auto* const function = GetParam() ? reinterpret_cast<decltype(&zu_proj4_form_execute_w)>(
                                            library_.find("zu_proj4_form_execute_w"))
                                      : &zu_proj4_form_execute_w;
    return function(&owner, pointer(first), pointer(last));
  }

 protected:
  void SetUp() override {
    application_.set_handle(&kept_);
    core_test::trapping.set();
  }
  void TearDown() override {
    EXPECT_EQ(core_test::Tfloat_state::get(), core_test::trapping);
    core_test::Tfloat_state().set();
    EXPECT_EQ(application_.get_handle(), &kept_);
    application_.set_handle(nullptr);
  }

 private:
  Tloaded_module const library_{beside_program("zu_pj_edit.dll")};
  Tzu_application& application_ = Tzu_application::instance();
  int kept_ = 0;
};

TEST_P(wide_call, hands_over_what_it_got) {
  Tloaded_module const editor(editor_path);
  EXPECT_EQ(call(second), pointer(editor_result));
  auto* const record =
      reinterpret_cast<editor_record_function*>(editor.find("editor_module_record"))();
  EXPECT_EQ(record->calls, 1);
  EXPECT_EQ(record->window, nullptr);
  EXPECT_EQ(record->first, pointer(first));
  EXPECT_EQ(record->second, pointer(second));
}

TEST_P(wide_call, gives_null_and_loads_nothing_without_the_module) {
  ASSERT_NE(SetDllDirectoryA(beside_program("editor_module").c_str()), 0);
  EXPECT_EQ(call(second), nullptr);
  EXPECT_EQ(GetModuleHandleW(L"zuk_scene2d_editor_bdl.dll"), nullptr);
  SetDllDirectoryA(nullptr);
}

TEST_P(wide_call, lets_exceptions_of_any_language_through) {
  Tloaded_module const editor(editor_path);
  for (int i = 0; i < 3; ++i) {
    try {
      call(editor_throws_text);
      ADD_FAILURE() << "nothing was thrown";
    } catch (std::runtime_error const& error) {
      EXPECT_STREQ(error.what(), editor_text);
    }
    auto const raise = [](void* self) { static_cast<wide_call*>(self)->call(editor_raises_code); };
    caught_code() = 0;
    call_guarded(raise, this);
    EXPECT_EQ(caught_code(), editor_code);
    EXPECT_EQ(call(second), pointer(editor_result));
  }
}

INSTANTIATE_TEST_SUITE_P(of_the_library, wide_call, testing::Bool());

}  // namespace
