#include "pj_edit/vcl_pj_proj_params.h"

#include <wx/settings.h>

#include "pj_edit/edit_tips.h"
#include "pj_edit/panel_tools.h"

Tzu_vcl_pj_proj_params::Tzu_vcl_pj_proj_params(wxWindow* parent, zu::Tzu_pj_editor& editor)
    : Tzu_vcl_panel(parent), editor_(editor) {}

void Tzu_vcl_pj_proj_params::create() {
  group_ = zu::fill_with_inner_group(*this);
  for (proj_number const which : zu::all_proj_numbers) {
    auto* const edit = zu::add_to_group<Tzu_vcl_caption_dbl_edit>(*group_);
    edit->set_edit_width(zu::projection_number_width);
    edit->on_change = [this, edit, which] { editor_.set_number(which, edit->get_value()); };
    edits_[static_cast<std::size_t>(which)] = edit;
  }
  fixed_ = zu::vcl::make_child<Tzu_vcl_label>(group_);
  fixed_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
  zu::add_row(*group_->get_sizer(), *fixed_);
}

void Tzu_vcl_pj_proj_params::load_rc() {
  zu::set_rc_caption(*group_, zu::editor_text::projection_params);
  for (proj_number const which : zu::all_proj_numbers)
    zu::set_rc_caption(*get_edit(which), *zu::entry_of(which).caption);
}

void Tzu_vcl_pj_proj_params::refresh() {
  for (proj_number const which : zu::all_proj_numbers) {
    zu::number_state const& number = editor_.state().number(which);
    Tzu_vcl_caption_dbl_edit& edit = *get_edit(which);
    edit.Show(number.shown);
    edit.set_use_min(number.use_min);
    edit.set_min(number.min);
    edit.set_use_max(number.use_max);
    edit.set_max(number.max);
    edit.set_value(number.value);
    edit.get_edit()->SetToolTip(zu::tell_number(editor_, which));
  }
  std::wstring const fixed = zu::tell_zone(editor_);
  fixed_->set_caption(fixed);
  fixed_->Show(!fixed.empty());
}
