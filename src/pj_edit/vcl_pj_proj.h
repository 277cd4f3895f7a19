// The projection of a definition: usual or zonal, and its parameters.
#pragma once

#include <functional>

#include "pj_edit/edit_rules.h"
#include "pj_edit/vcl_pj_proj_params.h"

class Tzu_vcl_pj_proj : public Tzu_vcl_panel {
 public:
  static constexpr int panel_width = 300;
  static constexpr int strip_height = 50;

  // The editor must live longer than the panel.
  Tzu_vcl_pj_proj(wxWindow* parent, zu::Tzu_pj_editor& editor);

  void create() override;
  void load_rc() override;
  // Shows the editor's state, with the strip of its kind.
  void refresh();

  bool is_gauss_kruger() const { return editor_.is_gauss_kruger(); }

  Tzu_vcl_caption_selbox* get_usual() const noexcept { return usual_; }
  Tzu_vcl_caption_selbox* get_zonal() const noexcept { return zonal_; }
  Tzu_vcl_caption_selbox* get_zone() const noexcept { return zone_; }
  Tzu_vcl_pj_proj_params* get_params() const noexcept { return params_; }

  // Fired after another projection or zone was chosen.
  std::function<void()> on_projection_change;

 private:
  static Tzu_vcl_caption_selbox* add_selector(Tzu_vcl_panel& strip);
  void on_change();
  void fill_zones();

  zu::Tzu_pj_editor& editor_;
  Tzu_vcl_group_box* group_ = nullptr;
  Tzu_vcl_panel* usual_strip_ = nullptr;
  Tzu_vcl_panel* zonal_strip_ = nullptr;
  Tzu_vcl_caption_selbox* usual_ = nullptr;
  Tzu_vcl_caption_selbox* zonal_ = nullptr;
  Tzu_vcl_caption_selbox* zone_ = nullptr;
  Tzu_vcl_pj_proj_params* params_ = nullptr;
  std::string zones_of_;  // the zone selector lists the zones of this zonal name
};
