#include <windows.h>

#include <memory>

#include "vcl/look_scope.h"

namespace zu::vcl::platform {
namespace {

struct Trelease {
  using pointer = HANDLE;
  void operator()(HANDLE context) const noexcept { ReleaseActCtx(context); }
};
using Tcontext = std::unique_ptr<HANDLE, Trelease>;

// The manifest in this module asks for version 6 of the common controls. It is the resource
// that the system uses as a module's manifest.
Tcontext make_context() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&make_context), &module);
  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  description.hModule = module;
  description.lpResourceName = MAKEINTRESOURCEW(2);
  HANDLE const context = CreateActCtxW(&description);
  return Tcontext(context == INVALID_HANDLE_VALUE ? nullptr : context);
}

}  // namespace

// Without the context the controls look old but work.
std::uintptr_t enter_current_look() {
  static Tcontext const context = make_context();
  ULONG_PTR cookie = 0;
  bool const active = context && ActivateActCtx(context.get(), &cookie) != 0;
  return active ? cookie : 0;
}

void leave_current_look(std::uintptr_t cookie) {
  if (cookie != 0) DeactivateActCtx(0, cookie);
}

}  // namespace zu::vcl::platform
