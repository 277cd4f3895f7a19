#include "vcl/owner_window.h"

#include <windows.h>
#include <wx/toplevel.h>

namespace zu::vcl {

std::optional<wxRect> set_owner(wxTopLevelWindow& form, void* owner) {
  auto const window = GetAncestor(static_cast<HWND>(owner), GA_ROOT);
  RECT bounds{};
  if (window == nullptr || GetWindowRect(window, &bounds) == 0) return std::nullopt;
  SetWindowLongPtrW(static_cast<HWND>(form.GetHandle()), GWLP_HWNDPARENT,
                    reinterpret_cast<LONG_PTR>(window));
  return wxRect(bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top);
}

}  // namespace zu::vcl
