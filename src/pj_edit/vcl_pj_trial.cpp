#include "pj_edit/vcl_pj_trial.h"

#include <wx/gbsizer.h>

#include <algorithm>

#include "basic/number.h"
#include "pj_edit/panel_tools.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "vcl/event_guard.h"
#include "vcl/toolkit.h"

using zu::own_text;
using zu::vcl::rc_text;

namespace {

constexpr int margin = 4;
constexpr int edit_width = 150;
// These digits show a tenth of a millimetre or less.
constexpr int digits_of_degrees = 9;
constexpr int digits_of_metres = 4;

}  // namespace

Tzu_vcl_pj_trial::Tzu_vcl_pj_trial(wxWindow* form, std::string const& definition)
    : Tmodal(form, wxID_ANY, rc_text(own_text::trial_title), wxDefaultPosition, wxDefaultSize,
             wxCAPTION | wxCLOSE_BOX) {
  trial_.set_definition(definition);
  create();
}

void Tzu_vcl_pj_trial::create() {
  int const gap = FromDIP(margin);
  auto* const rows = zu::vcl::set_sizer<wxBoxSizer>(*this, wxVERTICAL);
  auto* const grid = zu::vcl::add_sizer<wxGridBagSizer>(
      *rows, wxSizerFlags().Expand().Border(wxALL, gap), gap, gap);
  bool const has_degrees = trial_.is_geographic();
  std::array<std::wstring, 4> const names{
      rc_text(own_text::trial_longitude), rc_text(own_text::trial_latitude),
      rc_text(has_degrees ? own_text::trial_own_longitude : own_text::trial_x),
      rc_text(has_degrees ? own_text::trial_own_latitude : own_text::trial_y)};
  for (int i = 0; i < 4; ++i) {
    auto const index = static_cast<std::size_t>(i);
    auto* const label = zu::vcl::make_child<Tzu_vcl_label>(this, names.at(index));
    auto* const edit = zu::vcl::make_child<Tzu_vcl_edit>(this);
    edit->SetMinSize(wxSize(FromDIP(edit_width), wxDefaultCoord));
    zu::vcl::set_control_name(*edit, names.at(index));
    zu::vcl::platform::relate_label(*label, *edit);
    zu::vcl::bind_guarded(*edit, wxEVT_TEXT,
                          [this, which = static_cast<edit_index>(i)] { on_typed(which); });
    edits_.at(index) = edit;
    grid->Add(label, wxGBPosition(i % 2, i / 2 * 2), wxDefaultSpan, wxALIGN_CENTRE_VERTICAL);
    grid->Add(edit, wxGBPosition(i % 2, i / 2 * 2 + 1), wxDefaultSpan, wxEXPAND);
  }
  message_ = zu::vcl::make_child<Tzu_vcl_label>(this, rc_text(own_text::trial_hint));
  auto* const close = zu::vcl::make_child<Tzu_vcl_button>(this, rc_text(own_text::trial_close),
                                                          static_cast<wxWindowID>(wxID_CANCEL));
  auto* const bottom = zu::vcl::add_sizer<wxBoxSizer>(
      *rows, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap), wxHORIZONTAL);
  bottom->Add(message_, wxSizerFlags(1).CentreVertical());
  bottom->Add(close, wxSizerFlags().Border(wxLEFT, gap));
  rows->SetSizeHints(this);
  CentreOnParent();
  edits_.front()->SetFocus();
}

void Tzu_vcl_pj_trial::on_typed(edit_index which) {
  bool const is_forward = which < x;
  auto const number_in = [this](edit_index index, bool is_angle) -> std::optional<double> {
    std::wstring const text = edits_.at(index)->get_text();
    return is_angle ? zu::read_angle(text)
                    : zu::number::read_double(zu::strutil::trim(zu::strconv::to_utf8(text)));
  };
  bool const are_angles = is_forward || trial_.is_geographic();
  auto const first = number_in(is_forward ? longitude : x, are_angles);
  auto const second = number_in(is_forward ? latitude : y, are_angles);
  if (!first || !second) {
    for (auto const other : {is_forward ? x : longitude, is_forward ? y : latitude})
      edits_.at(other)->set_text({});
    message_->set_caption(rc_text(own_text::trial_hint));
    return;
  }
  if (is_forward)
    show(x, trial_.forward(*first, *second), trial_.is_geographic());
  else
    show(longitude, trial_.backward(*first, *second), true);
}

void Tzu_vcl_pj_trial::show(edit_index first, zu::trial_result const& result, bool are_degrees) {
  for (std::size_t i = 0; i < 2; ++i) {
    std::string text;
    if (result.place)
      zu::number::append_fixed(text, result.place->at(i),
                               are_degrees ? digits_of_degrees : digits_of_metres);
    edits_.at(first + i)->set_text(zu::strconv::from_utf8(text));
  }
  message_->set_caption(result.failure);
}
