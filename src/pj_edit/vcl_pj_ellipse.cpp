#include "pj_edit/vcl_pj_ellipse.h"

#include "pj_edit/edit_tips.h"
#include "pj_edit/panel_tools.h"
#include "text/strconv.h"

Tzu_vcl_pj_ellipse::Tzu_vcl_pj_ellipse(wxWindow* parent, zu::Tzu_pj_editor& editor)
    : Tzu_vcl_panel(parent), editor_(editor) {}

void Tzu_vcl_pj_ellipse::create() {
  group_ = zu::fill_with_inner_group(*this);
  GetSizer()->SetMinSize(zu::vcl::scaled(*this, wxSize(0, panel_height)));
  ellipse_ = zu::add_to_group<Tzu_vcl_caption_selbox>(*group_);
  ellipse_->set_caption_width(zu::selector_caption_width);
  std::vector<Tzu_vcl_selbox_item> items;
  for (Tzu_pj_ellipse_def const& record : editor_.lists().ellipses)
    items.push_back({zu::strconv::from_system(record.get_caption()), record.get_index()});
  ellipse_->add_items(items);
  ellipse_->on_change = [this] { on_ellipse_change(); };
  for (auto** const edit : {&semi_major_, &semi_minor_, &inv_flattening_}) {
    *edit = zu::add_to_group<Tzu_vcl_caption_dbl_edit>(*group_);
    (*edit)->set_edit_width(zu::number_width);
    // The user chooses an ellipsoid, not its numbers.
    (*edit)->set_edit_enabled(false);
  }
}

void Tzu_vcl_pj_ellipse::load_rc() {
  zu::set_rc_caption(*group_, zu::editor_text::ellipse);
  zu::set_rc_caption(*ellipse_, zu::editor_text::ellipse_name);
  zu::set_rc_caption(*semi_major_, zu::editor_text::semi_major);
  zu::set_rc_caption(*semi_minor_, zu::editor_text::semi_minor);
  zu::set_rc_caption(*inv_flattening_, zu::editor_text::inv_flattening);
}

void Tzu_vcl_pj_ellipse::on_ellipse_change() {
  editor_.choose_ellipse(ellipse_->get_active_idx());
  refresh();
  if (on_layout) on_layout();
}

void Tzu_vcl_pj_ellipse::show_number(Tzu_vcl_caption_dbl_edit& edit, bool shown, double value) {
  edit.Show(shown);
  if (shown) edit.set_value(value);
}

void Tzu_vcl_pj_ellipse::refresh() {
  ellipse_->set_active_idx(editor_.state().ellipse_id);
  // A datum of the catalogue has its own ellipsoid. With another one it would be another
  // datum.
  ellipse_->get_selbox()->Enable(editor_.is_datum_editable());
  // A disabled list shows no tooltip, so the panel around it has one.
  ellipse_->SetToolTip(zu::tell_ellipse(editor_));
  auto const* const record = editor_.ellipse_record();
  bool const known = record != nullptr;
  show_number(*semi_major_, known, known ? record->get_semi_major() : 0);
  show_number(*semi_minor_, known && record->get_def_semi_minor(),
              known ? record->get_semi_minor() : 0);
  show_number(*inv_flattening_, known && record->get_def_inv_flattening(),
              known ? record->get_inv_flattening() : 0);
}
