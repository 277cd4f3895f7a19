#include "pj_edit/vcl_pj_proj.h"

#include <wx/display.h>

#include <algorithm>

#include "basic/number.h"
#include "pj_edit/panel_tools.h"
#include "text/strconv.h"

namespace {

// All zonal names have the same key: they are chosen by their text.
constexpr unsigned zonal_key = 1;

}  // namespace

Tzu_vcl_pj_proj::Tzu_vcl_pj_proj(wxWindow* parent, zu::Tzu_pj_editor& editor)
    : Tzu_vcl_panel(parent), editor_(editor) {}

void Tzu_vcl_pj_proj::create() {
  group_ = zu::fill_with_group(*this);
  // On a small screen the other panel needs the space more.
  int const width =
      std::min(zu::vcl::scaled(*this, panel_width), wxDisplay(this).GetClientArea().width * 3 / 8);
  GetSizer()->SetMinSize(wxSize(width, 0));
  auto* const strip = zu::vcl::make_child<Tzu_vcl_panel>(group_);
  auto* const strip_sizer = zu::vcl::set_sizer<wxBoxSizer>(*strip, wxVERTICAL);
  strip_sizer->SetMinSize(zu::vcl::scaled(*this, wxSize(0, strip_height)));
  for (auto** const part : {&usual_strip_, &zonal_strip_}) {
    *part = zu::vcl::make_child<Tzu_vcl_panel>(strip);
    zu::vcl::set_sizer<wxBoxSizer>(**part, wxVERTICAL);
    strip_sizer->Add(*part, wxSizerFlags(1).Expand());
  }
  group_->get_sizer()->Add(strip, wxSizerFlags().Expand());

  usual_ = add_selector(*usual_strip_);
  std::vector<Tzu_vcl_selbox_item> items;
  for (Tzu_pj_proj_def const& record : editor_.lists().usual)
    items.push_back({zu::strconv::from_system(record.get_caption()), record.get_index()});
  usual_->add_items(items);
  usual_->on_change = [this] {
    editor_.choose_usual(usual_->get_active_idx());
    on_change();
  };

  zonal_ = add_selector(*zonal_strip_);
  items.clear();
  for (std::string const& name : editor_.zonal_names())
    items.push_back({zu::strconv::from_system(name), zonal_key});
  zonal_->add_items(items);
  zonal_->on_change = [this] {
    // The editor gets the catalogue's own bytes, because some bytes do not survive the
    // conversion to wide text and back.
    auto const names = editor_.zonal_names();
    auto const name =
        std::ranges::find(names, zonal_->get_active_caption(), zu::strconv::from_system);
    if (name != names.end()) editor_.choose_zonal(*name);
    on_change();
  };

  zone_ = add_selector(*zonal_strip_);
  zone_->set_edit_width(zu::projection_number_width);
  zone_->on_change = [this] {
    editor_.choose_zone(static_cast<int>(zone_->get_active_idx()));
    on_change();
  };

  params_ = zu::vcl::make_child<Tzu_vcl_pj_proj_params>(group_, editor_);
  params_->create();
  group_->get_sizer()->Add(params_, wxSizerFlags(1).Expand());
}

Tzu_vcl_caption_selbox* Tzu_vcl_pj_proj::add_selector(Tzu_vcl_panel& strip) {
  auto* const selector = zu::vcl::make_child<Tzu_vcl_caption_selbox>(&strip);
  selector->create();
  selector->set_caption_width(zu::selector_caption_width);
  zu::add_row(*strip.GetSizer(), *selector);
  return selector;
}

void Tzu_vcl_pj_proj::load_rc() {
  zu::set_rc_caption(*group_, zu::editor_text::projection);
  zu::set_rc_caption(*usual_, zu::editor_text::projection_name);
  zu::set_rc_caption(*zonal_, zu::editor_text::zonal_name);
  zu::set_rc_caption(*zone_, zu::editor_text::zone);
  params_->load_rc();
}

void Tzu_vcl_pj_proj::on_change() {
  refresh();
  if (on_projection_change) on_projection_change();
}

void Tzu_vcl_pj_proj::fill_zones() {
  if (zones_of_ == editor_.state().zonal_name) return;
  zones_of_ = editor_.state().zonal_name;
  std::vector<Tzu_vcl_selbox_item> items;
  for (int const zone : editor_.zones_of(zones_of_)) {
    std::string const text = zu::number::format_int(zone);
    items.push_back({std::wstring(text.begin(), text.end()), static_cast<unsigned>(zone)});
  }
  zone_->clear();
  zone_->add_items(items);
}

void Tzu_vcl_pj_proj::refresh() {
  zu::edit_state const& state = editor_.state();
  bool const zonal = editor_.get_is_zonal();
  usual_strip_->Show(!zonal);
  zonal_strip_->Show(zonal);
  usual_->set_active_idx(state.usual_id);
  zonal_->set_active_caption(zu::strconv::from_system(state.zonal_name));
  fill_zones();
  zone_->set_active_idx(static_cast<unsigned>(state.zone));
  params_->refresh();
}
