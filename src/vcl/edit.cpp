#include "vcl/edit.h"

#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/utils.h>

#include <utility>

#include "basic/number.h"
#include "basic/session.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "vcl/clipboard.h"
#include "vcl/event_guard.h"
#include "vcl/form.h"
#include "vcl/panel.h"
#include "vcl/toolkit.h"

namespace {

// All digits that a double holds, and no more.
constexpr int shown_digits = 15;

std::wstring to_text(double number) {
  return zu::strconv::from_utf8(zu::number::format_double(number, shown_digits));
}

// Formatted in the same way as the user's other programs do.
std::wstring to_user_text(double number) {
  std::wstring text = to_text(number);
  auto const point = text.find(L'.');
  return point == std::wstring::npos ? text
                                     : text.replace(point, 1, zu::session::decimal_separator());
}

std::size_t skip_digits(std::string_view text, std::size_t position) {
  auto const end = text.find_first_not_of("0123456789", position);
  return end == std::string_view::npos ? text.size() : end;
}

std::size_t skip_sign(std::string_view text, std::size_t position) {
  bool const sign = position < text.size() && (text[position] == '-' || text[position] == '+');
  return position + (sign ? 1 : 0);
}

// The scanner stops at the end of the number. Here the whole text has to be the number.
bool is_whole_number(std::string_view text) {
  std::size_t const start = skip_sign(text, 0);
  std::size_t position = skip_digits(text, start);
  std::size_t digits = position - start;
  if (position < text.size() && text[position] == '.') {
    std::size_t const end = skip_digits(text, position + 1);
    digits += end - position - 1;
    position = end;
  }
  if (digits == 0) return false;
  if (position < text.size() && (text[position] == 'e' || text[position] == 'E')) {
    std::size_t const exponent = skip_sign(text, position + 1);
    position = skip_digits(text, exponent);
    if (position == exponent) return false;
  }
  return position == text.size();
}

}  // namespace

Tzu_vcl_edit::Tzu_vcl_edit(wxWindow* parent, std::wstring const& text, long style)
    : wxTextCtrl(parent, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, style),
      best_height_(zu::vcl::platform::best_edit_height(*this)) {
  InvalidateBestSize();
}

std::wstring Tzu_vcl_edit::get_text() const { return GetValue().ToStdWstring(); }

void Tzu_vcl_edit::set_text(std::wstring const& text) { ChangeValue(text); }

wxSize Tzu_vcl_edit::DoGetBestSize() const {
  wxSize best = wxTextCtrl::DoGetBestSize();
  best.y = best_height_;
  return best;
}

// The toolkit sends Enter only to edits that ask for it.
Tzu_vcl_dbl_edit::Tzu_vcl_dbl_edit(wxWindow* parent, wchar_t const* widest)
    : Tzu_vcl_edit(parent, {}, wxTE_PROCESS_ENTER), widest_(widest) {
  set_value(0);
  // The toolkit has already asked the base class, because this class did not exist then.
  InvalidateBestSize();
  // On some platforms a letter replaces the selection before wxEVT_CHAR comes. There the
  // letter must not reach the edit.
  zu::vcl::bind_guarded(*this, wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    if (!refuse_letter(event, zu::vcl::platform::letter_of(event))) event.Skip();
  });
  zu::vcl::bind_guarded(*this, wxEVT_CHAR, [this](wxKeyEvent& event) { on_edit_key_press(event); });
  zu::vcl::bind_guarded(*this, wxEVT_KILL_FOCUS,
                        [this](wxFocusEvent& event) { on_edit_exit(event); });
  zu::vcl::bind_guarded(*this, wxEVT_TEXT_PASTE,
                        [this](wxClipboardTextEvent& event) { on_edit_paste(event); });
}

void Tzu_vcl_dbl_edit::set_value(double value) {
  value_ = value;
  shown_text_ = to_text(value);
  refused_ = false;
  set_text(shown_text_);
}

void Tzu_vcl_dbl_edit::set_edit_enabled(bool enabled) {
  if (enabled == edit_enabled_) return;
  edit_enabled_ = enabled;
  SetEditable(enabled);
  SetBackgroundColour(
      wxSystemSettings::GetColour(enabled ? wxSYS_COLOUR_WINDOW : wxSYS_COLOUR_BTNFACE));
  Refresh();
}

bool Tzu_vcl_dbl_edit::txt2dbl() {
  // A message that is still waiting from an earlier exit would be the second one for the same
  // text.
  refusal_waiting_ = false;
  std::wstring const message = accept_text();
  if (message.empty()) return true;
  show_refusal(message);
  return false;
}

