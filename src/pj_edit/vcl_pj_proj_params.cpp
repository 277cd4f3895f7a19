#include "pj_edit/vcl_pj_proj_params.h"

#include <wx/settings.h>

#include "pj_edit/edit_tips.h"
#include "pj_edit/panel_tools.h"

namespace {

// Interface texts of the ten captions, from the top.
constexpr std::array<int, proj_numbers_count> captions{17, 18, 19, 22, 23, 24, 27, 26, 20, 21};

}  // namespace

Tzu_vcl_pj_proj_params::Tzu_vcl_pj_proj_params(wxWindow* parent, zu::Tzu_pj_editor& editor)
    : Tzu_vcl_panel(parent), editor_(editor) {}

void Tzu_vcl_pj_proj_params::create() {
  group_ = zu::fill_with_inner_group(*this);
  for (std::size_t i = 0; i < edits_.size(); ++i) {
    auto* const edit = zu::add_to_group<Tzu_vcl_caption_dbl_edit>(*group_);
    edit->set_edit_width(zu::projection_number_width);
    edit->on_change = [this, edit, i] {
      editor_.set_number(static_cast<proj_number>(i), edit->get_value());
    };
    edits_[i] = edit;
  }
  fixed_ = zu::vcl::make_child<Tzu_vcl_label>(group_);
  fixed_->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
  zu::add_row(*group_->get_sizer(), *fixed_);
}

void Tzu_vcl_pj_proj_params::load_rc() {
  zu::set_rc_caption(*group_, 16);
  for (std::size_t i = 0; i < edits_.size(); ++i) zu::set_rc_caption(*edits_[i], captions[i]);
}

void Tzu_vcl_pj_proj_params::refresh() {
  for (std::size_t i = 0; i < edits_.size(); ++i) {
    zu::number_state const& number = editor_.state().numbers[i];
    Tzu_vcl_caption_dbl_edit& edit = *edits_[i];
    edit.Show(number.shown);
    edit.set_use_min(number.use_min);
    edit.set_min(number.min);
    edit.set_use_max(number.use_max);
    edit.set_max(number.max);
    edit.set_value(number.value);
    edit.get_edit()->SetToolTip(zu::tell_number(editor_, static_cast<proj_number>(i)));
  }
  std::wstring const fixed = zu::tell_zone(editor_);
  fixed_->set_caption(fixed);
  fixed_->Show(!fixed.empty());
}
