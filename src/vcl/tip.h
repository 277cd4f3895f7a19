// A hint that comes up by itself.
#pragma once

#include <wx/popupwin.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <string>

// Stands below a control, takes no input, and goes by itself after a while.
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
