#include "vcl/tip.h"

#include <wx/settings.h>
#include <wx/sizer.h>

#include "vcl/event_guard.h"
#include "vcl/panel.h"

namespace {

constexpr int margin = 4;

}  // namespace

Tzu_vcl_tip::Tzu_vcl_tip(wxWindow* control)
    : wxPopupWindow(control, wxBORDER_SIMPLE),
      text_(zu::vcl::make_child<wxStaticText>(this, wxID_ANY, wxString())) {
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK));
  text_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOTEXT));
  auto* const sizer = zu::vcl::set_sizer<wxBoxSizer>(*this, wxVERTICAL);
  sizer->Add(text_, wxSizerFlags().Border(wxALL, FromDIP(margin)));
  end_.Bind(wxEVT_TIMER, [this](wxTimerEvent& /*event*/) { Hide(); });
}

void Tzu_vcl_tip::show(std::wstring const& text) {
  text_->SetLabelText(text);
  Fit();
  wxWindow const& control = *GetParent();
  Position(control.GetScreenPosition(), wxSize(0, control.GetSize().y));
  Show();
  end_.StartOnce(shown_ms);
}
