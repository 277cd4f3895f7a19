// The geographic system of a definition: datum, its seven numbers, ellipsoid.
#pragma once

#include "pj_edit/edit_rules.h"
#include "pj_edit/vcl_pj_datum_params.h"
#include "pj_edit/vcl_pj_ellipse.h"

class Tzu_vcl_pj_datum : public Tzu_vcl_panel {
 public:
  // The editor must live longer than the panel.
  Tzu_vcl_pj_datum(wxWindow* parent, zu::Tzu_pj_editor& editor);

  void create() override;
  void load_rc() override;
  void refresh();

  Tzu_vcl_caption_selbox* get_datum() const noexcept { return datum_; }
  Tzu_vcl_pj_datum_params* get_params() const noexcept { return params_; }
  Tzu_vcl_pj_ellipse* get_ellipse() const noexcept { return ellipse_; }

  // Fired after a choice of the user: the panel may need more or less space.
  std::function<void()> on_layout;

 private:
  void on_datum_change();
  void call_on_layout() const;

  zu::Tzu_pj_editor& editor_;
  Tzu_vcl_group_box* group_ = nullptr;
  Tzu_vcl_caption_selbox* datum_ = nullptr;
  Tzu_vcl_pj_datum_params* params_ = nullptr;
  Tzu_vcl_pj_ellipse* ellipse_ = nullptr;
};
