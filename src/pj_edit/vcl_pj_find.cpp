#include "pj_edit/vcl_pj_find.h"

#include <wx/wupdlock.h>

#include <algorithm>

#include "pj_edit/panel_tools.h"
#include "text/own_texts.h"
#include "vcl/event_guard.h"
#include "vcl/toolkit.h"

using zu::own_text;
using zu::vcl::rc_text;

namespace {

constexpr int margin = 4;
constexpr int list_width = 560;
constexpr int list_height = 220;
constexpr int details_height = 110;
constexpr int look_again_ms = 50;
}  // namespace

Tzu_vcl_pj_find::Tzu_vcl_pj_find(wxWindow* form, zu::catalogue_lists const& lists)
    : Tmodal(form, wxID_ANY, rc_text(own_text::find_title), wxDefaultPosition, wxDefaultSize,
             wxCAPTION | wxRESIZE_BORDER | wxCLOSE_BOX),
      lists_(lists) {
  create();
}

void Tzu_vcl_pj_find::create() {
  words_ = zu::vcl::make_child<Tzu_vcl_edit>(this);
  words_->SetHint(rc_text(own_text::find_hint));
  zu::vcl::set_control_name(*words_, rc_text(own_text::find_words));
  deprecated_ = zu::vcl::make_child<wxCheckBox>(this, wxID_ANY, rc_text(own_text::find_deprecated));
  list_ = zu::vcl::make_child<wxListBox>(this, wxID_ANY, wxDefaultPosition,
                                         FromDIP(wxSize(list_width, list_height)), 0, nullptr,
                                         static_cast<long>(wxLB_SINGLE));
  zu::vcl::set_control_name(*list_, rc_text(own_text::find_list));
  details_ = zu::vcl::make_child<Tzu_vcl_edit>(this, std::wstring(),
                                               static_cast<long>(wxTE_READONLY | wxTE_MULTILINE));
  details_->SetMinSize(FromDIP(wxSize(list_width, details_height)));
  zu::vcl::set_control_name(*details_, rc_text(own_text::find_details));
  take_ = zu::vcl::make_child<Tzu_vcl_button>(this, rc_text(own_text::find_take));
  auto* const cancel = zu::vcl::make_child<Tzu_vcl_button>(this, rc_text(zu::button_text::cancel),
                                                           static_cast<wxWindowID>(wxID_CANCEL));

  zu::vcl::bind_guarded(*words_, wxEVT_TEXT, [this] { search(); });
  zu::vcl::bind_guarded(*deprecated_, wxEVT_CHECKBOX, [this] { search(); });
  zu::vcl::bind_guarded(*list_, wxEVT_LISTBOX, [this] { show_details(); });
  zu::vcl::bind_guarded(*list_, wxEVT_LISTBOX_DCLICK, [this] { take(); });
  zu::vcl::bind_guarded(*take_, wxEVT_BUTTON, [this] { take(); });
  zu::vcl::bind_guarded(*this, wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { on_key(event); });
  waiting_.SetOwner(this);
  zu::vcl::bind_guarded(*this, wxEVT_TIMER, [this] {
    if (!zu::system_finder::has_more()) return;
    waiting_.Stop();
    search_again();
  });

  int const gap = FromDIP(margin);
  auto* const rows = zu::vcl::set_sizer<wxBoxSizer>(*this, wxVERTICAL);
  auto* const top = zu::vcl::add_sizer<wxBoxSizer>(
      *rows, wxSizerFlags().Expand().Border(wxALL, gap), wxHORIZONTAL);
  top->Add(words_, wxSizerFlags(1).CentreVertical());
  top->Add(deprecated_, wxSizerFlags().CentreVertical().Border(wxLEFT, gap));
  rows->Add(list_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  rows->Add(details_, wxSizerFlags().Expand().Border(wxALL, gap));
  auto* const bottom = zu::vcl::add_sizer<wxBoxSizer>(
      *rows, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap), wxHORIZONTAL);
  bottom->AddStretchSpacer();
  bottom->Add(take_, wxSizerFlags().Border(wxRIGHT, gap));
  bottom->Add(cancel, wxSizerFlags());
  rows->SetSizeHints(this);
  CentreOnParent();
}

bool Tzu_vcl_pj_find::execute() {
  zu::system_finder::start();
  search();
  waiting_.Start(look_again_ms);
  words_->SetFocus();
  bool const taken = ShowModal() == wxID_OK;
  waiting_.Stop();
  return taken;
}

void Tzu_vcl_pj_find::search() {
  rows_ = zu::system_finder::find(words_->get_text(), deprecated_->GetValue());
  wxArrayString texts;
  for (zu::listed_system const* const row : rows_) texts.push_back(zu::tell_row(*row));
  {
    // Without this the system would repaint the list for each row.
    wxWindowUpdateLocker const lock(list_);
    list_->Set(texts);
  }
  zu::vcl::platform::fit_rows(*list_);
  choose(0);
}

// The user may have chosen a row already.
void Tzu_vcl_pj_find::search_again() {
  int const chosen = list_->GetSelection();
  std::string const id = chosen > 0 ? rows_[static_cast<std::size_t>(chosen)]->id : "";
  search();
  auto const row = std::ranges::find_if(rows_, [&](auto const* each) { return each->id == id; });
  if (row != rows_.end()) choose(static_cast<int>(row - rows_.begin()));
}

void Tzu_vcl_pj_find::choose(int row) {
  int const last = static_cast<int>(rows_.size()) - 1;
  if (last >= 0) {
    row = std::clamp(row, 0, last);
    list_->SetSelection(row);
    list_->EnsureVisible(row);
  }
  show_details();
}

void Tzu_vcl_pj_find::show_details() {
  int const row = list_->GetSelection();
  bool const is_row = row >= 0 && static_cast<std::size_t>(row) < rows_.size();
  definition_.clear();
  details_->set_text(
      is_row ? zu::tell_system(*rows_[static_cast<std::size_t>(row)], lists_, definition_)
             : rc_text(own_text::find_nothing));
  take_->Enable(!definition_.empty());
}

void Tzu_vcl_pj_find::take() {
  int const row = list_->GetSelection();
  if (definition_.empty() || row < 0) return;
  zu::system_finder::remember(*rows_[static_cast<std::size_t>(row)]);
  EndModal(wxID_OK);
}

void Tzu_vcl_pj_find::on_key(wxKeyEvent& event) {
  int const key = event.GetKeyCode();
  bool const is_searching = wxWindow::FindFocus() == words_;
  bool const is_cancel = dynamic_cast<wxButton*>(wxWindow::FindFocus()) != nullptr;
  constexpr int page = 10;
  if (key == WXK_ESCAPE)
    EndModal(wxID_CANCEL);
  else if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && !is_cancel)
    take();
  else if (is_searching && (key == WXK_DOWN || key == WXK_UP))
    choose(list_->GetSelection() + (key == WXK_DOWN ? 1 : -1));
  else if (is_searching && (key == WXK_PAGEDOWN || key == WXK_PAGEUP))
    choose(list_->GetSelection() + (key == WXK_PAGEDOWN ? page : -page));
  else
    event.Skip();
}
