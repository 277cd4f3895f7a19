#include <windows.h>

#include "test_float_traps.h"

namespace {

constexpr DWORD step_flag = 0x100;

core_test::float_watcher& watcher() {
  static core_test::float_watcher kept = nullptr;
  return kept;
}

LONG CALLBACK on_exception(EXCEPTION_POINTERS* exception) {
  CONTEXT& machine = *exception->ContextRecord;
  switch (exception->ExceptionRecord->ExceptionCode) {
    case EXCEPTION_SINGLE_STEP:
      if (watcher()(core_test::float_event::step, machine.MxCsr)) machine.EFlags |= step_flag;
      return EXCEPTION_CONTINUE_EXECUTION;
    case EXCEPTION_FLT_DIVIDE_BY_ZERO:
      watcher()(core_test::float_event::trap, machine.MxCsr);
      machine.MxCsr |= 0x1F80U;
      // The system's structure is a union.
      // NOLINTBEGIN(cppcoreguidelines-pro-type-union-access)
      machine.FltSave.MxCsr |= 0x1F80U;
      machine.FltSave.ControlWord |= 0x3FU;
      // NOLINTEND(cppcoreguidelines-pro-type-union-access)
      return EXCEPTION_CONTINUE_EXECUTION;
    default:
      return EXCEPTION_CONTINUE_SEARCH;
  }
}

}  // namespace

void core_test::watch_floats(float_watcher wanted) {
  watcher() = wanted;
  AddVectoredExceptionHandler(1, &on_exception);
}
