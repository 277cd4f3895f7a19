// A hint that appears without a movement of the pointer.
#pragma once

#include <wx/popupwin.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <string>

// Appears below a control, takes no input, and disappears after some seconds.
class Tzu_vcl_tip : public wxPopupWindow {
 public:
  static constexpr int shown_ms = 6000;

  explicit Tzu_vcl_tip(wxWindow* control);

  void show(std::wstring const& text);
  std::wstring get_text() const { return text_->GetLabelText().ToStdWstring(); }

 private:
  wxStaticText* text_;
  wxTimer end_;
};
