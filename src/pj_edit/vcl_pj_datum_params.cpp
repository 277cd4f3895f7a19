#include "pj_edit/vcl_pj_datum_params.h"

#include <wx/gbsizer.h>

#include "pj_edit/edit_paste.h"
#include "pj_edit/edit_tips.h"
#include "pj_edit/panel_tools.h"
#include "vcl/toolkit.h"

namespace {

constexpr std::size_t axes_count = 3;
constexpr std::size_t scale_index = 6;
constexpr int row_gap = 2;
constexpr int column_gap = 6;
// Wide enough for metres, seconds and millionths.
constexpr wchar_t const* widest_shift = L"-0000.0000";

}  // namespace

Tzu_vcl_pj_datum_params::Tzu_vcl_pj_datum_params(wxWindow* parent, zu::Tzu_pj_editor& editor)
    : Tzu_vcl_panel(parent), editor_(editor) {}

// One row for each axis with its shift and its rotation, and a last row for the scale.
void Tzu_vcl_pj_datum_params::create() {
  group_ = zu::fill_with_inner_group(*this);
  int const margin = FromDIP(zu::group_margin);
  auto* const grid = zu::vcl::add_sizer<wxGridBagSizer>(
      *group_->get_sizer(), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, margin),
      FromDIP(row_gap), FromDIP(column_gap));
  auto const add = [&](wxWindow* control, int row, int column, int flags, int columns = 1) {
    grid->Add(control, wxGBPosition(row, column), wxGBSpan(1, columns), flags);
  };
  auto const add_label = [&](int row, int column, int columns = 1) {
    auto* const label = zu::vcl::make_child<Tzu_vcl_label>(group_);
    add(label, row, column, wxALIGN_CENTRE_VERTICAL, columns);
    return label;
  };
  shift_ = add_label(0, 1);
  rotate_ = add_label(0, 2);
  for (std::size_t axis = 0; axis < axes_count; ++axis) {
    int const row = static_cast<int>(axis) + 1;
    axes_[axis] = add_label(row, 0);
    add(add_edit(group_, axis), row, 1, wxEXPAND);
    add(add_edit(group_, axes_count + axis), row, 2, wxEXPAND);
  }
  scale_ = add_label(axes_count + 1, 0, 2);
  add(add_edit(group_, scale_index), axes_count + 1, 2, wxEXPAND);
  grid->AddGrowableCol(1, 1);
  grid->AddGrowableCol(2, 1);
  group_->get_sizer()->AddSpacer(FromDIP(zu::group_bottom));
}

Tzu_vcl_dbl_edit* Tzu_vcl_pj_datum_params::add_edit(wxWindow* parent, std::size_t index) {
  auto* const edit = zu::vcl::make_child<Tzu_vcl_dbl_edit>(parent, widest_shift);
  edit->on_change = [this, edit, index] { editor_.set_shift(index, edit->get_value()); };
  // Seven numbers may be pasted at once into any of the edits.
  edit->on_paste = [this](std::wstring const& text) {
    auto const shift = zu::read_shift(text);
    if (!shift || !editor_.is_datum_editable()) return false;
    editor_.set_shifts(*shift);
    refresh();
    return true;
  };
  edits_[index] = edit;
  return edit;
}

void Tzu_vcl_pj_datum_params::load_rc() {
  zu::set_rc_caption(*group_, zu::editor_text::datum_params);
  zu::set_rc_caption(*axes_[0], zu::editor_text::axis_x);
  zu::set_rc_caption(*axes_[1], zu::editor_text::axis_y);
  zu::set_rc_caption(*axes_[2], zu::editor_text::axis_z);
  zu::set_rc_caption(*shift_, zu::editor_text::shift);
  zu::set_rc_caption(*rotate_, zu::editor_text::rotate);
  zu::set_rc_caption(*scale_, zu::editor_text::scale);
  // A screen reader or a message shows an edit without the table, so its name has row and
  // column.
  for (std::size_t index = 0; index < count; ++index) {
    std::wstring name = scale_->get_caption();
    if (index < scale_index)
      name = (index < axes_count ? shift_ : rotate_)->get_caption() + L", " +
             axes_[index % axes_count]->get_caption();
    zu::vcl::set_control_name(*edits_[index], name);
  }
}

void Tzu_vcl_pj_datum_params::refresh() {
  for (std::size_t index = 0; index < count; ++index) {
    edits_[index]->set_value(editor_.state().shift[index]);
    edits_[index]->set_edit_enabled(editor_.is_datum_editable());
    edits_[index]->SetToolTip(edits_[index]->GetName() + L"\n" + zu::tell_shift(editor_, index));
  }
}
