// Single-line edits.
#pragma once

#include <wx/textctrl.h>

#include <functional>
#include <string>
#include <string_view>

#include "vcl/tip.h"

class Tzu_vcl_edit : public wxTextCtrl {
 public:
  explicit Tzu_vcl_edit(wxWindow* parent, std::wstring const& text = {}, long style = 0);

  std::wstring get_text() const;
  // Fires no event.
  void set_text(std::wstring const& text);

  // What is for reading only can be copied by key.
  bool AcceptsFocusFromKeyboard() const override { return AcceptsFocus(); }

 protected:
  wxSize DoGetBestSize() const override;

 private:
  int best_height_;
};

// Holds one number and refuses bad input. What was refused stays in the edit
// for the user to correct; the value stays the last accepted one.
class Tzu_vcl_dbl_edit : public Tzu_vcl_edit {
 public:
  // Room for a false northing with its decimals.
  static constexpr wchar_t const* widest_number = L"-00000000.000";

  // The edit is wide enough for `widest`, a text that lives as long as the edit.
  explicit Tzu_vcl_dbl_edit(wxWindow* parent, wchar_t const* widest = widest_number);

  double get_value() const noexcept { return value_; }
  // Stores the value as it is and shows it with 15 significant digits. Fires
  // no event, tests no bounds.
  void set_value(double value);

  // Bounds are inclusive and count only while their use flag is set.
  bool get_use_min() const noexcept { return use_min_; }
  void set_use_min(bool use) noexcept { use_min_ = use; }
  bool get_use_max() const noexcept { return use_max_; }
  void set_use_max(bool use) noexcept { use_max_ = use; }
  double get_min() const noexcept { return min_; }
  void set_min(double bound) noexcept { min_ = bound; }
  double get_max() const noexcept { return max_; }
  void set_max(double bound) noexcept { max_ = bound; }
  bool test_min(double number) const noexcept { return !use_min_ || number >= min_; }
  bool test_max(double number) const noexcept { return !use_max_ || max_ >= number; }

  bool get_edit_enabled() const noexcept { return edit_enabled_; }
  // A disabled edit is read-only and looks it; it still shows values.
  void set_edit_enabled(bool enabled);

  // Accepts the text and fires on_change, or shows why not and takes the focus
  // back. Returns whether the text was accepted. Text that is still the one
  // set_value showed stands for the value itself, which has more digits.
  bool txt2dbl();

  // Accepts what the user has typed and not yet left, before a form acts on
  // the values. An edit that is hidden, disabled or untouched has nothing to
  // accept. Returns false when the text was refused, after the message.
  bool commit();

  // Whether there is a text that is not accepted yet.
  bool is_being_typed() const { return get_text() != shown_text_; }

  // Reads the whole text, blanks around it aside, as a number with "." in
  // every locale. Returns false and leaves `result` untouched otherwise.
  static bool str2dbl(std::string_view text, double* result);

  // The hint about the last key, if it is on the screen.
  Tzu_vcl_tip const* get_tip() const { return tip_ != nullptr && tip_->IsShown() ? tip_ : nullptr; }

  // Fired after a number is accepted.
  std::function<void()> on_change;
  // Gets the text that the user pastes. Returns whether it took it: then the edit's
  // own text stays as it is.
  std::function<bool(std::wstring const&)> on_paste;
  void call_on_change() const;

 protected:
  wxSize DoGetBestSize() const override;

 private:
  void on_edit_key_press(wxKeyEvent& event);
  void on_edit_exit(wxFocusEvent& event);
  void on_edit_paste(wxClipboardTextEvent& event) const;
  // Whether the letter is none of a number's.
  bool refuse_letter(wxKeyEvent const& event, wchar_t letter);
  void show_tip();
  void hide_tip();

  // Accepts the text and returns empty, or returns the message.
  std::wstring accept_text();
  void show_refusal(std::wstring const& message);
  void show_refusal_after_exit(std::wstring const& refused_text);
  bool is_in_use() const;

  wchar_t const* widest_;
  double value_ = 0;
  bool use_min_ = false;
  bool use_max_ = false;
  double min_ = 0;
  double max_ = 0;
  bool edit_enabled_ = true;
  std::wstring shown_text_;       // the text that stands for value_
  bool refused_ = false;          // the text is one that was not accepted
  bool refusal_waiting_ = false;  // a message is due once the focus has moved
  bool message_open_ = false;
  Tzu_vcl_tip* tip_ = nullptr;  // made when first needed
};
