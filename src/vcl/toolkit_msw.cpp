#include <windows.h>
#include <wx/textctrl.h>

#include "vcl/toolkit.h"

namespace zu::vcl::platform {

void prepare_start() {}

void keep_library_loaded() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(&keep_library_loaded), &module);
}

// The system's own lists are quick as they are.
void prepare_list(wxWindow& /*list*/) {}
void finish_list(wxWindow& /*list*/) {}

// A label that stands right before its control is taken for the control's name.
void relate_label(wxWindow& /*label*/, wxWindow& /*control*/) {}

int best_edit_height(wxTextCtrl const& edit) { return edit.GetSizeFromTextSize(1).y; }

}  // namespace zu::vcl::platform
