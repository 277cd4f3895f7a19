// One line of a form: the result as text, buttons for undo and redo, and a menu.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "vcl/edit.h"
#include "vcl/panel.h"

class Tzu_vcl_result_strip : public Tzu_vcl_panel {
 public:
  static constexpr int margin = 4;

  // An item of the menu. An item without a caption is a separator.
  struct item {
    std::wstring caption;
    std::function<void()> act;
  };

  explicit Tzu_vcl_result_strip(wxWindow* parent);

  void create() override;
  void set_captions(std::wstring const& undo, std::wstring const& redo, std::wstring const& menu);
  // The name of the text for screen readers.
  void set_name(std::wstring const& name);

  std::wstring get_text() const { return text_->get_text(); }
  // The user can select and copy the text but not edit it.
  void set_text(std::wstring const& text, std::wstring const& tip);
  void set_steps(bool can_undo, bool can_redo);
  void set_items(std::vector<item> items) { items_ = std::move(items); }

  Tzu_vcl_edit* get_edit() const noexcept { return text_; }
  Tzu_vcl_button* get_undo() const noexcept { return undo_; }
  Tzu_vcl_button* get_redo() const noexcept { return redo_; }
  Tzu_vcl_button* get_menu() const noexcept { return menu_; }

  std::function<void()> on_undo;
  std::function<void()> on_redo;

 private:
  Tzu_vcl_button* add_button(std::function<void()> act);
  void show_menu();

  Tzu_vcl_edit* text_ = nullptr;
  Tzu_vcl_button* undo_ = nullptr;
  Tzu_vcl_button* redo_ = nullptr;
  Tzu_vcl_button* menu_ = nullptr;
  std::vector<item> items_;
};
