// Drop-down lists.
#pragma once

#include <wx/choice.h>
#include <wx/combobox.h>

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

struct Tzu_vcl_selbox_item {
  std::wstring caption;
  unsigned key = 0;
};

// A drop-down list. Each item has a caption and a key. Callers store and compare keys;
// positions only serve to set captions. A chosen caption that is too long for the closed list
// is shortened, and the tooltip has the whole text.
class Tzu_vcl_selbox : public wxChoice {
 public:
  explicit Tzu_vcl_selbox(wxWindow* parent);

  void clear();
  // When the list is empty the new item becomes the selected one.
  void add_item(std::wstring const& caption, unsigned key);
  // Adds many items at once, which is much faster.
  void add_items(std::span<Tzu_vcl_selbox_item const> items);
  std::size_t get_items_count() const noexcept { return items_.size(); }

  // Gets the key of the first item with the caption. False and `key` unchanged when there is
  // none.
  bool find_str(std::wstring const& caption, unsigned* key) const;

  // Key of the selected item, 0 when nothing is selected.
  unsigned get_active_idx() const;
  // Selects the first item with the key or caption. When there is none, nothing is selected.
  // Neither fires on_change.
  void set_active_idx(unsigned key);
  std::wstring get_active_caption() const;
  void set_active_caption(std::wstring const& caption);

  // Caption at a list position, counted from 0. Beyond the end it is empty and cannot be set.
  std::wstring get_item_captions(std::size_t position) const;
  void set_item_captions(std::size_t position, std::wstring const& caption);

  // Fired when the user chooses an item.
  std::function<void()> on_change;
  void call_on_change() const;

 protected:
  wxSize DoGetBestSize() const override;

 private:
  void on_self_change();
  // Shows the chosen caption shortened for the closed list, or whole for the open list.
  void shorten_active();
  void restore_active();
  Tzu_vcl_selbox_item const* get_active() const;
  void measure(std::wstring const& caption);

  std::vector<Tzu_vcl_selbox_item> items_;
  std::size_t longest_ = 0;      // characters
  int widest_ = 0;               // pixels
  int shortened_ = wxNOT_FOUND;  // position of the item whose text is shortened
};

class Tzu_vcl_combo_box : public wxComboBox {
 public:
  explicit Tzu_vcl_combo_box(wxWindow* parent);
};
