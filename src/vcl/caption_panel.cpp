#include "vcl/caption_panel.h"

#include "vcl/toolkit.h"

namespace {

// Space between the end of a caption and the control.
constexpr int caption_gap = 4;

}  // namespace

Tzu_vcl_caption_panel::Tzu_vcl_caption_panel(wxWindow* parent) : Tzu_vcl_panel(parent) {}

void Tzu_vcl_caption_panel::create() {
  // The label comes right before its control, because screen readers look there for the name.
  label_ = zu::vcl::make_child<Tzu_vcl_label>(this);
  control_ = make_control();
  zu::vcl::platform::relate_label(*label_, *control_);
  zu::vcl::set_sizer<wxBoxSizer>(*this, wxHORIZONTAL);
  place();
}

std::wstring Tzu_vcl_caption_panel::get_caption() const { return label_->get_caption(); }

void Tzu_vcl_caption_panel::set_caption(std::wstring const& caption) {
  label_->set_caption(caption);
  zu::vcl::set_control_name(*control_, caption);
  lay_out();
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
  // Always as wide as the window needs, and at least `width`.
  auto const add = [this](wxWindow* window, int width, int gap, bool fills) {
    auto* const column = zu::vcl::add_sizer<wxBoxSizer>(
        *GetSizer(), wxSizerFlags(fills ? 1 : 0).CentreVertical(), wxVERTICAL);
    column->Add(window, 0, wxEXPAND | wxRIGHT, FromDIP(gap));
    column->Add(zu::vcl::scaled(*this, width), 0);
  };
  bool const control_fills = edit_width_ == 0;
  GetSizer()->Clear(false);
  add(label_, control_fills ? caption_width_ : 0, caption_gap, !control_fills);
  add(control_, edit_width_, 0, control_fills);
  lay_out();
}

// Moving controls takes long. A panel that is not on the screen yet is laid out once, together
// with its form.
void Tzu_vcl_caption_panel::lay_out() {
  if (IsShownOnScreen()) Layout();
}

void Tzu_vcl_caption_panel::call_on_change() const {
  if (on_change) on_change();
}

wxWindow* Tzu_vcl_caption_dbl_edit::make_control() {
  edit_ = zu::vcl::make_child<Tzu_vcl_dbl_edit>(this);
  edit_->on_change = [this] { on_dbl_edit_change(); };
  return edit_;
}

wxWindow* Tzu_vcl_caption_selbox::make_control() {
  selbox_ = zu::vcl::make_child<Tzu_vcl_selbox>(this);
  selbox_->on_change = [this] { call_on_change(); };
  return selbox_;
}
