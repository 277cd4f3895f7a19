#include "pj_edit/vcl_pj_edit.h"

#include <array>

#include "pj_edit/panel_tools.h"

using zu::definition_kind;

namespace {

constexpr int type_left = 4;
constexpr int type_width = 300;

}  // namespace

Tzu_vcl_pj_edit::Tzu_vcl_pj_edit(wxWindow* parent)
    : Tzu_vcl_panel(parent), editor_(zu::catalogue_lists::shipped()) {
  editor_.on_change = [this] {
    if (on_edit) on_edit();
  };
}

void Tzu_vcl_pj_edit::create() {
  top_ = zu::vcl::make_child<Tzu_vcl_panel>(this);
  type_ = zu::vcl::make_child<Tzu_vcl_caption_selbox>(top_);
  type_->create();
  type_->set_caption_width(zu::selector_caption_width);
  type_->GetSizer()->SetMinSize(zu::vcl::scaled(*this, wxSize(type_width, 0)));
  type_->add_item(L"none", static_cast<unsigned>(definition_kind::none));
  type_->add_item(L"usual", static_cast<unsigned>(definition_kind::usual));
  type_->add_item(L"zonal", static_cast<unsigned>(definition_kind::zonal));
  type_->on_change = [this] { on_type_change(); };
  auto* const top_sizer = zu::vcl::set_sizer<wxBoxSizer>(*top_, wxHORIZONTAL);
  top_sizer->Add(type_, wxSizerFlags().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(type_left)));

  auto* const room = zu::vcl::make_child<Tzu_vcl_scroll_box>(this);
  proj_ = zu::vcl::make_child<Tzu_vcl_pj_proj>(room, editor_);
  proj_->create();
  proj_->on_projection_change = [this] {
    // A Gauss-Kruger system selects its datum.
    datum_->refresh();
    call_on_layout();
  };
  datum_ = zu::vcl::make_child<Tzu_vcl_pj_datum>(room, editor_);
  datum_->create();
  datum_->on_layout = [this] { call_on_layout(); };

  auto* const panels = zu::vcl::set_sizer<wxBoxSizer>(*room, wxHORIZONTAL);
  panels->Add(proj_, wxSizerFlags().Expand());
  panels->Add(datum_, wxSizerFlags(1).Expand());
  auto* const sizer = zu::vcl::set_sizer<wxBoxSizer>(*this, wxVERTICAL);
  sizer->Add(top_, wxSizerFlags().Expand());
  sizer->Add(room, wxSizerFlags(1).Expand());
  refresh();
}

void Tzu_vcl_pj_edit::load_rc() {
  zu::set_rc_caption(*type_, zu::editor_text::kind);
  constexpr std::array kinds{zu::editor_text::kind_none, zu::editor_text::kind_usual,
                             zu::editor_text::kind_zonal};
  for (std::size_t i = 0; i < kinds.size(); ++i)
    type_->set_item_captions(i, zu::vcl::rc_text(kinds[i]));
  proj_->load_rc();
  datum_->load_rc();
  refresh();
}

void Tzu_vcl_pj_edit::set_proj4_string(char const* text) {
  editor_.set_proj4_string(text);
  refresh();
}

void Tzu_vcl_pj_edit::set_step(zu::edit_step const& step) {
  editor_.set_step(step);
  refresh();
}

void Tzu_vcl_pj_edit::change(std::function<void(zu::Tzu_pj_editor&)> const& act) {
  act(editor_);
  refresh();
}

void Tzu_vcl_pj_edit::on_type_change() {
  editor_.choose_kind(static_cast<definition_kind>(type_->get_active_idx()));
  refresh();
}

void Tzu_vcl_pj_edit::refresh() {
  definition_kind const kind = editor_.state().kind;
  type_->set_active_idx(static_cast<unsigned>(kind));
  proj_->Show(kind != definition_kind::none);
  datum_->Show(kind != definition_kind::none);
  proj_->refresh();
  datum_->refresh();
  call_on_layout();
}

void Tzu_vcl_pj_edit::call_on_layout() const {
  if (on_layout) on_layout();
}
