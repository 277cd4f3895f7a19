#include "api/final_call.h"

// Named by the code below alone.
extern "C" {
void* zu_call_with_termination(zu::wide_function* function, void* window, void* first,
                               void* second);
void zu_terminate_call(unsigned char abnormal, void* frame);
}

namespace {
// A termination handler gets no context.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
void (*finish_call)() = nullptr;
}  // namespace

void zu_terminate_call(unsigned char /*abnormal*/, void* /*frame*/) { finish_call(); }

// GCC has no __finally. In its words this is
//   __try { return function(window, first, second); }
//   __finally { if (AbnormalTermination()) finish_call(); }
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
	.long 1
	.rva .Lcall_begin, .Lcall_end, zu_terminate_call
	.long 0
	.text
	.seh_endproc
)");

namespace zu {

void* final_call(wide_function* function, void* window, void* first, void* second,
                 void (*finish)()) {
  finish_call = finish;
  return zu_call_with_termination(function, window, first, second);
}

}  // namespace zu
