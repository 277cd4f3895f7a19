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
#include <wx/uiaction.h>

#include <algorithm>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "float_state.h"
#include "text/rc.h"
#include "vcl/look_scope.h"
#include "vcl/toolkit.h"
#include "zu_pj_edit/zu_pj_edit.h"

namespace gui {
namespace {

struct Tawaited {
  std::mutex mutex;
  std::string what;
  std::chrono::steady_clock::time_point since;
};

// The thread ends with the program, so it must not need a static object then.
std::shared_ptr<Tawaited> const& awaited() {
  static std::shared_ptr<Tawaited> const instance = [] {
    auto made = std::make_shared<Tawaited>();
    std::thread([made] {
      for (;; std::this_thread::sleep_for(std::chrono::seconds(1))) {
        std::lock_guard const lock(made->mutex);
        if (made->what.empty() || std::chrono::steady_clock::now() - made->since < 2 * patience)
          continue;
        std::cerr << "error: waited too long for " << made->what << ", and nothing else runs\n";
        std::_Exit(EXIT_FAILURE);
      }
    }).detach();
    return made;
  }();
  return instance;
}

std::string set_awaited(std::string what) {
  std::lock_guard const lock(awaited()->mutex);
  awaited()->since = std::chrono::steady_clock::now();
  return std::exchange(awaited()->what, std::move(what));
}

void pump() {
  if (auto* const loop = wxEventLoopBase::GetActive()) loop->YieldFor(wxEVT_CATEGORY_ALL);
}

struct Tevent_watch : wxEventFilter {
  explicit Tevent_watch(wxEventType awaited) : type(awaited) { wxEvtHandler::AddFilter(this); }
  ~Tevent_watch() override { wxEvtHandler::RemoveFilter(this); }
  Tevent_watch(Tevent_watch const&) = delete;
  Tevent_watch& operator=(Tevent_watch const&) = delete;

  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() == type) is_seen = true;
    return Event_Skip;
  }

  wxEventType type;
  bool is_seen = false;
};

// The display server delivers input later. The last event shows that the program has
// handled all of it. A form that has closed gets no more events.
void send(std::string const& name, wxEventType last, std::function<void()> const& input) {
  Tevent_watch const watch(last);
  input();
  wait_for(name, [&] { return watch.is_seen || find_open<Tzu_vcl_form>() == nullptr; });
  pump();
}

void point_at(wxWindow& control) {
  wait_for("the place of the control", [&] { return platform::is_settled(control); });
  wxSize const size = control.GetSize();
  wxUIActionSimulator().MouseMove(control.ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
}

bool has_scrolled(wxWindow const& window) {
  return dynamic_cast<wxScrolledWindow const*>(&window) != nullptr ||
         std::ranges::any_of(window.GetChildren(),
                             [](wxWindow const* child) { return has_scrolled(*child); });
}

bool overlaps_another(wxWindow const& control) {
  return std::ranges::any_of(control.GetParent()->GetChildren(), [&](wxWindow const* other) {
    return other != &control && other->IsShown() && !other->IsTopLevel() &&
           other->GetRect().Intersects(control.GetRect());
  });
}

}  // namespace

std::shared_ptr<void> watch_over(std::string what) {
  return {nullptr, [before = set_awaited(std::move(what))](void*) { set_awaited(before); }};
}

void wait_for(std::string const& what, std::function<bool()> const& condition) {
  auto const watched = watch_over(what);
  for (wxStopWatch const watch; watch.Time() < patience.count(); wxMilliSleep(1)) {
    pump();
    if (condition()) return;
  }
  throw std::runtime_error("waited too long for " + what);
}

outcome open_dialog(char const* definition, std::function<void(Tform&)> const& script,
                    void* owner) {
  unsigned char changed = 7;
  char const* given = nullptr;
  platform::prepare_display();
  auto const call = [&] {
    // Floating-point traps as Pascal hosts have them. A call of the library must not change
    // them, also when it throws.
    core_test::trapping.set();
    std::shared_ptr<void> const at_end(nullptr, [](void*) {
      auto const left = core_test::Tfloat_state::get();
      core_test::Tfloat_state().set();
      EXPECT_EQ(left, core_test::trapping);
    });
    given = zu_proj4_form_execute(owner, definition, &changed);
  };
  run_in<Tform>(call, script);
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
  wait_for("the focus of " + control.GetName().ToStdString(),
           [&] { return platform::has_focus(control); });
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

int spare_pixels(wxWindow& root) {
  int spare = INT_MAX;
  // The content of a window that scrolls may have any size.
  auto* const box = dynamic_cast<wxScrolledWindow*>(&root);
  wxRect const room(box == nullptr ? wxPoint() : box->CalcScrolledPosition(wxPoint()),
                    box == nullptr ? root.GetClientSize() : root.GetVirtualSize());
  for (wxWindow* const child : root.GetChildren()) {
    if (!child->IsShown() || child->IsTopLevel()) continue;
    bool const is_inside =
        dynamic_cast<wxStaticBox*>(&root) != nullptr || room.Contains(child->GetRect());
    if (!is_inside || overlaps_another(*child)) return -1;
    child->InvalidateBestSize();
    // A window that scrolls needs less room, and so does its parent.
    wxSize const left = child->GetSize() - (has_scrolled(*child) ? wxSize() : child->GetBestSize());
    spare = std::min({spare, left.x, left.y, spare_pixels(*child)});
  }
  return spare;
}

Tanswers::~Tanswers() {
  Unregister();
  EXPECT_TRUE(expected_.empty()) << "message boxes or file dialogs did not come";
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

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  zu::vcl::Tzu_look_scope const look;
  zu::vcl::start();
  EXPECT_STREQ("C", std::setlocale(LC_ALL, nullptr)) << "the host's locale was changed";
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(0);
  wxSetAssertHandler([](wxString const& file, int line, wxString const&, wxString const& condition,
                        wxString const& message) {
    ADD_FAILURE() << file.utf8_str() << ":" << line << ": " << condition.utf8_str() << " "
                  << message.utf8_str();
  });
  return RUN_ALL_TESTS();
}
