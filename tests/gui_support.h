// Driving forms from tests as a user would.
#pragma once

#include <wx/modalhook.h>
#include <wx/timer.h>
#include <wx/window.h>

#include <chrono>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pj_edit/vcl_pj_edit_form.h"

namespace gui {

inline constexpr std::chrono::milliseconds patience{10'000};
// While the result lives, the program waits for `what`. After twice the patience the program ends
// and names it: an event handler, or a window that nobody expected, may keep the test from it.
std::shared_ptr<void> watch_over(std::string what);
// Handles events until `condition` holds. When it runs out of patience, it throws, and the
// message contains `what`.
void wait_for(std::string const& what, std::function<bool()> const& condition);

// The modal window of this class that is open; null if there is none.
template <class Window>
Window* find_open() {
  for (wxWindow* const each : wxTopLevelWindows) {
    auto* const window = dynamic_cast<Window*>(each);
    if (window != nullptr && window->IsModal() && window->IsShown()) return window;
  }
  return nullptr;
}

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

// The smallest number of spare pixels of the visible controls. Negative if one is too small, is
// outside its parent, or overlaps another one.
int spare_pixels(wxWindow& root);

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

// Calls `open`, runs `script` when the window of this class is on the screen and has the
// keyboard, and closes the window. Throws what the script throws.
template <class Window>
void run_in(std::function<void()> const& open, std::function<void(Window&)> const& script) {
  constexpr int look_again_ms = 20;
  bool is_done = false;
  std::exception_ptr failure;
  // The window's own loop runs inside `open`, so only a timer can start the script. It runs on:
  // under Wine the toolkit may see a message, not get it, and then wait for the next one.
  wxTimer look;
  look.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
    auto* const window = is_done ? nullptr : find_open<Window>();
    if (window == nullptr) return;
    is_done = true;
    try {
      wait_for("the window's keyboard", [&] { return platform::has_keyboard(*window); });
      script(*window);
    } catch (...) {
      failure = std::current_exception();
    }
    if (auto* const left = find_open<Window>()) left->Close();
  });
  look.Start(look_again_ms);
  {
    auto const watched = watch_over("the end of the dialog");
    open();
  }
  wait_for("the window's script", [&] { return is_done; });
  if (failure) std::rethrow_exception(failure);
}

}  // namespace gui
