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

// Lets the pending events run until `condition` holds; false when it does not
// within a time that only a fault can take.
bool wait_until(std::function<bool()> const& condition);

// The form that waits for its user, null for none.
Tzu_vcl_form* find_open_form();

// Runs `script` in the form that `open` shows, when it is on the screen and has
// the keyboard, and closes it. One that does not close in time fails the test.
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

// Real input through the display. Each returns when the program has handled it.
void focus(wxWindow& control);
void press(int key, int modifiers = wxMOD_NONE);
// Replaces the text of an edit, key by key.
void type_over(wxWindow& edit, std::string_view text);
void click(wxWindow& control);
// One notch towards the user, with the pointer on the control.
void turn_wheel(wxWindow& control);
// Picks an item of a list.
void pick(Tzu_vcl_selbox& list, std::wstring const& caption);

// Shown controls that are smaller than they need, outside of what holds them, or
// in another's place; `slack` gets the pixels that the tightest one has to spare.
std::vector<std::wstring> find_clipped(wxWindow& root, int* slack = nullptr);

// Answers the message boxes and file dialogs of a scope instead of the user, in
// the order expected. One too many or too few fails the test.
class Tanswers : private wxModalDialogHook {
 public:
  Tanswers() { Register(); }
  ~Tanswers() override;

  void expect_message(int result = wxID_OK) { expected_.push_back({result, {}, 0}); }
  // Filter indexes count from 0.
  void expect_file(std::wstring path, int filter_index, int result = wxID_OK) {
    expected_.push_back({result, std::move(path), filter_index});
  }
  // Messages shown since the last call, each as "title: text", and file dialogs as
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

// A window of another program: all that the library knows of it is its id.
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

// How far the form's centre is from the owner's, frames and all; nothing where the
// display's programs cannot know.
wxPoint offset_of(Tzu_vcl_form const& form, Tforeign_window const& owner);
// Whether the keys go to the owner, where anybody sees to that.
bool has_focus(Tforeign_window const& owner);
// The window that the window system is told owns `form`, null for none.
void* get_owner(Tzu_vcl_form const& form);
// Whether a form stays when its owner goes.
bool is_form_to_outlive_owner();

// What differs by platform in the above.
namespace platform {

// Called before a form comes up.
void prepare_display();
// Whether the keys go to a form that is on the screen; asks for them.
bool has_keyboard(wxTopLevelWindow& form);
// Whether the window system has the control where the toolkit says it is.
bool is_settled(wxWindow const& control);
void turn_wheel();
void pick(Tzu_vcl_selbox& list, int position);
void drop_file(wxWindow& window, std::wstring const& name);

}  // namespace platform
}  // namespace gui
