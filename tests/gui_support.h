// Driving forms from tests as a user would.
#pragma once

#include <wx/modalhook.h>
#include <wx/window.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vcl/form.h"
#include "vcl/selbox.h"

namespace gui {

// Lets the pending events of the toolkit run.
void pump();

// Pumps until `condition` holds; false when it does not within a time that only
// a fault can take.
bool wait_until(std::function<bool()> const& condition);

// Shows the form, runs `script` when it is on the screen and has the keyboard,
// and closes it. A form that does not close in time fails the test.
void show_and_run(Tzu_vcl_form& form, std::function<void()> const& script);

// The same for a form that `open` makes and shows by itself.
void run_in_form(std::function<void()> const& open,
                 std::function<void(Tzu_vcl_form&)> const& script);

// Real input through the display. Each returns when the program has handled it.
void focus(wxWindow& control);
void press(int key, int modifiers = wxMOD_NONE);
// Replaces the text of a focused control, key by key.
void type_over(wxWindow& control, std::string_view text);
void click(wxWindow& control);
// One notch towards the user, with the pointer on the control.
void turn_wheel(wxWindow& control);
// Picks an item of a list.
void pick(Tzu_vcl_selbox& list, std::wstring const& caption);

// Shown controls that are smaller than they need, or in another's place.
std::vector<std::wstring> find_clipped(wxWindow& root);

// `path` is without an extension: the format is the platform's.
void save_screenshot(wxWindow& window, std::string const& path);

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
  // Texts of the messages shown since the last call.
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
  ~Tforeign_window();
  Tforeign_window(Tforeign_window const&) = delete;
  Tforeign_window& operator=(Tforeign_window const&) = delete;

  void* get_handle() const;
  void destroy();

 private:
  class Timpl;
  std::unique_ptr<Timpl> impl_;
};

// The window that the window system is told owns `form`, null for none.
void* get_owner(Tzu_vcl_form const& form);
// Whether a form stays when its owner goes.
bool is_form_to_outlive_owner();

// What differs by platform in the above.
namespace platform {

// Called before a form comes up.
void prepare_display();
// Whether the keys go to a form that is on the screen; asks for them.
bool has_keyboard(Tzu_vcl_form& form);
// Whether the window system has the control where the toolkit says it is.
bool is_settled(wxWindow const& control);
void turn_wheel();
void pick(Tzu_vcl_selbox& list, int position);
// Whether it is saved.
bool save_picture(wxWindow& window, std::string const& path);

}  // namespace platform
}  // namespace gui
