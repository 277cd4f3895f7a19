#include "gui_support.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/scrolwin.h>
#include <wx/statbox.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "float_state.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace gui {
namespace {

constexpr std::chrono::seconds patience_of_watch_dog(20);
constexpr int heartbeat_ms = 100;

std::string in_vain(std::string const& what) { return "waited too long for " + what; }

// Ends the program when nothing has happened for too long. It needs its own thread because
// the thread of the dialog may be blocked.
class Twatch_dog {
 public:
  static Twatch_dog& instance() {
    static Twatch_dog dog;
    return dog;
  }
  // Returns what the program waited for before. Empty if it waits for nothing.
  std::string await(std::string what) {
    std::lock_guard const lock(state_->mutex);
    state_->since = clock::now();
    return std::exchange(state_->what, std::move(what));
  }

 private:
  using clock = std::chrono::steady_clock;
  struct Tstate {
    std::mutex mutex;
    std::string what;
    clock::time_point since;
  };

  // The thread ends with the program. Nobody may wait for it then.
  Twatch_dog() {
    std::thread([state = state_] { watch(*state); }).detach();
  }
  static void watch(Tstate& state) {
    for (;; std::this_thread::sleep_for(std::chrono::seconds(1))) {
      std::lock_guard const lock(state.mutex);
      if (state.what.empty() || clock::now() - state.since < patience_of_watch_dog) continue;
      std::cerr << "error: the program " << in_vain(state.what) << ", and its thread is blocked\n";
      std::_Exit(EXIT_FAILURE);
    }
  }

  std::shared_ptr<Tstate> state_ = std::make_shared<Tstate>();
};

// Names what the program waits for in a scope.
class Tawaited {
 public:
  explicit Tawaited(std::string what) : before_(Twatch_dog::instance().await(std::move(what))) {}
  ~Tawaited() { Twatch_dog::instance().await(std::move(before_)); }
  Tawaited(Tawaited const&) = delete;
  Tawaited& operator=(Tawaited const&) = delete;

 private:
  std::string before_;
};

void pump() {
  if (auto* const loop = wxEventLoopBase::GetActive()) loop->YieldFor(wxEVT_CATEGORY_ALL);
}

// Sets floating-point traps as Pascal hosts have them. A call of the library must not
// change them, also when it throws.
class Ttrapping_host {
 public:
  Ttrapping_host() { core_test::trapping.set(); }
  ~Ttrapping_host() {
    auto const left = core_test::Tfloat_state::get();
    core_test::Tfloat_state().set();
    EXPECT_EQ(left, core_test::trapping);
  }
  Ttrapping_host(Ttrapping_host const&) = delete;
  Ttrapping_host& operator=(Ttrapping_host const&) = delete;
};

class Tevent_watch : public wxEventFilter {
 public:
  explicit Tevent_watch(wxEventType type) : type_(type) { wxEvtHandler::AddFilter(this); }
  ~Tevent_watch() override { wxEvtHandler::RemoveFilter(this); }
  Tevent_watch(Tevent_watch const&) = delete;
  Tevent_watch& operator=(Tevent_watch const&) = delete;

  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() == type_) seen_ = true;
    return Event_Skip;
  }
  bool is_seen() const { return seen_; }

 private:
  wxEventType type_;
  bool seen_ = false;
};

// The display server delivers input later. The last event shows that the program has
// handled all of it. A form that has closed gets no more events.
void send(std::string const& name, wxEventType last, std::function<void()> const& input) {
  Tevent_watch const watch(last);
  input();
  wait_for(name, [&] { return watch.is_seen() || find_open_form() == nullptr; });
  pump();
}

