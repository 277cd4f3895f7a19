#include "vcl/caption_panel.h"

#include <algorithm>

#include "vcl/toolkit.h"

namespace {

// Between the end of a caption and the control.
constexpr int caption_gap = 4;

}  // namespace

Tzu_vcl_caption_panel::Tzu_vcl_caption_panel(wxWindow* parent) : Tzu_vcl_panel(parent) {}

void Tzu_vcl_caption_panel::create() {
  // Right before its control, which is where screen readers look for the name.
  label_ = zu::vcl::make_child<Tzu_vcl_label>(this);
  control_ = make_control();
  zu::vcl::platform::relate_label(*label_, *control_);
  SetSizer(zu::vcl::make_sizer<wxBoxSizer>(wxHORIZONTAL));
  place();
}

std::wstring Tzu_vcl_caption_panel::get_caption() const { return label_->get_caption(); }

void Tzu_vcl_caption_panel::set_caption(std::wstring const& caption) {
  label_->set_caption(caption);
  place();
}

void Tzu_vcl_caption_panel::set_caption_width(int width) {
  caption_width_ = width;
  edit_width_ = 0;
  place();
}

void Tzu_vcl_caption_panel::set_edit_width(int width) {
  edit_width_ = width;
  place();
}

void Tzu_vcl_caption_panel::place() {
  bool const control_fills = edit_width_ == 0;
  int const text_width = label_->GetBestSize().x + FromDIP(caption_gap);
  int const label_width =
      control_fills ? std::max(FromDIP(caption_width_), text_width) : text_width;
  label_->SetMinSize(wxSize(label_width, wxDefaultCoord));
  control_->SetMinSize(
      wxSize(std::max(FromDIP(edit_width_), control_->GetBestSize().x), wxDefaultCoord));

  wxSizer* const row = GetSizer();
  row->Clear(false);
  row->Add(label_, control_fills ? 0 : 1, wxALIGN_CENTRE_VERTICAL);
  row->Add(control_, control_fills ? 1 : 0, wxALIGN_CENTRE_VERTICAL);
  Layout();
}

wxWindow* Tzu_vcl_caption_dbl_edit::make_control() {
  edit_ = zu::vcl::make_child<Tzu_vcl_dbl_edit>(this);
  edit_->on_change = [this] { on_dbl_edit_change(); };
  return edit_;
}

void Tzu_vcl_caption_dbl_edit::call_on_change() const {
  if (on_change) on_change();
}

wxWindow* Tzu_vcl_caption_selbox::make_control() {
  selbox_ = zu::vcl::make_child<Tzu_vcl_selbox>(this);
  selbox_->on_change = [this] { call_on_change(); };
  return selbox_;
}

void Tzu_vcl_caption_selbox::call_on_change() const {
  if (on_change) on_change();
}