bool Tzu_vcl_dbl_edit::commit() {
  if (!is_in_use() || get_text() == shown_text_) return true;
  return txt2dbl();
}

bool Tzu_vcl_dbl_edit::str2dbl(std::string_view text, double* result) {
  std::string const trimmed = zu::strutil::trim(text);
  if (!is_whole_number(trimmed)) return false;
  auto const number = zu::number::scan_double(trimmed);
  if (number) *result = *number;
  return number.has_value();
}

void Tzu_vcl_dbl_edit::call_on_change() const {
  if (on_change) on_change();
}

wxSize Tzu_vcl_dbl_edit::DoGetBestSize() const {
  wxSize best = Tzu_vcl_edit::DoGetBestSize();
  best.x = zu::vcl::platform::edit_width(*this, GetTextExtent(widest_).x);
  return best;
}

void Tzu_vcl_dbl_edit::on_edit_key_press(wxKeyEvent& event) {
  if (event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) {
    if (edit_enabled_) txt2dbl();
    return;
  }
  if (refuse_letter(event, event.GetUnicodeKey())) return;
  hide_tip();
  event.Skip();
}

bool Tzu_vcl_dbl_edit::refuse_letter(wxKeyEvent const& event, wchar_t letter) {
  // The filter lets keys that type nothing and shortcuts pass.
  bool const is_typed = letter != WXK_NONE && letter != WXK_DELETE && !event.HasModifiers();
  bool const is_let_through = (letter >= L'0' && letter <= L'9') || letter == WXK_BACK ||
                              letter == WXK_TAB || letter == L'-' || letter == L'.';
  if (!is_typed || is_let_through) return false;
  if (letter == L',' && edit_enabled_) {
    wxBell();
    show_tip();
  }
  return true;
}

void Tzu_vcl_dbl_edit::show_tip() {
  if (tip_ == nullptr) tip_ = zu::vcl::make_child<Tzu_vcl_tip>(this);
  tip_->show(zu::get_own_text(zu::own_text::type_a_point));
}

void Tzu_vcl_dbl_edit::hide_tip() {
  if (tip_ != nullptr) tip_->Hide();
}

void Tzu_vcl_dbl_edit::on_edit_exit(wxFocusEvent& event) {
  event.Skip();
  hide_tip();
  if (message_open_ || !is_in_use()) return;
  if (accept_text().empty() || refusal_waiting_) return;
  // A message box during a change of focus confuses the toolkit.
  refusal_waiting_ = true;
  zu::vcl::call_after_guarded(*this, [this, text = get_text()] { show_refusal_after_exit(text); });
}

void Tzu_vcl_dbl_edit::on_edit_paste(wxClipboardTextEvent& event) const {
  if (!on_paste || !on_paste(zu::vcl::text_on_clipboard())) event.Skip();
}

std::wstring Tzu_vcl_dbl_edit::accept_text() {
  refused_ = true;
  std::wstring const text = get_text();
  double number = value_;
  if (text != shown_text_ && !str2dbl(zu::strconv::to_utf8(text), &number)) {
    return L"Wrong number: " + text;
  }
  if (!test_min(number)) return L"Number must be greater than: " + to_user_text(min_);
  if (!test_max(number)) return L"Number must be less than: " + to_user_text(max_);
  refused_ = false;
  value_ = number;
  shown_text_ = text;
  call_on_change();
  return {};
}

void Tzu_vcl_dbl_edit::show_refusal(std::wstring const& message) {
  auto* const form = wxGetTopLevelParent(this);
  message_open_ = true;
  wxMessageBox(message, GetName(), wxOK | wxICON_ERROR, form);
  message_open_ = false;
  SetFocus();
}

void Tzu_vcl_dbl_edit::show_refusal_after_exit(std::wstring const& refused_text) {
  if (!std::exchange(refusal_waiting_, false)) return;
  if (!is_in_use() || get_text() != refused_text) return;
  auto const* const form = Tzu_vcl_form::find_form(this);
  if (form == nullptr || !form->is_open()) return;

  // The focus went to another program or a message box: the user has not left the edit.
  wxWindow* const focus = FindFocus();
  if (focus == nullptr || focus == this || Tzu_vcl_form::find_form(focus) != form) return;
  if (focus->GetId() == wxID_CANCEL) return;
  // Two edits with bad numbers would take the focus from each other without end.
  auto const* const other = dynamic_cast<Tzu_vcl_dbl_edit const*>(focus);
  if (other != nullptr && other->refused_) return;

  txt2dbl();
}

bool Tzu_vcl_dbl_edit::is_in_use() const {
  return edit_enabled_ && !IsBeingDeleted() && IsShownOnScreen();
}