void point_at(wxWindow& control) {
  wait_for("the place of the control", [&] { return platform::is_settled(control); });
  wxSize const size = control.GetSize();
  wxUIActionSimulator().MouseMove(control.ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
}

bool has_scrolled(wxWindow const& window) {
  auto const& children = window.GetChildren();
  return dynamic_cast<wxScrolledWindow const*>(&window) != nullptr ||
         std::any_of(children.begin(), children.end(),
                     [](wxWindow const* child) { return has_scrolled(*child); });
}

bool overlaps_another(wxWindow const& control) {
  auto const& siblings = control.GetParent()->GetChildren();
  return std::any_of(siblings.begin(), siblings.end(), [&](wxWindow const* other) {
    return other != &control && other->IsShown() && !other->IsTopLevel() &&
           other->GetRect().Intersects(control.GetRect());
  });
}

}  // namespace

void wait_for(std::string const& what, std::function<bool()> const& condition) {
  Tawaited const awaited(what);
  for (wxStopWatch const watch; watch.Time() < patience_ms; wxMilliSleep(1)) {
    pump();
    if (condition()) return;
  }
  give_up(what);
}

void give_up(std::string const& what) { throw std::runtime_error(in_vain(what)); }

Tzu_vcl_form* find_open_form() {
  for (wxWindow* const window : wxTopLevelWindows) {
    auto* const form = dynamic_cast<Tzu_vcl_form*>(window);
    if (form != nullptr && form->is_open()) return form;
  }
  return nullptr;
}

void run_in_form(std::function<void()> const& open,
                 std::function<void(Tzu_vcl_form&)> const& script) {
  std::exception_ptr failure;
  wxTimer start;
  start.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
    Tzu_vcl_form* form = nullptr;
    try {
      // An exception may have closed the form already.
      wait_for("the form and its keyboard", [&] {
        form = find_open_form();
        return form == nullptr || platform::has_keyboard(*form);
      });
      if (form != nullptr) script(*form);
    } catch (...) {
      failure = std::current_exception();
    }
    if (form != nullptr) form->close_form();
  });
  // Under Wine the toolkit may see a message, not get it, and then wait for the next one.
  wxTimer heartbeat;
  platform::prepare_display();
  heartbeat.Start(heartbeat_ms);
  start.StartOnce(0);
  {
    Tawaited const end("the end of the dialog");
    open();
  }
  if (failure) std::rethrow_exception(failure);
}

outcome open_dialog(char const* definition, std::function<void(Tform&)> const& script,
                    void* owner) {
  unsigned char changed = 7;
  char const* given = nullptr;
  run_in_form(
      [&] {
        Ttrapping_host const host;
        given = zu_proj4_form_execute(owner, definition, &changed);
      },
      [&](Tzu_vcl_form& form) { script(dynamic_cast<Tform&>(form)); });
  return {given, given, changed};
}

Tzu_vcl_dbl_edit& number(Tform& form, proj_number which) {
  return *form.get_editor()->get_proj()->get_params()->get_edit(which)->get_edit();
}
Tzu_vcl_selbox& type(Tform& form) { return *form.get_editor()->get_type()->get_selbox(); }
Tzu_vcl_selbox& datum(Tform& form) {
  return *form.get_editor()->get_datum()->get_datum()->get_selbox();
}
Tzu_vcl_selbox& ellipse(Tform& form) {
  return *form.get_editor()->get_datum()->get_ellipse()->get_ellipse()->get_selbox();
}
Tzu_vcl_dbl_edit& shift(Tform& form, std::size_t index) {
  return *form.get_editor()->get_datum()->get_params()->get_edit(index);
}
void press_button(Tform& form, Tbar::button_index button) {
  click(*form.get_buttons()->get_button(button));
}
void apply(Tform& form) { press_button(form, Tbar::apply); }
void cancel(Tform& form) { press_button(form, Tbar::cancel); }

void focus(wxWindow& control) {
  control.SetFocus();
  wxString const what = wxString::Format("the focus of %s \"%s\"",
                                         control.GetClassInfo()->GetClassName(), control.GetName());
  wait_for(what.ToStdString(), [&] { return platform::has_focus(control); });
}

void press(int key, int modifiers) {
  send("key " + std::to_string(key), wxEVT_KEY_UP,
       [&] { wxUIActionSimulator().Char(key, modifiers); });
}

