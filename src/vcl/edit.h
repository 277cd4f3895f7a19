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

  // A read-only text can be copied by the keyboard.
  bool AcceptsFocusFromKeyboard() const override { return AcceptsFocus(); }

 protected:
  wxSize DoGetBestSize() const override;

 private:
  int best_height_;
};

// Holds one number and refuses bad input. A refused text stays in the edit, so that the user
// can correct it; the value is still the last accepted one.
class Tzu_vcl_dbl_edit : public Tzu_vcl_edit {
 public:
  // Wide enough for a false northing with its decimals.
  static constexpr wchar_t const* widest_number = L"-00000000.000";

  // The edit is wide enough for the text `widest`, which must live as long as the edit.
  explicit Tzu_vcl_dbl_edit(wxWindow* parent, wchar_t const* widest = widest_number);

  double get_value() const noexcept { return value_; }
  // Stores the value unchanged and shows it with 15 significant digits. Fires no event and
  // tests no bounds.
  void set_value(double value);

  // Bounds are inclusive. A bound counts only while its use flag is set.
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
  // A disabled edit is read-only and looks disabled. It still shows values.
  void set_edit_enabled(bool enabled);

  // Accepts the text and fires on_change, or shows the reason of a refusal and takes the focus
  // back. Returns whether the text was accepted. When the text is still the one that set_value
  // showed, the value keeps all its digits.
  bool txt2dbl();

  // Accepts a typed text while its edit still has the focus. A form calls this before it uses
  // the values. A hidden, disabled or untouched edit has nothing to accept. Returns false when
  // the text was refused, after the message.
  bool commit();

  // Whether the edit has a text that is not accepted yet.
  bool is_being_typed() const { return get_text() != shown_text_; }

  // Reads the whole text as a number, with "." in every locale; blanks at both ends are
  // ignored. Otherwise returns false and leaves `result` unchanged.
  static bool str2dbl(std::string_view text, double* result);

  // The hint about the last key, when it is on the screen.
  Tzu_vcl_tip const* get_tip() const { return tip_ != nullptr && tip_->IsShown() ? tip_ : nullptr; }

  // Fired after a number is accepted.
  std::function<void()> on_change;
  // Receives the text that the user pastes. Returns true when it has used the text; then the
  // text of the edit does not change.
  std::function<bool(std::wstring const&)> on_paste;
  void call_on_change() const;

 protected:
  wxSize DoGetBestSize() const override;

 private:
  void on_edit_key_press(wxKeyEvent& event);
  void on_edit_exit(wxFocusEvent& event);
  void on_edit_paste(wxClipboardTextEvent& event) const;
  // Whether the letter cannot be a part of a number.
  bool refuse_letter(wxKeyEvent const& event, wchar_t letter);
  void show_tip();
  void hide_tip();

  // Accepts the text and returns an empty text, or returns the message.
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
  std::wstring shown_text_;       // the text that set_value showed for value_
  bool refused_ = false;          // the current text was refused
  bool refusal_waiting_ = false;  // a message has to come after the focus has moved
  bool message_open_ = false;
  Tzu_vcl_tip* tip_ = nullptr;  // made when first needed
};
