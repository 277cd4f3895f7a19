#include "gui_support.h"

#include <windows.h>
// After the system's header.
#include <gtest/gtest.h>
#include <wx/bitmap.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>

#include <utility>

namespace gui {
namespace {

bool is_dropped_down(Tzu_vcl_selbox const& list) {
  return SendMessageW(list.GetHandle(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

// The class of the windows of a host that has no toolkit.
wchar_t const* plain_class() {
  static bool const registered = [] {
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"plain_host";
    return RegisterClassW(&description) != 0;
  }();
  EXPECT_TRUE(registered);
  return L"plain_host";
}

}  // namespace

namespace platform {

void prepare_display() {}

bool has_keyboard(Tzu_vcl_form& form) {
  HWND const window = form.GetHandle();
  if (GetForegroundWindow() == window) return true;
  SetForegroundWindow(window);
  return false;
}

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

// By the keys that open a list, walk in it and take what is marked.
void pick(Tzu_vcl_selbox& list, int position) {
  focus(list);
  press(WXK_F4);
  EXPECT_TRUE(wait_until([&] { return is_dropped_down(list); })) << "the list does not open";
  press(WXK_HOME);
  for (int i = 0; i < position; ++i) press(WXK_DOWN);
  press(WXK_RETURN);
  EXPECT_TRUE(wait_until([&] { return !is_dropped_down(list); })) << "the list does not close";
}

bool save_picture(wxWindow& window, std::string const& path) {
  wxWindowDC source(&window);
  wxSize const size = source.GetSize();
  wxBitmap picture;
  if (!picture.Create(size)) return false;
  wxMemoryDC target(picture);
  if (!target.Blit(wxPoint(), size, &source, wxPoint())) return false;
  target.SelectObject(wxNullBitmap);
  return picture.SaveFile(path + ".bmp", wxBITMAP_TYPE_BMP);
}

}  // namespace platform

// On the form's thread, where hosts have theirs.
class Tforeign_window::Timpl {
 public:
  explicit Timpl(wxRect const& place)
      : window_(CreateWindowExW(0, plain_class(), L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                place.x, place.y, place.width, place.height, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr)) {}
  ~Timpl() { destroy(); }
  Timpl(Timpl const&) = delete;
  Timpl& operator=(Timpl const&) = delete;

  HWND get_window() const { return window_; }
  void destroy() {
    if (!std::exchange(destroyed_, true)) DestroyWindow(window_);
  }

 private:
  HWND window_;
  bool destroyed_ = false;
};

Tforeign_window::Tforeign_window(wxRect const& place) : impl_(std::make_unique<Timpl>(place)) {}
Tforeign_window::~Tforeign_window() = default;

void* Tforeign_window::get_handle() const { return impl_->get_window(); }
void Tforeign_window::destroy() { impl_->destroy(); }

void* get_owner(Tzu_vcl_form const& form) { return GetWindow(form.GetHandle(), GW_OWNER); }

bool is_form_to_outlive_owner() { return false; }

}  // namespace gui
