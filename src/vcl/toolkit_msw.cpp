#include <windows.h>
// After the system's header.
#include <wx/access.h>
#include <wx/dialog.h>
#include <wx/init.h>
#include <wx/textctrl.h>

#include <memory>

#include "vcl/toolkit.h"

namespace zu::vcl::platform {
namespace {

HMODULE own_module(DWORD flags) {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | flags,
                     reinterpret_cast<LPCWSTR>(&own_module), &module);
  return module;
}

// The system's own answers to screen readers, save the name: for that it takes
// the label right before a control, which in a table is another one's or none.
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

// The window classes belong to this module: the host may have a toolkit of the
// same make, with classes of the same names.
bool start_toolkit() {
  return wxEntryStart(own_module(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT), nullptr, nullptr,
                      SW_SHOWNORMAL);
}

void keep_library_loaded() { own_module(GET_MODULE_HANDLE_EX_FLAG_PIN); }

void prepare_form(wxDialog& form) {
  HWND const window = form.GetHandle();
  SetWindowLongPtrW(window, GWL_EXSTYLE, GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
}

// The system's own lists are quick as they are.
void prepare_list(wxWindow& /*list*/) {}
void finish_list(wxWindow& /*list*/) {}

// The name says it all.
void relate_label(wxWindow& /*label*/, wxWindow& /*control*/) {}

void announce_name(wxWindow& control) {
  if (control.GetAccessible() == nullptr)
    control.SetAccessible(std::make_unique<Tnamed_accessible>(&control).release());
}

wchar_t letter_of(wxKeyEvent const& /*event*/) { return 0; }

int best_edit_height(wxTextCtrl const& edit) { return edit.GetSizeFromTextSize(1).y; }

}  // namespace zu::vcl::platform
