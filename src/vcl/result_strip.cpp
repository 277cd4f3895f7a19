#include "vcl/result_strip.h"

#include <wx/menu.h>
#include <wx/settings.h>

#include <utility>

#include "vcl/event_guard.h"
#include "vcl/toolkit.h"

namespace {

// The text needs no special width: the other controls decide the width of the form.
constexpr int least_text_width = 100;

void call(std::function<void()> const& event) {
  if (event) event();
}

}  // namespace

Tzu_vcl_result_strip::Tzu_vcl_result_strip(wxWindow* parent) : Tzu_vcl_panel(parent) {}

void Tzu_vcl_result_strip::create() {
  text_ = zu::vcl::make_child<Tzu_vcl_edit>(this);
  // Read-only after creation: the system leaves a text that is created read-only out of the
  // order of the Tab key.
  text_->SetEditable(false);
  text_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
  text_->SetMinSize(wxSize(FromDIP(least_text_width), wxDefaultCoord));
  undo_ = add_button([this] { call(on_undo); });
  redo_ = add_button([this] { call(on_redo); });
  // The press by a screen reader has to end before the menu's loop begins.
  menu_ = add_button([this] { zu::vcl::call_after_guarded(*this, [this] { show_menu(); }); });
  auto* const row = zu::vcl::set_sizer<wxBoxSizer>(*this, wxHORIZONTAL);
  int const gap = FromDIP(margin);
  row->Add(text_, wxSizerFlags(1).CentreVertical().Border(wxLEFT | wxTOP | wxBOTTOM, gap));
  for (auto* const button : {undo_, redo_, menu_})
    row->Add(button, wxSizerFlags().CentreVertical().Border(wxLEFT, gap));
  row->AddSpacer(gap);
}

Tzu_vcl_button* Tzu_vcl_result_strip::add_button(std::function<void()> act) {
  auto* const button = zu::vcl::make_child<Tzu_vcl_button>(this);
  zu::vcl::bind_guarded(*button, wxEVT_BUTTON, std::move(act));
  return button;
}

void Tzu_vcl_result_strip::set_captions(std::wstring const& undo, std::wstring const& redo,
                                        std::wstring const& menu) {
  undo_->set_caption(undo);
  redo_->set_caption(redo);
  menu_->set_caption(menu);
  for (auto* const button : {undo_, redo_, menu_}) {
    button->SetMinSize(wxDefaultSize);
    button->SetMinSize(wxSize(button->GetBestSize().x, text_->GetBestSize().y));
  }
}

void Tzu_vcl_result_strip::set_name(std::wstring const& name) {
  zu::vcl::set_control_name(*text_, name);
}

void Tzu_vcl_result_strip::set_text(std::wstring const& text, std::wstring const& tip) {
  if (text != text_->get_text()) text_->set_text(text);
  text_->SetToolTip(tip);
}

void Tzu_vcl_result_strip::set_steps(bool can_undo, bool can_redo) {
  undo_->Enable(can_undo);
  redo_->Enable(can_redo);
}

void Tzu_vcl_result_strip::show_menu() {
  wxMenu menu;
  std::vector<int> ids;
  for (item const& each : items_)
    ids.push_back(each.caption.empty() ? menu.AppendSeparator()->GetId()
                                       : menu.Append(wxID_ANY, each.caption)->GetId());
  // The chosen action must not run inside the menu's own loop.
  int const chosen =
      GetPopupMenuSelectionFromUser(menu, menu_->GetPosition() + wxPoint(0, menu_->GetSize().y));
  for (std::size_t i = 0; i < ids.size(); ++i)
    if (ids[i] == chosen) call(items_[i].act);
}
