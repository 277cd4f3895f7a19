#include "pj_edit/vcl_pj_datum.h"

#include "pj_edit/panel_tools.h"
#include "text/strconv.h"

Tzu_vcl_pj_datum::Tzu_vcl_pj_datum(wxWindow* parent, zu::Tzu_pj_editor& editor)
    : Tzu_vcl_panel(parent), editor_(editor) {}

void Tzu_vcl_pj_datum::create() {
  group_ = zu::fill_with_group(*this);
  datum_ = zu::add_to_group<Tzu_vcl_caption_selbox>(*group_);
  datum_->set_caption_width(zu::selector_caption_width);
  std::vector<Tzu_vcl_selbox_item> items{{L"_Custom", zu::edit_state::custom_datum}};
  for (Tzu_pj_datum_def const& record : editor_.lists().datums)
    items.push_back({zu::strconv::from_system(record.get_caption()), record.get_index()});
  datum_->add_items(items);
  datum_->on_change = [this] { on_datum_change(); };

  params_ = zu::vcl::make_child<Tzu_vcl_pj_datum_params>(group_, editor_);
  params_->create();
  ellipse_ = zu::vcl::make_child<Tzu_vcl_pj_ellipse>(group_, editor_);
  ellipse_->create();
  ellipse_->on_layout = [this] { call_on_layout(); };
  group_->get_sizer()->Add(params_, wxSizerFlags(1).Expand());
  group_->get_sizer()->Add(ellipse_, wxSizerFlags().Expand());
}

void Tzu_vcl_pj_datum::load_rc() {
  zu::set_rc_caption(*group_, zu::editor_text::geographic_system);
  zu::set_rc_caption(*datum_, zu::editor_text::datum);
  params_->load_rc();
  ellipse_->load_rc();
}

void Tzu_vcl_pj_datum::on_datum_change() {
  editor_.choose_datum(datum_->get_active_idx());
  refresh();
  call_on_layout();
}

void Tzu_vcl_pj_datum::call_on_layout() const {
  if (on_layout) on_layout();
}

void Tzu_vcl_pj_datum::refresh() {
  datum_->set_active_idx(editor_.state().datum_id);
  params_->refresh();
  ellipse_->refresh();
}
