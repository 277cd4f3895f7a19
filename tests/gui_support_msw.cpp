#include "gui_support.h"

#include <shlobj.h>
#include <windows.h>

#include <cstring>
// After the system's header.
#include <gtest/gtest.h>

namespace gui {
namespace platform {

void prepare_display() {}

bool has_keyboard(wxTopLevelWindow& form) {
  HWND const window = form.GetHandle();
  if (GetForegroundWindow() == window) return true;
  SetForegroundWindow(window);
  return false;
}

bool has_focus(wxWindow const& control) { return GetFocus() == control.GetHandle(); }

bool is_settled(wxWindow const& control) {
  wxSize const size = control.GetSize();
  wxPoint const centre = control.GetScreenPosition() + wxPoint(size.x / 2, size.y / 2);
  return WindowFromPoint({centre.x, centre.y}) == control.GetHandle();
}

void turn_wheel() {
  INPUT input{};
  input.type = INPUT_MOUSE;
  // The system's structure is a union.
  // NOLINTBEGIN(cppcoreguidelines-pro-type-union-access)
  input.mi.mouseData = static_cast<DWORD>(-WHEEL_DELTA);
  input.mi.dwFlags = MOUSEEVENTF_WHEEL;
  // NOLINTEND(cppcoreguidelines-pro-type-union-access)
  EXPECT_EQ(1U, SendInput(1, &input, sizeof input));
}

// Opens the list, moves to the entry and takes it, all by keys.
void pick(Tzu_vcl_selbox& list, int position) {
  auto const is_open = [&] {
    return SendMessageW(list.GetHandle(), CB_GETDROPPEDSTATE, 0, 0) != 0;
  };
  focus(list);
  press(WXK_F4);
  wait_for("the open list", is_open);
  auto const is_marked = [&] {
    return SendMessageW(list.GetHandle(), CB_GETCURSEL, 0, 0) == position;
  };
  // The list may open under the pointer, which also marks an entry.
  for (int tries = 0; tries < 3 && !is_marked(); ++tries) {
    press(WXK_HOME);
    for (int i = 0; i < position; ++i) press(WXK_DOWN);
  }
  wait_for("the marked entry", is_marked);
  press(WXK_RETURN);
  wait_for("the end of the list", [&] { return !is_open(); });
}

void drop_file(wxWindow& window, std::wstring const& name) {
  std::size_t const size = (name.size() + 2) * sizeof(wchar_t);
  HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + size);
  ASSERT_NE(memory, nullptr);
  auto* const files = static_cast<DROPFILES*>(GlobalLock(memory));
  files->pFiles = sizeof(DROPFILES);
  files->fWide = TRUE;
  std::memcpy(files + 1, name.c_str(), size - sizeof(wchar_t));
  GlobalUnlock(memory);
  // The window frees the memory.
  SendMessageW(window.GetHandle(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

}  // namespace platform

// Hosts have their windows on the thread of the form, too.
Tforeign_window::Tforeign_window(wxRect const& place)
    : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, place.x,
                              place.y, place.width, place.height, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr),
              DestroyWindow),
      handle_(window_.get()) {}

namespace {

wxRect frame_of_window(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return {place.left, place.top, place.right - place.left, place.bottom - place.top};
}

}  // namespace

wxRect Tforeign_window::get_frame() const { return frame_of_window(static_cast<HWND>(handle_)); }

wxPoint offset_of(Tzu_vcl_form const& form, Tforeign_window const& owner) {
  wxRect const frame = frame_of_window(form.GetHandle());
  return frame.GetPosition() - frame.CentreIn(owner.get_frame()).GetPosition();
}

bool has_focus(Tforeign_window const& owner) { return GetForegroundWindow() == owner.get_handle(); }

void* get_owner(Tzu_vcl_form const& form) { return GetWindow(form.GetHandle(), GW_OWNER); }

}  // namespace gui
