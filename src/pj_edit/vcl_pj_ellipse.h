// The ellipsoid of a definition: a selector, and the axes of the selected ellipsoid.
#pragma once

#include <functional>

#include "pj_edit/edit_rules.h"
#include "vcl/caption_panel.h"

class Tzu_vcl_pj_ellipse : public Tzu_vcl_panel {
 public:
  static constexpr int panel_height = 100;

  // The editor must live longer than the panel.
  Tzu_vcl_pj_ellipse(wxWindow* parent, zu::Tzu_pj_editor& editor);

  void create() override;
  void load_rc() override;

  // Shows the editor's state.
  void refresh();

  Tzu_vcl_caption_selbox* get_ellipse() const noexcept { return ellipse_; }
  Tzu_vcl_caption_dbl_edit* get_semi_major() const noexcept { return semi_major_; }
  Tzu_vcl_caption_dbl_edit* get_semi_minor() const noexcept { return semi_minor_; }
  Tzu_vcl_caption_dbl_edit* get_inv_flattening() const noexcept { return inv_flattening_; }

  // Fired after a choice of the user: the panel may need more or less space.
  std::function<void()> on_layout;

 private:
  void on_ellipse_change();
  static void show_number(Tzu_vcl_caption_dbl_edit& edit, bool shown, double value);

  zu::Tzu_pj_editor& editor_;
  Tzu_vcl_group_box* group_ = nullptr;
  Tzu_vcl_caption_selbox* ellipse_ = nullptr;
  Tzu_vcl_caption_dbl_edit* semi_major_ = nullptr;
  Tzu_vcl_caption_dbl_edit* semi_minor_ = nullptr;
  Tzu_vcl_caption_dbl_edit* inv_flattening_ = nullptr;
};
