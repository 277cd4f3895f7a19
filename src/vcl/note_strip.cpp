#include "vcl/note_strip.h"

#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/textwrapper.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "vcl/event_guard.h"
#include "vcl/toolkit.h"

namespace {

class Twrapper final : public wxTextWrapper {
 public:
  std::vector<wxString> take() { return std::move(lines_); }

 private:
  void OnOutputLine(wxString const& line) override { lines_.push_back(line); }

  std::vector<wxString> lines_;
};

}  // namespace

Tzu_vcl_note_strip::Tzu_vcl_note_strip(wxWindow* parent) : Tzu_vcl_panel(parent) {
  // A panel without controls would take the keyboard focus.
  m_container.DisableSelfFocus();
}

void Tzu_vcl_note_strip::create() {
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOBK));
  label_ = zu::vcl::make_child<wxStaticText>(this, wxID_ANY, wxString());
  label_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_INFOTEXT));
  auto* const sizer = zu::vcl::set_sizer<wxBoxSizer>(*this, wxVERTICAL);
  sizer->Add(label_, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(margin)));
  zu::vcl::bind_guarded(*this, wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    on_size();
  });
  Hide();
}

void Tzu_vcl_note_strip::set_text(std::wstring const& text) {
  if (text == text_) return;
  text_ = text;
  Show(!text.empty());
  if (text.empty()) return;
  for (wxWindow* const each : std::array<wxWindow*, 2>{this, label_}) each->SetToolTip(text);
  zu::vcl::set_control_name(*label_, text);
  // The width that the form will give it.
  wxWindow const& form = *GetParent();
  int const needed = form.GetSizer() == nullptr ? 0 : form.GetSizer()->GetMinSize().x;
  wrap(std::max(form.GetClientSize().x, needed));
}

void Tzu_vcl_note_strip::on_size() {
  int const width = GetClientSize().x;
  if (!IsShown() || width == wrapped_width_) return;
  std::size_t const before = lines_;
  wrap(width);
  if (lines_ != before && on_layout) zu::vcl::call_after_guarded(*this, on_layout);
}

void Tzu_vcl_note_strip::wrap(int width) {
  wrapped_width_ = width;
  int const room = std::max(1, width - 2 * FromDIP(margin));
  Twrapper wrapper;
  wrapper.Wrap(label_, text_, room);
  auto lines = wrapper.take();
  if (lines.size() > most_lines) {
    lines.resize(most_lines);
    lines.back() += L" ...";
  }
  lines_ = lines.size();
  wxClientDC dc(label_);
  dc.SetFont(label_->GetFont());
  wxString text;
  for (wxString const& line : lines) {
    // A name without blanks cannot be wrapped. Its end is more useful than its middle.
    wxString const fitting =
        wxControl::Ellipsize(line, dc, wxELLIPSIZE_MIDDLE, room, wxELLIPSIZE_FLAGS_NONE);
    text.append(text.empty() ? L"" : L"\n").append(fitting);
  }
  label_->SetLabelText(text);
}
