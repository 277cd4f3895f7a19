#include "api/final_call.h"

// Used only by the assembler code below.
extern "C" {
void* zu_call_with_termination(zu::wide_function* function, void* window, void* first,
                               void* second);
int zu_search_beyond_call(void* exception, void* frame);
void zu_terminate_call(unsigned char abnormal, void* frame);
}

namespace {
// Global because the handlers get no context.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
zu::final_steps call_steps{};
}  // namespace

int zu_search_beyond_call(void* /*exception*/, void* /*frame*/) {
  call_steps.search();
  return 0;  // the search goes on
}

void zu_terminate_call(unsigned char /*abnormal*/, void* /*frame*/) { call_steps.finish(); }

// GCC has no __finally. With __finally this would be
//   __try {
//     __try { return function(window, first, second); }
//     __except (zu_search_beyond_call(...)) {}
//   } __finally { if (AbnormalTermination()) zu_terminate_call(...); }
// NOLINTNEXTLINE(hicpp-no-assembler)
asm(R"(
	.text
	.globl zu_call_with_termination
	.def zu_call_with_termination; .scl 2; .type 32; .endef
	.seh_proc zu_call_with_termination
zu_call_with_termination:
	subq $40, %rsp
	.seh_stackalloc 40
	.seh_endprologue
	movq %rcx, %rax
	movq %rdx, %rcx
	movq %r8, %rdx
	movq %r9, %r8
.Lcall_begin:
	call *%rax
	nop
.Lcall_end:
	addq $40, %rsp
	ret
	.seh_handler __C_specific_handler, @unwind, @except
	.seh_handlerdata
	.long 2
	.rva .Lcall_begin, .Lcall_end, zu_search_beyond_call, .Lcall_end
	.rva .Lcall_begin, .Lcall_end, zu_terminate_call
	.long 0
	.text
	.seh_endproc
)");

namespace zu {

void* final_call(wide_function* function, void* window, void* first, void* second,
                 final_steps const& steps) {
  call_steps = steps;
  return zu_call_with_termination(function, window, first, second);
}

}  // namespace zu
