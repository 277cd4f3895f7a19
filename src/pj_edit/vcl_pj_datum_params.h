// The seven numbers of a datum shift towards WGS 84: metres, arc-seconds, parts
// per million.
#pragma once

#include <array>

#include "pj_edit/edit_rules.h"
#include "vcl/edit.h"
#include "vcl/panel.h"

class Tzu_vcl_pj_datum_params : public Tzu_vcl_panel {
 public:
  static constexpr std::size_t count = 7;

  // The editor must live longer than the panel.
  Tzu_vcl_pj_datum_params(wxWindow* parent, zu::Tzu_pj_editor& editor);

  void create() override;
  void load_rc() override;
  void refresh();

  // In the order of towgs84.
  Tzu_vcl_dbl_edit* get_edit(std::size_t index) const { return edits_.at(index); }

 private:
  Tzu_vcl_dbl_edit* add_edit(wxWindow* parent, std::size_t index);

  zu::Tzu_pj_editor& editor_;
  Tzu_vcl_group_box* group_ = nullptr;
  Tzu_vcl_label* shift_ = nullptr;
  Tzu_vcl_label* rotate_ = nullptr;
  std::array<Tzu_vcl_label*, 3> axes_{};
  Tzu_vcl_label* scale_ = nullptr;
  std::array<Tzu_vcl_dbl_edit*, count> edits_{};
};
