// Captions in front of edits and selectors.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "vcl/edit.h"
#include "vcl/panel.h"
#include "vcl/selbox.h"

// A caption on the left and a control on the right. Widths are in device-independent pixels.
// They are minimum widths: a text that needs more gets more.
class Tzu_vcl_caption_panel : public Tzu_vcl_panel {
 public:
  static constexpr int default_caption_width = 70;

  explicit Tzu_vcl_caption_panel(wxWindow* parent);

  // Makes the caption, then the control of the subclass.
  void create() override;

  std::wstring get_caption() const;
  void set_caption(std::wstring const& caption);

  // The caption has this width, the control fills the rest.
  void set_caption_width(int width);
  // The control has this width at the right, the caption fills the rest.
  void set_edit_width(int width);

  // Fired when the user has changed the control.
  std::function<void()> on_change;
  void call_on_change() const;

 protected:
  virtual wxWindow* make_control() = 0;

 private:
  void place();
  void lay_out();

  Tzu_vcl_label* label_ = nullptr;
  wxWindow* control_ = nullptr;
  int caption_width_ = default_caption_width;
  int edit_width_ = 0;  // 0: the control fills the rest
};

class Tzu_vcl_caption_dbl_edit : public Tzu_vcl_caption_panel {
 public:
  using Tzu_vcl_caption_panel::Tzu_vcl_caption_panel;

  double get_value() const { return edit_->get_value(); }
  void set_value(double value) { edit_->set_value(value); }
  double get_min() const { return edit_->get_min(); }
  void set_min(double bound) { edit_->set_min(bound); }
  double get_max() const { return edit_->get_max(); }
  void set_max(double bound) { edit_->set_max(bound); }
  bool get_use_min() const { return edit_->get_use_min(); }
  void set_use_min(bool use) { edit_->set_use_min(use); }
  bool get_use_max() const { return edit_->get_use_max(); }
  void set_use_max(bool use) { edit_->set_use_max(use); }
  bool get_edit_enabled() const { return edit_->get_edit_enabled(); }
  void set_edit_enabled(bool enabled) { edit_->set_edit_enabled(enabled); }
  bool commit() { return edit_->commit(); }

  Tzu_vcl_dbl_edit* get_edit() const noexcept { return edit_; }

 protected:
  wxWindow* make_control() override;

 private:
  void on_dbl_edit_change() const { call_on_change(); }

  Tzu_vcl_dbl_edit* edit_ = nullptr;
};

class Tzu_vcl_caption_selbox : public Tzu_vcl_caption_panel {
 public:
  using Tzu_vcl_caption_panel::Tzu_vcl_caption_panel;

  void clear() { selbox_->clear(); }
  void add_item(std::wstring const& caption, unsigned key) { selbox_->add_item(caption, key); }
  void add_items(std::span<Tzu_vcl_selbox_item const> items) { selbox_->add_items(items); }
  std::size_t get_items_count() const { return selbox_->get_items_count(); }
  bool find_str(std::wstring const& caption, unsigned* key) const {
    return selbox_->find_str(caption, key);
  }
  unsigned get_active_idx() const { return selbox_->get_active_idx(); }
  void set_active_idx(unsigned key) { selbox_->set_active_idx(key); }
  std::wstring get_active_caption() const { return selbox_->get_active_caption(); }
  void set_active_caption(std::wstring const& caption) { selbox_->set_active_caption(caption); }
  std::wstring get_item_captions(std::size_t position) const {
    return selbox_->get_item_captions(position);
  }
  void set_item_captions(std::size_t position, std::wstring const& caption) {
    selbox_->set_item_captions(position, caption);
  }

  Tzu_vcl_selbox* get_selbox() const noexcept { return selbox_; }

 protected:
  wxWindow* make_control() override;

 private:
  Tzu_vcl_selbox* selbox_ = nullptr;
};
