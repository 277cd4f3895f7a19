#include "host_guard.h"

static DWORD code;

/* Named by the code below alone. */
LONG CALLBACK keep_code(EXCEPTION_POINTERS const* exception, void* frame);
DWORD take_code(void);

LONG CALLBACK keep_code(EXCEPTION_POINTERS const* exception, void* frame) {
  (void)frame;
  code = exception->ExceptionRecord->ExceptionCode;
  return EXCEPTION_EXECUTE_HANDLER;
}

DWORD take_code(void) { return code; }

/* GCC has no __try. In its words this is
     __try { body(context); } __except (keep_code(...)) { return take_code(); }
     return 0; */
/* NOLINTNEXTLINE(hicpp-no-assembler) */
__asm__(
    "\t.text\n"
    "\t.globl call_guarded\n"
    "\t.def call_guarded; .scl 2; .type 32; .endef\n"
    "\t.seh_proc call_guarded\n"
    "call_guarded:\n"
    "\tsubq $40, %rsp\n"
    "\t.seh_stackalloc 40\n"
    "\t.seh_endprologue\n"
    "\tmovq %rcx, %rax\n"
    "\tmovq %rdx, %rcx\n"
    ".Lguarded_begin:\n"
    "\tcall *%rax\n"
    "\tnop\n"
    ".Lguarded_end:\n"
    "\txorl %eax, %eax\n"
    "\tjmp .Lguarded_return\n"
    ".Lguarded_caught:\n"
    "\tcall take_code\n"
    ".Lguarded_return:\n"
    "\taddq $40, %rsp\n"
    "\tret\n"
    "\t.seh_handler __C_specific_handler, @except\n"
    "\t.seh_handlerdata\n"
    "\t.long 1\n"
    "\t.rva .Lguarded_begin, .Lguarded_end, keep_code, .Lguarded_caught\n"
    "\t.text\n"
    "\t.seh_endproc\n");
