// Driving forms from tests as a user would.
#pragma once

#include <wx/modalhook.h>
#include <wx/window.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pj_edit/vcl_pj_edit_form.h"

namespace gui {

// Handles events until `condition` holds. After 10 seconds it throws, and the message
// contains `what`. The program ends with the same message when an event handler keeps
// this function from returning.
void wait_for(std::string const& what, std::function<bool()> const& condition);
inline constexpr int patience_ms = 10'000;
// Throws what wait_for throws.
[[noreturn]] void give_up(std::string const& what);

// The form that is open; null if there is none.
Tzu_vcl_form* find_open_form();

// Calls `open`, runs `script` when the form is on the screen and has the keyboard, and
// closes the form. Throws what the script throws.
void run_in_form(std::function<void()> const& open,
                 std::function<void(Tzu_vcl_form&)> const& script);

using Tbar = Tzu_vcl_bottom_buttons;
using Tform = Tzu_vcl_pj_edit_form;

inline constexpr char const* moscow_tm =
    "+proj=tmerc +lon_0=37.5 +lat_0=55.5 +x_0=12 +y_0=14 +k_0=1 +towgs84=1,2,3,0,0,0,0 "
    "+ellps=krass +units=m +lon_wrap=45 +no_defs";

struct outcome {
  char const* given;  // the library's, until the next call
  std::string text;
  int changed;
};

// Opens the dialog through the exported function and runs the script in it.
outcome open_dialog(char const* definition, std::function<void(Tform&)> const& script,
                    void* owner = nullptr);

// The dialog's controls.
Tzu_vcl_dbl_edit& number(Tform& form, proj_number which);
Tzu_vcl_selbox& type(Tform& form);
Tzu_vcl_selbox& datum(Tform& form);
Tzu_vcl_selbox& ellipse(Tform& form);
Tzu_vcl_dbl_edit& shift(Tform& form, std::size_t index);
void press_button(Tform& form, Tbar::button_index button);
void apply(Tform& form);
void cancel(Tform& form);

// Real input through the display. Each function returns when the program has handled it.
void focus(wxWindow& control);
void press(int key, int modifiers = wxMOD_NONE);
// Replaces the text of an edit, key by key.
void type_over(wxWindow& edit, std::string_view text);
void click(wxWindow& control);
// Turns the wheel down by one step, with the pointer on the control.
void turn_wheel(wxWindow& control);
// Chooses an item of a list.
void pick(Tzu_vcl_selbox& list, std::wstring const& caption);

// The visible controls that are too small, that are outside their parent, or that overlap
// another one. `slack` gets the smallest number of spare pixels.
std::vector<std::wstring> find_clipped(wxWindow& root, int* slack = nullptr);

// Answers message boxes and file dialogs instead of the user, in the expected order.
// An unexpected one and a missing one fail the test.
class Tanswers : private wxModalDialogHook {
 public:
  Tanswers() { Register(); }
  ~Tanswers() override;

  void expect_message(int result = wxID_OK) { expected_.push_back({result, {}, 0}); }
  // Filter indexes count from 0.
  void expect_file(std::wstring path, int filter_index, int result = wxID_OK) {
    expected_.push_back({result, std::move(path), filter_index});
  }
  // The messages since the last call, each as "title: text". A file dialog is
  // "title: folder, filter index".
  std::vector<std::wstring> take_messages() { return std::exchange(messages_, {}); }

 private:
  struct Tanswer {
    int result;
    std::wstring path;
    int filter_index;
  };

  int Enter(wxDialog* dialog) override;
  void Exit(wxDialog* /*dialog*/) override {}

  std::deque<Tanswer> expected_;
  std::vector<std::wstring> messages_;
};

// A window of another program. The library knows only its id.
class Tforeign_window {
 public:
  explicit Tforeign_window(wxRect const& place);
  void* get_handle() const { return handle_; }
  wxRect get_frame() const;
  void destroy() { window_.reset(); }

 private:
  std::shared_ptr<void> window_;
  void* handle_ = nullptr;
};

// The distance between the centres of the form and the owner, with their frames. It is
// zero on a display that does not tell places.
wxPoint offset_of(Tzu_vcl_form const& form, Tforeign_window const& owner);
// Whether the keys go to the owner. True if the display has no window manager.
bool has_focus(Tforeign_window const& owner);
// The form's owner as the window system knows it; null if there is none.
void* get_owner(Tzu_vcl_form const& form);
// Whether a form stays open when its owner is destroyed.
bool is_form_to_outlive_owner();

// The parts that differ by platform.
namespace platform {

// Call this before a form opens.
void prepare_display();
// Whether the form is on the screen and gets the keys. If not, asks for them.
bool has_keyboard(wxTopLevelWindow& form);
// Whether the keys of the form go to this control.
bool has_focus(wxWindow const& control);
// Whether the toolkit and the window system agree where the control is.
bool is_settled(wxWindow const& control);
void turn_wheel();
void pick(Tzu_vcl_selbox& list, int position);
void drop_file(wxWindow& window, std::wstring const& name);

}  // namespace platform
}  // namespace gui
