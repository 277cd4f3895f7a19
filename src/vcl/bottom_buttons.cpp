#include "vcl/bottom_buttons.h"

#include "vcl/event_guard.h"

namespace {

using zu::button_text;
constexpr std::array<button_text, Tzu_vcl_bottom_buttons::buttons_count> captions{
    button_text::save, button_text::load, button_text::apply, button_text::cancel,
    button_text::help};
constexpr std::array<wchar_t const*, Tzu_vcl_bottom_buttons::buttons_count> first_captions{
    L"Save", L"Load", L"Apply", L"Cancel", L"Help"};

// Space for both ends of a caption together.
constexpr int caption_room = 8;

void call(std::function<void()> const& event) {
  if (event) event();
}

}  // namespace

Tzu_vcl_bottom_buttons::Tzu_vcl_bottom_buttons(wxWindow* parent) : Tzu_vcl_panel(parent) {}

void Tzu_vcl_bottom_buttons::create() {
  constexpr std::array<void (Tzu_vcl_bottom_buttons::*)() const, buttons_count> calls{
      &Tzu_vcl_bottom_buttons::call_on_save, &Tzu_vcl_bottom_buttons::call_on_load,
      &Tzu_vcl_bottom_buttons::call_on_apply, &Tzu_vcl_bottom_buttons::call_on_cancel,
      &Tzu_vcl_bottom_buttons::call_on_help};
  int const gap = FromDIP(margin);
  auto* const row = zu::vcl::set_sizer<wxBoxSizer>(*this, wxHORIZONTAL);
  for (std::size_t index = 0; index < buttons_count; ++index) {
    // The id tells the edits that the user is leaving the form.
    auto* const button = zu::vcl::make_child<Tzu_vcl_button>(
        this, first_captions[index],
        static_cast<wxWindowID>(index == cancel ? wxID_CANCEL : wxID_ANY));
    zu::vcl::bind_guarded(*button, wxEVT_BUTTON, [this, fire = calls[index]] { (this->*fire)(); });
    buttons_[index] = button;
    if (index == apply) row->AddStretchSpacer();
    row->Add(button, 0, wxTOP | wxBOTTOM | (index < apply ? wxLEFT : wxRIGHT), gap);
  }
  for (button_index const index : {help, save, load}) buttons_[index]->Hide();
  layout_buttons();
  SetSize(GetSize().x, GetMinSize().y);
}

void Tzu_vcl_bottom_buttons::load_rc() {
  for (std::size_t index = 0; index < buttons_count; ++index)
    buttons_[index]->set_caption(zu::vcl::rc_text(captions[index]));
  layout_buttons();
}

void Tzu_vcl_bottom_buttons::set_visible(button_index index, bool visible) {
  if (get_visible(index) == visible) return;
  buttons_[index]->Show(visible);
  layout_buttons();
}

void Tzu_vcl_bottom_buttons::layout_buttons() {
  slot_size_ = FromDIP(wxSize(button_width, button_height));
  for (auto* const button : buttons_) {
    // A minimum size would be a part of the best size.
    button->SetMinSize(wxDefaultSize);
    slot_size_.IncTo(button->GetBestSize() + wxSize(FromDIP(caption_room), 0));
  }
  for (auto* const button : buttons_) button->SetMinSize(slot_size_);
  SetMinSize(wxSize(wxDefaultCoord, slot_size_.y + 2 * FromDIP(margin)));
  Layout();
}

void Tzu_vcl_bottom_buttons::call_on_cancel() const { call(on_cancel); }
void Tzu_vcl_bottom_buttons::call_on_apply() const { call(on_apply); }
void Tzu_vcl_bottom_buttons::call_on_help() const { call(on_help); }
void Tzu_vcl_bottom_buttons::call_on_save() const { call(on_save); }
void Tzu_vcl_bottom_buttons::call_on_load() const { call(on_load); }
