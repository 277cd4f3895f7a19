// Tools that the editor's panels share.
#pragma once

#include <algorithm>
#include <string>

#include "vcl/caption_panel.h"

namespace zu {

// Minimum widths in device-independent pixels, of the captions of selectors and of the number
// parts of captioned edits.
inline constexpr int selector_caption_width = 70;
inline constexpr int number_width = 100;
inline constexpr int projection_number_width = 70;
// Space beside a group and its controls, below them, and between two rows.
inline constexpr int group_margin = 4;
inline constexpr int group_bottom = 2;
inline constexpr int row_gap = 4;

// Adds a control as the last row of a sizer.
inline void add_row(wxSizer& rows, wxWindow& control) {
  int const gap = control.FromDIP(row_gap / 2);
  int const margin = control.FromDIP(group_margin);
  auto* const row = vcl::add_sizer<wxBoxSizer>(
      rows, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, margin), wxVERTICAL);
  row->Add(&control, wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, gap));
}

// Makes a captioned control as the last row of a group.
template <class Control>
Control* add_to_group(Tzu_vcl_group_box& group) {
  auto* const control = vcl::make_child<Control>(&group);
  control->create();
  add_row(*group.get_sizer(), *control);
  return control;
}

// A group box that fills a panel.
inline Tzu_vcl_group_box* fill_with_group(Tzu_vcl_panel& panel, int room = group_margin) {
  auto* const group = vcl::make_child<Tzu_vcl_group_box>(&panel);
  auto* const sizer = vcl::set_sizer<wxBoxSizer>(panel, wxVERTICAL);
  group->add_sizer_to(*sizer,
                      wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, panel.FromDIP(room)));
  sizer->AddSpacer(panel.FromDIP(group_bottom));
  return group;
}

// The same for a panel inside a group. Some themes already leave space between a group's frame
// and its controls.
inline Tzu_vcl_group_box* fill_with_inner_group(Tzu_vcl_panel& panel) {
  int top = 0;
  int beside = 0;
  auto* const outer = dynamic_cast<Tzu_vcl_group_box*>(panel.GetParent());
  if (outer != nullptr) outer->GetBordersForSizer(&top, &beside);
  return fill_with_group(panel, std::max(1, group_margin - panel.ToDIP(beside)));
}

template <class Control>
void set_rc_caption(Control& control, editor_text which) {
  control.set_caption(vcl::rc_text(which));
}

}  // namespace zu
