// The bar of buttons at the bottom of a form.
#pragma once

#include <array>
#include <cstddef>
#include <functional>

#include "vcl/panel.h"

// Save and Load are at the left edge; Apply, Cancel and Help are at the right edge.
class Tzu_vcl_bottom_buttons : public Tzu_vcl_panel {
 public:
  static constexpr int margin = 4;
  static constexpr int button_width = 70;
  static constexpr int button_height = 26;
  static constexpr int bar_height = button_height + 2 * margin;

  // From left to right, which is the order of the Tab key too.
  enum button_index : std::size_t { save, load, apply, cancel, help };
  static constexpr std::size_t buttons_count = 5;

  explicit Tzu_vcl_bottom_buttons(wxWindow* parent);

  // Shows Apply and Cancel; the other three are hidden.
  void create() override;
  void load_rc() override;

  bool get_visible(button_index index) const { return buttons_[index]->IsShown(); }
  void set_visible(button_index index, bool visible);

  bool get_cancel_visible() const { return get_visible(cancel); }
  void set_cancel_visible(bool visible) { set_visible(cancel, visible); }
  bool get_apply_visible() const { return get_visible(apply); }
  void set_apply_visible(bool visible) { set_visible(apply, visible); }
  bool get_help_visible() const { return get_visible(help); }
  void set_help_visible(bool visible) { set_visible(help, visible); }
  bool get_save_visible() const { return get_visible(save); }
  void set_save_visible(bool visible) { set_visible(save, visible); }
  bool get_load_visible() const { return get_visible(load); }
  void set_load_visible(bool visible) { set_visible(load, visible); }

  Tzu_vcl_button* get_button(button_index index) const { return buttons_[index]; }

  // Size of every button: the constants, or more when a caption needs it. When a button is
  // hidden the others close the gap.
  wxSize get_slot_size() const { return slot_size_; }

  std::function<void()> on_cancel;
  std::function<void()> on_apply;
  std::function<void()> on_help;
  std::function<void()> on_save;
  std::function<void()> on_load;

  void call_on_cancel() const;
  void call_on_apply() const;
  void call_on_help() const;
  void call_on_save() const;
  void call_on_load() const;

 protected:
  virtual void layout_buttons();

 private:
  std::array<Tzu_vcl_button*, buttons_count> buttons_{};
  wxSize slot_size_;
};
