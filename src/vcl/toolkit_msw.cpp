#include <windows.h>
// Has to come after the system's header.
#include <commctrl.h>
#include <shellapi.h>
#include <wx/access.h>
#include <wx/dialog.h>
#include <wx/init.h>
#include <wx/textctrl.h>

#include <memory>
#include <utility>

#include "vcl/event_guard.h"
#include "vcl/panel.h"
#include "vcl/toolkit.h"

namespace zu::vcl::platform {
namespace {

HMODULE own_module(DWORD flags) {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | flags,
                     reinterpret_cast<LPCWSTR>(&own_module), &module);
  return module;
}

// Gives screen readers the system's own answers except for the name. The system would use the
// label right before the control. In a table that is the label of another control, or there is
// none.
class Tnamed_accessible : public wxAccessible {
 public:
  using wxAccessible::wxAccessible;

  wxAccStatus GetName(int part, wxString* name) override {
    if (part != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = GetWindow()->GetName();
    return wxACC_OK;
  }
};

}  // namespace

void prepare_start() {}
void check_running() {}

// The window classes belong to this module: the host may use the same toolkit with the same
// class names.
bool start_toolkit() {
  return wxEntryStart(own_module(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT), nullptr, nullptr,
                      SW_SHOWNORMAL);
}

void keep_library_loaded() { own_module(GET_MODULE_HANDLE_EX_FLAG_PIN); }

void prepare_form(wxDialog& form) {
  HWND const window = form.GetHandle();
  SetWindowLongPtrW(window, GWL_EXSTYLE, GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
}

int control_height(wxWindow const& window) { return window.FromDIP(design_control_height); }

// On Windows the frame exists from the start.
void call_when_framed(wxDialog& /*form*/, std::function<void()> const& /*settle*/) {}
void move_to(wxDialog& form, wxPoint const& place) { form.Move(place); }
wxSize frame_size(wxDialog const& form) { return form.GetSize() - form.GetClientSize(); }

void prepare_scroll_box(wxWindow& /*box*/) {}

// The system's lists are fast without help.
void prepare_list(wxWindow& /*list*/) {}
// An open list is as wide as its items need.
void finish_list(wxWindow& list, int widest_text) {
  int const width = widest_text + GetSystemMetrics(SM_CXVSCROLL) + 4 * GetSystemMetrics(SM_CXEDGE);
  SendMessageW(list.GetHandle(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
}

void fit_rows(wxWindow& /*list*/) {}

bool lists_shorten_captions() { return false; }

namespace {

// Handles the messages that the list sends to its parent.
class Tlist_watch {
 public:
  Tlist_watch(HWND list, std::function<void()> open, std::function<void()> close)
      : list_(list), open_(std::move(open)), close_(std::move(close)) {}

  static LRESULT CALLBACK on_message(HWND window, UINT message, WPARAM first, LPARAM second,
                                     UINT_PTR id, DWORD_PTR context) {
    auto* const watch = reinterpret_cast<Tlist_watch*>(context);
    bool const is_own = message == WM_COMMAND && reinterpret_cast<HWND>(second) == watch->list_;
    if (is_own && HIWORD(first) == CBN_DROPDOWN) watch->open_();
    LRESULT const result = DefSubclassProc(window, message, first, second);
    if (is_own && HIWORD(first) == CBN_CLOSEUP) watch->close_();
    if (message == WM_NCDESTROY) {
      RemoveWindowSubclass(window, &Tlist_watch::on_message, id);
      std::unique_ptr<Tlist_watch> const owned(watch);
    }
    return result;
  }

 private:
  HWND list_;
  std::function<void()> open_;
  std::function<void()> close_;
};

}  // namespace

void watch_list(wxWindow& list, std::function<void()> const& open,
                std::function<void()> const& close) {
  auto watch = std::make_unique<Tlist_watch>(list.GetHandle(), open,
                                             // The list is in the midst of its own change.
                                             [&list, close] { call_after_guarded(list, close); });
  SetWindowSubclass(GetParent(list.GetHandle()), &Tlist_watch::on_message,
                    reinterpret_cast<UINT_PTR>(list.GetHandle()),
                    reinterpret_cast<DWORD_PTR>(watch.release()));
}

// The system gives it the keyboard itself.
void focus_first(wxWindow& /*list*/) {}
void renew_tab_order(wxWindow& /*window*/) {}

// The toolkit is built without its own drag and drop.
void accept_dropped_files(wxWindow& window) { DragAcceptFiles(window.GetHandle(), TRUE); }

// The name is enough on Windows.
void relate_label(wxWindow& /*label*/, wxWindow& /*control*/) {}

void announce_name(wxWindow& control) {
  if (control.GetAccessible() == nullptr)
    control.SetAccessible(std::make_unique<Tnamed_accessible>(&control).release());
}

wchar_t letter_of(wxKeyEvent const& /*event*/) { return 0; }

int best_edit_height(wxTextCtrl const& edit) { return edit.GetSizeFromTextSize(1).y; }
int edit_width(wxTextCtrl const& edit, int text_width) {
  return edit.GetSizeFromTextSize(text_width).x;
}

}  // namespace zu::vcl::platform
