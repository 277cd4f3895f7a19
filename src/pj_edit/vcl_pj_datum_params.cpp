#include "pj_edit/vcl_pj_datum_params.h"

#include "pj_edit/panel_tools.h"
#include "vcl/toolkit.h"

namespace {

constexpr std::size_t axes_count = 3;
constexpr std::size_t scale_index = 6;
// Metres, seconds and millionths need no more.
constexpr wchar_t const* widest_shift = L"-0000.0000";

}  // namespace

Tzu_vcl_pj_datum_params::Tzu_vcl_pj_datum_params(wxWindow* parent, zu::Tzu_pj_editor& editor)
    : Tzu_vcl_panel(parent), editor_(editor) {}

// One row an axis, its shift beside its rotation; the scale closes the table.
void Tzu_vcl_pj_datum_params::create() {
  group_ = zu::fill_with_group(*this);
  auto* const grid = zu::vcl::make_sizer<wxFlexGridSizer>(3, wxSize(FromDIP(6), FromDIP(4)));
  grid->AddGrowableCol(1, 1);
  grid->AddGrowableCol(2, 1);
  auto const left = wxSizerFlags().CentreVertical();
  auto const fill = wxSizerFlags().Expand();
  shift_ = zu::vcl::make_child<Tzu_vcl_label>(group_);
  rotate_ = zu::vcl::make_child<Tzu_vcl_label>(group_);
  grid->AddSpacer(0);
  grid->Add(shift_, left);
  grid->Add(rotate_, left);
  for (std::size_t axis = 0; axis < axes_count; ++axis) {
    axes_[axis] = zu::vcl::make_child<Tzu_vcl_label>(group_);
    grid->Add(axes_[axis], left);
    grid->Add(add_edit(group_, axis), fill);
    grid->Add(add_edit(group_, axes_count + axis), fill);
  }
  scale_ = zu::vcl::make_child<Tzu_vcl_label>(group_);
  grid->Add(scale_, left);
  grid->Add(add_edit(group_, scale_index), fill);
  group_->get_sizer()->Add(grid, wxSizerFlags().Expand().Border(wxALL, FromDIP(zu::group_margin)));
}

Tzu_vcl_dbl_edit* Tzu_vcl_pj_datum_params::add_edit(wxWindow* parent, std::size_t index) {
  auto* const edit = zu::vcl::make_child<Tzu_vcl_dbl_edit>(parent, widest_shift);
  edit->on_change = [this, edit, index] { editor_.set_shift(index, edit->get_value()); };
  edits_[index] = edit;
  return edit;
}

void Tzu_vcl_pj_datum_params::load_rc() {
  zu::set_rc_caption(*group_, 7);
  for (std::size_t axis = 0; axis < axes_count; ++axis)
    zu::set_rc_caption(*axes_[axis], 8 + static_cast<int>(axis));
  zu::set_rc_caption(*shift_, 11);
  zu::set_rc_caption(*rotate_, 12);
  zu::set_rc_caption(*scale_, 13);
  // A screen reader or a message has an edit without its table: its name says both.
  for (std::size_t index = 0; index < count; ++index) {
    std::wstring name = scale_->get_caption();
    if (index < scale_index)
      name = (index < axes_count ? shift_ : rotate_)->get_caption() + L", " +
             axes_[index % axes_count]->get_caption();
    edits_[index]->SetToolTip(name);
    zu::vcl::set_control_name(*edits_[index], name);
  }
}

void Tzu_vcl_pj_datum_params::refresh() {
  for (std::size_t index = 0; index < count; ++index) {
    edits_[index]->set_value(editor_.state().shift[index]);
    edits_[index]->set_edit_enabled(editor_.is_datum_editable());
  }
}
