#include "vcl/owner_window.h"

#include <windows.h>
// Has to come after the system's header.
#include <commctrl.h>
#include <wx/evtloop.h>
#include <wx/toplevel.h>

#include <utility>
#include <vector>

#include "vcl/form.h"

namespace zu::vcl {
namespace {

// Counts the requests to quit that a thread took from its queue during a scope. The toolkit's
// loop drops them.
class Tquit_watch {
 public:
  Tquit_watch()
      : outer_(std::exchange(current_, this)),
        hook_(SetWindowsHookExW(WH_GETMESSAGE, &Tquit_watch::on_message, nullptr,
                                GetCurrentThreadId())) {}
  ~Tquit_watch() {
    if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
    current_ = outer_;
    if (code_) PostQuitMessage(*code_);
  }
  Tquit_watch(Tquit_watch const&) = delete;
  Tquit_watch& operator=(Tquit_watch const&) = delete;

 private:
  static LRESULT CALLBACK on_message(int code, WPARAM action, LPARAM parameter) {
    auto const& message = *reinterpret_cast<MSG const*>(parameter);
    if (code == HC_ACTION && action == PM_REMOVE && message.message == WM_QUIT &&
        current_ != nullptr) {
      current_->code_ = static_cast<int>(message.wParam);
    }
    return CallNextHookEx(nullptr, code, action, parameter);
  }

  // Global because hooks get no context. Only one form is modal at a time, on one thread.
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  inline static Tquit_watch* current_ = nullptr;

  Tquit_watch* outer_;
  HHOOK hook_;
  std::optional<int> code_;
};

// Disables every visible window of a thread, as the system's own modal dialogs do. Otherwise
// the host could be made to open a second form.
class Tdisabled_windows {
 public:
  explicit Tdisabled_windows(HWND form) : form_(form) {
    EnumThreadWindows(GetCurrentThreadId(), &Tdisabled_windows::on_window,
                      reinterpret_cast<LPARAM>(this));
  }
  ~Tdisabled_windows() { enable(); }
  Tdisabled_windows(Tdisabled_windows const&) = delete;
  Tdisabled_windows& operator=(Tdisabled_windows const&) = delete;

  void disable(HWND window) {
    if (window == form_ || IsWindowEnabled(window) == 0) return;
    EnableWindow(window, FALSE);
    windows_.push_back(window);
  }

  void enable() {
    for (HWND const window : std::exchange(windows_, {})) {
      if (IsWindow(window) != 0) EnableWindow(window, TRUE);
    }
  }

 private:
  static BOOL CALLBACK on_window(HWND window, LPARAM context) {
    if (IsWindowVisible(window) != 0)
      reinterpret_cast<Tdisabled_windows*>(context)->disable(window);
    return TRUE;
  }

  HWND form_;
  std::vector<HWND> windows_;
};

// Windows destroys a window together with its owner. A modal loop would wait for it forever.
class Tdestruction_watch {
 public:
  explicit Tdestruction_watch(wxTopLevelWindow& form) : window_(form.GetHandle()) {
    SetWindowSubclass(window_, &Tdestruction_watch::on_message, id_of(this),
                      reinterpret_cast<DWORD_PTR>(dynamic_cast<Tzu_vcl_form*>(&form)));
  }
  ~Tdestruction_watch() {
    RemoveWindowSubclass(window_, &Tdestruction_watch::on_message, id_of(this));
  }
  Tdestruction_watch(Tdestruction_watch const&) = delete;
  Tdestruction_watch& operator=(Tdestruction_watch const&) = delete;

 private:
  static UINT_PTR id_of(Tdestruction_watch* watch) { return reinterpret_cast<UINT_PTR>(watch); }

  static LRESULT CALLBACK on_message(HWND window, UINT message, WPARAM first, LPARAM second,
                                     UINT_PTR id, DWORD_PTR context) {
    if (message == WM_DESTROY) {
      if (auto* const form = reinterpret_cast<Tzu_vcl_form*>(context)) form->close_form();
    }
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &Tdestruction_watch::on_message, id);
    return DefSubclassProc(window, message, first, second);
  }

  HWND window_;
};

}  // namespace

class Tzu_owner_window::Timpl {
 public:
  Timpl(wxTopLevelWindow& form, void* owner)
      : owner_(GetAncestor(static_cast<HWND>(owner), GA_ROOT)),
        focused_(GetFocus()),
        destruction_(form),
        disabled_(form.GetHandle()) {
    RECT bounds{};
    if (owner_ == nullptr || owner_ == GetDesktopWindow() || GetWindowRect(owner_, &bounds) == 0) {
      owner_ = nullptr;
      return;
    }
    SetWindowLongPtrW(form.GetHandle(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner_));
    disabled_.disable(owner_);
    place_.emplace(bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top);
  }
  ~Timpl() {
    disabled_.enable();
    // The system activates the owner but does not give the focus back to its control.
    bool const is_back = owner_ != nullptr && GetActiveWindow() == owner_;
    if (is_back && (focused_ == owner_ || IsChild(owner_, focused_) != 0)) SetFocus(focused_);
  }
  Timpl(Timpl const&) = delete;
  Timpl& operator=(Timpl const&) = delete;

  std::optional<wxRect> const& get_place() const { return place_; }
  void release() { disabled_.enable(); }

 private:
  HWND owner_;
  HWND focused_;
  // The outermost loop of the toolkit empties the thread's queue before it returns. It would
  // drop a request to quit, and would never return while the host posts messages. With this
  // loop active the form's loop is not the outermost one.
  wxGUIEventLoop const outer_;
  Tquit_watch quit_;
  Tdestruction_watch destruction_;
  Tdisabled_windows disabled_;
  std::optional<wxRect> place_;
};

Tzu_owner_window::Tzu_owner_window(wxTopLevelWindow& form, void* owner)
    : impl_(std::make_unique<Timpl>(form, owner)) {}
Tzu_owner_window::~Tzu_owner_window() = default;

std::optional<wxRect> const& Tzu_owner_window::get_place() const { return impl_->get_place(); }
void Tzu_owner_window::release() { impl_->release(); }

}  // namespace zu::vcl
