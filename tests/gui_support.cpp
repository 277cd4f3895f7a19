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
#include <exception>

#include "float_state.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace gui {
namespace {

constexpr int patience_ms = 10'000;
constexpr int whole_script_ms = 60'000;
constexpr int heartbeat_ms = 100;

void pump() {
  if (auto* const loop = wxEventLoopBase::GetActive()) loop->YieldFor(wxEVT_CATEGORY_ALL);
}

// What hosts of the Pascal family are, for a scope that a call of the library fills: it
// must leave them so, on every way out.
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

// Input arrives when the display server sends it; its last event tells that
// the program has handled it all. A form that the first of it closes gets no
// more.
void send(std::string const& name, wxEventType last, std::function<void()> const& input) {
  Tevent_watch const watch(last);
  input();
  EXPECT_TRUE(wait_until([&] { return watch.is_seen() || find_open_form() == nullptr; }))
      << name << " does not arrive";
  pump();
}

void point_at(wxWindow& control) {
  EXPECT_TRUE(wait_until([&] { return platform::is_settled(control); }))
      << "the control does not settle";
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

bool wait_until(std::function<bool()> const& condition) {
  for (wxStopWatch const watch; watch.Time() < patience_ms; wxMilliSleep(1)) {
    pump();
    if (condition()) return true;
  }
  return false;
}

Tzu_vcl_form* find_open_form() {
  for (wxWindow* const window : wxTopLevelWindows) {
    auto* const form = dynamic_cast<Tzu_vcl_form*>(window);
    if (form != nullptr && form->is_open()) return form;
  }
  return nullptr;
}

void run_in_form(std::function<void()> const& open,
                 std::function<void(Tzu_vcl_form&)> const& script) {
  wxTimer start;
  start.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
    Tzu_vcl_form* form = nullptr;
    try {
      // A form may also be closed by what happens while it comes up.
      EXPECT_TRUE(wait_until([&] {
        form = find_open_form();
        return form == nullptr || platform::has_keyboard(*form);
      })) << "the form does not come up";
      if (form != nullptr) script(*form);
    } catch (std::exception const& error) {
      ADD_FAILURE() << "the script of the test throws: " << error.what();
    }
    if (form != nullptr) form->close_form();
  });
  wxTimer watch_dog;
  watch_dog.Bind(wxEVT_TIMER, [](wxTimerEvent&) {
    ADD_FAILURE() << "the form does not close";
    if (Tzu_vcl_form* const form = find_open_form()) form->close_form();
  });
  // Under Wine a message may be gone between the look for it and its removal, and the
  // toolkit then waits for the next one.
  wxTimer heartbeat;
  platform::prepare_display();
  heartbeat.Start(heartbeat_ms);
  start.StartOnce(0);
  watch_dog.StartOnce(whole_script_ms);
  open();
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
  EXPECT_TRUE(wait_until([&] { return wxWindow::FindFocus() == &control; })) << "no focus";
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
    // What scrolls, and what holds that, makes do with less.
    bool const is_elastic = has_scrolled(*child);
    wxSize const best = is_elastic ? wxSize() : child->GetBestSize();
    // What scrolls may be as large as it likes.
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
  EXPECT_TRUE(expected_.empty()) << expected_.size() << " dialogs were expected and not shown";
}

int Tanswers::Enter(wxDialog* dialog) {
  auto* const message = dynamic_cast<wxMessageDialog*>(dialog);
  auto* const file = dynamic_cast<wxFileDialog*>(dialog);
  // The library's own windows are worked by keys.
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
    EXPECT_TRUE(wait_until([&] { return file->GetPath() == answer.path; })) << "path not taken";
    // The path's extension chooses a filter by itself.
    file->SetFilterIndex(answer.filter_index);
  }
  return answer.result;
}

}  // namespace gui
