// The window that tries a point of the edited system.
#pragma once

#include <array>
#include <string>

#include "pj_edit/point_trial.h"
#include "vcl/edit.h"
#include "vcl/modal.h"
#include "vcl/panel.h"

// Opens over a form. A point typed on one side is shown on the other side at once.
class Tzu_vcl_pj_trial : public zu::vcl::Tmodal<wxDialog> {
 public:
  // In the order of the Tab key. The first two are WGS 84.
  enum edit_index : std::size_t { longitude, latitude, x, y };

  Tzu_vcl_pj_trial(wxWindow* form, std::string const& definition);

  Tzu_vcl_edit* get_edit(edit_index which) const noexcept { return edits_[which]; }
  std::wstring get_message() const { return message_->get_caption(); }

 private:
  void create();
  void on_typed(edit_index which);
  void show(edit_index first, zu::trial_result const& result, bool are_degrees);

  zu::Tpoint_trial trial_;
  std::array<Tzu_vcl_edit*, 4> edits_{};
  Tzu_vcl_label* message_ = nullptr;
};
