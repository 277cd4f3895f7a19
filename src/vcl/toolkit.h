// Starts the window toolkit inside a host that may not use it.
#pragma once

#include <wx/gdicmn.h>

#include <functional>
#include <stdexcept>
#include <string>

class wxDialog;
class wxKeyEvent;
class wxTextCtrl;
class wxWindow;

namespace zu::vcl {

// The toolkit cannot work in this process, on this thread or on this display. The text tells
// why.
class Tstart_error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Starts the toolkit unless it already runs in this process, because of the host or an earlier
// call. Restores the host's C locale. Throws Tstart_error.
void start();

// Gives a control its name for screen readers and messages.
void set_control_name(wxWindow& control, std::wstring const& name);

// Functions that differ by platform.
namespace platform {

// Called before the toolkit starts. Throws Tstart_error when the start would end the process.
void prepare_start();

// Called at every start when the toolkit runs. Throws Tstart_error when forms would hang or
// end the process.
void check_running();

// Starts the toolkit for the library's own module.
bool start_toolkit();

// Called when the toolkit runs. The toolkit and the application object cannot be removed
// again, so the library must not be unloaded.
void keep_library_loaded();

// Gives a new form the border of a tool window.
void prepare_form(wxDialog& form);

// The height of a single-line control. All lengths of the design grow with it.
int control_height(wxWindow const& window);

// Calls `settle` when the window manager has shown the form with its frame. Does not call it
// when the form is destroyed before that, or on systems where the frame is there at once.
void call_when_framed(wxDialog& form, std::function<void()> const& settle);

// Moves the form with its frame, even when the toolkit believes that it is there already.
void move_to(wxDialog& form, wxPoint const& place);

// The size that the frame adds to the inside of the form; nothing while it is unknown.
wxSize frame_size(wxDialog const& form);

// Keeps the scroll bars visible.
void prepare_scroll_box(wxWindow& box);

// Keep a drop-down list with many items fast. The first is called before it has items, the
// second after it got some.
void prepare_list(wxWindow& list);
void finish_list(wxWindow& list, int widest_text);

// Gives the list the width of its present rows.
void fit_rows(wxWindow& list);

// Whether lists themselves shorten a chosen text that is too long.
bool lists_shorten_captions();
// If not: `open` is called before the list opens, and `close` after it has closed.
void watch_list(wxWindow& list, std::function<void()> const& open,
                std::function<void()> const& close);

// Gives the keyboard to the first control of a form that has just appeared.
void focus_first(wxWindow& list);

// Adds the controls that have appeared since to the order of the Tab key.
void renew_tab_order(wxWindow& window);

// Lets the window receive dropped files as wxEVT_DROP_FILES.
void accept_dropped_files(wxWindow& window);

// Tells screen readers that `label` is the label of `control`.
void relate_label(wxWindow& label, wxWindow& control);
// Tells screen readers the control's name in the toolkit.
void announce_name(wxWindow& control);

// The letter that a key types into an edit, on systems where the toolkit's own event for
// letters comes too late; zero elsewhere.
wchar_t letter_of(wxKeyEvent const& event);

// The natural height of a visible single-line edit, and the width that it needs for a text of
// `text_width`.
int best_edit_height(wxTextCtrl const& edit);
int edit_width(wxTextCtrl const& edit, int text_width);

}  // namespace platform
}  // namespace zu::vcl
