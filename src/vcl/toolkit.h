// Start of the window toolkit inside a host that may know nothing of it.
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

// The toolkit cannot work in this process, on this thread or on this display; the
// text says why.
class Tstart_error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Starts the toolkit unless it already runs in this process, be it the host's
// or from an earlier call. The host's C locale is what it was afterwards.
// Throws Tstart_error.
void start();

// Gives a control the name by which screen readers and messages know it.
void set_control_name(wxWindow& control, std::wstring const& name);

// What differs by platform.
namespace platform {

// Called before the toolkit starts. Throws Tstart_error where the start would end
// the process.
void prepare_start();

// Called at every start, when the toolkit runs. Throws Tstart_error where forms
// would hang or end the process.
void check_running();

// The toolkit's own start, on behalf of the library's module.
bool start_toolkit();

// Called once the toolkit runs: neither the toolkit nor the application object
// can be taken down again, so the library must not be unmapped under them.
void keep_library_loaded();

// Gives a new form the border of a tool window.
void prepare_form(wxDialog& form);

// The height of a single-line control that stands for that of the design, with
// which all lengths of the design grow.
int control_height(wxWindow const& window);

// Calls `settle` when the window manager has mapped the form and given it its
// frame, unless the form is gone by then; never where no frame comes that late.
void call_when_framed(wxDialog& form, std::function<void()> const& settle);

// Moves the form, frame and all, also where the toolkit believes it to be there.
void move_to(wxDialog& form, wxPoint const& place);

// What the frame adds to the form's inside; nothing while it is not known.
wxSize frame_size(wxDialog const& form);

// Bars that show what there is to scroll are to stay in sight.
void prepare_scroll_box(wxWindow& box);

// Keep a drop-down list quick however many items it gets: before it has any, and
// after it got some.
void prepare_list(wxWindow& list);
void finish_list(wxWindow& list, int widest_text);

// Whether lists by themselves shorten a chosen text that they have no room for.
bool lists_shorten_captions();
// Where they do not: `open` is called before the list opens, `close` after it has
// closed again.
void watch_list(wxWindow& list, std::function<void()> const& open,
                std::function<void()> const& close);

// Gives the keyboard to the first control of a form that has just appeared.
void focus_first(wxWindow& list);

// Puts what has appeared since into the order of the Tab key.
void renew_tab_order(wxWindow& window);

// Files that are dropped on the window come to it as wxEVT_DROP_FILES.
void accept_dropped_files(wxWindow& window);

// Tells screen readers that `label` stands for `control`.
void relate_label(wxWindow& label, wxWindow& control);
// Tells them the name that the control has for the toolkit.
void announce_name(wxWindow& control);

// The letter that a key types into an edit, where the toolkit asks about letters
// too late; zero elsewhere.
wchar_t letter_of(wxKeyEvent const& event);

// The natural height of a single-line edit that is not hidden, and the width that
// it needs for a text of `text_width`.
int best_edit_height(wxTextCtrl const& edit);
int edit_width(wxTextCtrl const& edit, int text_width);

}  // namespace platform
}  // namespace zu::vcl
