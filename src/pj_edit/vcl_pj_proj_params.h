// The ten numeric parameters of a projection. Only those that the chosen record offers are
// shown.
#pragma once

#include <array>

#include "pj_edit/edit_rules.h"
#include "vcl/caption_panel.h"

class Tzu_vcl_pj_proj_params : public Tzu_vcl_panel {
 public:
  // The editor must live longer than the panel.
  Tzu_vcl_pj_proj_params(wxWindow* parent, zu::Tzu_pj_editor& editor);

  void create() override;
  void load_rc() override;
  void refresh();

  Tzu_vcl_caption_dbl_edit* get_edit(proj_number which) const {
    return edits_[static_cast<std::size_t>(which)];
  }

 private:
  zu::Tzu_pj_editor& editor_;
  Tzu_vcl_group_box* group_ = nullptr;
  std::array<Tzu_vcl_caption_dbl_edit*, proj_numbers_count> edits_{};
  Tzu_vcl_label* fixed_ = nullptr;  // the numbers that a zone fixes; hidden when no zone is chosen
};