void type_over(wxWindow& edit, std::string_view text) {
  focus(edit);
  dynamic_cast<wxTextCtrl&>(edit).SelectAll();
  for (char const character : text) {
    std::string const letter(1, character);
    send(letter, wxEVT_KEY_UP, [&] { wxUIActionSimulator().Text(letter.c_str()); });
  }
}

void click(wxWindow& control) {
  point_at(control);
  send("the click", wxEVT_LEFT_UP, [] { wxUIActionSimulator().MouseClick(); });
}

void turn_wheel(wxWindow& control) {
  point_at(control);
  send("the wheel", wxEVT_MOUSEWHEEL, platform::turn_wheel);
}

void pick(Tzu_vcl_selbox& list, std::wstring const& caption) {
  int const position = list.FindString(caption);
  ASSERT_NE(position, wxNOT_FOUND) << wxString(caption).utf8_str();
  ASSERT_TRUE(list.IsShownOnScreen() && list.IsEnabled()) << wxString(caption).utf8_str();
  platform::pick(list, position);
  pump();
}

std::vector<std::wstring> find_clipped(wxWindow& root, int* slack) {
  std::vector<std::wstring> clipped;
  for (wxWindow* const child : root.GetChildren()) {
    if (!child->IsShown() || child->IsTopLevel()) continue;
    wxSize const size = child->GetSize();
    child->InvalidateBestSize();
    // A window that scrolls needs less room, and so does its parent.
    bool const is_elastic = has_scrolled(*child);
    wxSize const best = is_elastic ? wxSize() : child->GetBestSize();
    // The content of a window that scrolls may have any size.
    auto* const box = dynamic_cast<wxScrolledWindow*>(&root);
    wxRect const room(box == nullptr ? wxPoint() : box->CalcScrolledPosition(wxPoint()),
                      box == nullptr ? root.GetClientSize() : root.GetVirtualSize());
    bool const is_cut =
        dynamic_cast<wxStaticBox*>(&root) == nullptr && !room.Contains(child->GetRect());
    if (slack != nullptr) *slack = std::min({*slack, size.x - best.x, size.y - best.y});
    if (size.x < best.x || size.y < best.y || is_cut || overlaps_another(*child)) {
      clipped.push_back(wxString::Format(L"%s '%s' %dx%d of %dx%d",
                                         child->GetClassInfo()->GetClassName(), child->GetLabel(),
                                         size.x, size.y, best.x, best.y)
                            .ToStdWstring());
    }
    auto const inner = find_clipped(*child, slack);
    clipped.insert(clipped.end(), inner.begin(), inner.end());
  }
  return clipped;
}

Tanswers::~Tanswers() {
  Unregister();
  EXPECT_TRUE(expected_.empty()) << in_vain(std::to_string(expected_.size()))
                                 << " message boxes or file dialogs";
}

int Tanswers::Enter(wxDialog* dialog) {
  auto* const message = dynamic_cast<wxMessageDialog*>(dialog);
  auto* const file = dynamic_cast<wxFileDialog*>(dialog);
  // The tests use the library's own windows by keys.
  if (message == nullptr && file == nullptr) return wxID_NONE;
  if (message != nullptr)
    messages_.push_back((message->GetTitle() + L": " + message->GetMessage()).ToStdWstring());
  if (expected_.empty()) {
    ADD_FAILURE() << "unexpected dialog: "
                  << (message != nullptr ? message->GetMessage().utf8_str() : "");
    return wxID_CANCEL;
  }
  Tanswer const answer = expected_.front();
  expected_.pop_front();
  EXPECT_EQ(file != nullptr, !answer.path.empty()) << "a dialog of another kind was expected";
  if (file != nullptr) {
    messages_.push_back(wxString::Format(L"%s: %s, %d", file->GetMessage(), file->GetDirectory(),
                                         file->GetFilterIndex())
                            .ToStdWstring());
    file->SetPath(answer.path);
    wait_for("the path in the file dialog", [&] { return file->GetPath() == answer.path; });
    // The path's extension chooses a filter by itself.
    file->SetFilterIndex(answer.filter_index);
  }
  return answer.result;
}

}  // namespace gui
