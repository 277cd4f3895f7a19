// The editor of one definition: kind, projection and geographic system.
#pragma once

#include <functional>

#include "pj_edit/edit_rules.h"
#include "pj_edit/vcl_pj_datum.h"
#include "pj_edit/vcl_pj_proj.h"

class Tzu_vcl_pj_edit : public Tzu_vcl_panel {
 public:
  explicit Tzu_vcl_pj_edit(wxWindow* parent);

  void create() override;
  void load_rc() override;

  // Replaces the definition. Null counts as empty.
  void set_proj4_string(char const* text);
  // The composed definition; valid until the next call.
  char const* get_proj4_string() { return editor_.get_proj4_string(); }

  zu::Tzu_pj_editor const& get_rules() const noexcept { return editor_; }
  // Goes to an earlier or later step of the rules. Does not fire on_edit.
  void set_step(zu::edit_step const& step);
  // Lets `act` change the rules, then shows them.
  void change(std::function<void(zu::Tzu_pj_editor&)> const& act);
  Tzu_vcl_caption_selbox* get_type() const noexcept { return type_; }
  Tzu_vcl_pj_proj* get_proj() const noexcept { return proj_; }
  Tzu_vcl_pj_datum* get_datum() const noexcept { return datum_; }

  // Fired after a choice of the user and after a new definition: the needed space and the note
  // may have changed.
  std::function<void()> on_layout;
  // Fired after each choice, accepted number and new definition, before on_layout.
  std::function<void()> on_edit;

 private:
  void on_type_change();
  void refresh();
  void call_on_layout() const;

  zu::Tzu_pj_editor editor_;
  Tzu_vcl_panel* top_ = nullptr;
  Tzu_vcl_caption_selbox* type_ = nullptr;
  Tzu_vcl_pj_proj* proj_ = nullptr;
  Tzu_vcl_pj_datum* datum_ = nullptr;
};
