#include "gui_support.h"

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <exception>
#include <memory>

#include "vcl/panel.h"
#include "vcl/selbox.h"

namespace gui {
namespace {

constexpr int patience_ms = 10'000;
constexpr int whole_script_ms = 60'000;

Tzu_vcl_form* find_open_form() {
  for (wxWindow* const window : wxTopLevelWindows) {
    auto* const form = dynamic_cast<Tzu_vcl_form*>(window);
    if (form != nullptr && form->is_open()) return form;
  }
  return nullptr;
}

// Input arrives when the display server sends it; its last event tells that
// the program has handled it all.
class Tevent_counter : public wxEventFilter {
 public:
  explicit Tevent_counter(wxEventType type) : type_(type) { wxEvtHandler::AddFilter(this); }
  ~Tevent_counter() override { wxEvtHandler::RemoveFilter(this); }
  Tevent_counter(Tevent_counter const&) = delete;
  Tevent_counter& operator=(Tevent_counter const&) = delete;

  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() == type_) seen_ = true;
    return Event_Skip;
  }
  // A form that the first of the input closes gets no more of it.
  bool wait() const {
    return wait_until([this] { return seen_ || find_open_form() == nullptr; });
  }

 private:
  wxEventType type_;
  bool seen_ = false;
};

class Ttimer : public wxTimer {
 public:
  Ttimer(int delay_ms, std::function<void()> body) : body_(std::move(body)) { StartOnce(delay_ms); }
  void Notify() override { body_(); }

 private:
  std::function<void()> body_;
};

void point_at(wxWindow& control) {
  EXPECT_TRUE(wait_until([&] { return platform::is_settled(control); }))
      << "the control does not settle";
  wxSize const size = control.GetSize();
  wxUIActionSimulator().MouseMove(control.ClientToScreen(wxPoint(size.x / 2, size.y / 2)));
}

bool overlaps_another(wxWindow const& control) {
  auto const& siblings = control.GetParent()->GetChildren();
  return std::any_of(siblings.begin(), siblings.end(), [&](wxWindow const* other) {
    return other != &control && other->IsShown() && !other->IsTopLevel() &&
           other->GetRect().Intersects(control.GetRect());
  });
}

}  // namespace

void pump() {
  std::unique_ptr<wxEventLoopBase> own;
  if (wxEventLoopBase::GetActive() == nullptr) own = std::make_unique<wxGUIEventLoop>();
  wxEventLoopActivator const active(own ? own.get() : wxEventLoopBase::GetActive());
  wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
}

bool wait_until(std::function<bool()> const& condition) {
  wxStopWatch const watch;
  while (watch.Time() < patience_ms) {
    pump();
    if (condition()) return true;
    wxMilliSleep(1);
  }
  return false;
}

void run_in_form(std::function<void()> const& open,
                 std::function<void(Tzu_vcl_form&)> const& script) {
  Ttimer const run(0, [&] {
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
  Ttimer const watch_dog(whole_script_ms, [] {
    ADD_FAILURE() << "the form does not close";
    if (Tzu_vcl_form* const form = find_open_form()) form->close_form();
  });
  open();
}

void show_and_run(Tzu_vcl_form& form, std::function<void()> const& script) {
  platform::prepare_display();
  run_in_form([&form] { form.show_modal(); }, [&script](Tzu_vcl_form&) { script(); });
}

void focus(wxWindow& control) {
  control.SetFocus();
  EXPECT_TRUE(wait_until([&] { return wxWindow::FindFocus() == &control; })) << "no focus";
}

void press(int key, int modifiers) {
  Tevent_counter const released(wxEVT_KEY_UP);
  wxUIActionSimulator().Char(key, modifiers);
  EXPECT_TRUE(released.wait()) << "key " << key << " does not arrive";
  pump();
}

void type_over(wxWindow& control, std::string_view text) {
  focus(control);
  if (auto* const edit = dynamic_cast<wxTextCtrl*>(&control)) edit->SelectAll();
  for (char const character : text) {
    Tevent_counter const released(wxEVT_KEY_UP);
    wxUIActionSimulator().Text(std::string(1, character).c_str());
    EXPECT_TRUE(released.wait()) << "key " << character << " does not arrive";
  }
  pump();
}

void click(wxWindow& control) {
  point_at(control);
  Tevent_counter const released(wxEVT_LEFT_UP);
  wxUIActionSimulator().MouseClick();
  EXPECT_TRUE(released.wait()) << "the click does not arrive";
  pump();
}

void turn_wheel(wxWindow& control) {
  point_at(control);
  Tevent_counter const turned(wxEVT_MOUSEWHEEL);
  platform::turn_wheel();
  EXPECT_TRUE(turned.wait()) << "the wheel does not arrive";
  pump();
}

void pick(Tzu_vcl_selbox& list, std::wstring const& caption) {
  int const position = list.FindString(caption);
  ASSERT_NE(position, wxNOT_FOUND) << wxString(caption).utf8_str();
  ASSERT_TRUE(list.IsShownOnScreen() && list.IsEnabled()) << wxString(caption).utf8_str();
  platform::pick(list, position);
  pump();
}

std::vector<std::wstring> find_clipped(wxWindow& root) {
  std::vector<std::wstring> clipped;
  for (wxWindow* const child : root.GetChildren()) {
    if (!child->IsShown() || child->IsTopLevel()) continue;
    wxSize const size = child->GetSize();
    child->InvalidateBestSize();
    wxSize const best = child->GetBestSize();
    wxRect const inside(root.GetClientSize());
    bool const is_cut =
        dynamic_cast<wxStaticBox*>(&root) == nullptr && !inside.Contains(child->GetRect());
    if (size.x < best.x || size.y < best.y || is_cut || overlaps_another(*child)) {
      clipped.push_back(wxString::Format(L"%s '%s' %dx%d of %dx%d",
                                         child->GetClassInfo()->GetClassName(), child->GetLabel(),
                                         size.x, size.y, best.x, best.y)
                            .ToStdWstring());
    }
    auto const inner = find_clipped(*child);
    clipped.insert(clipped.end(), inner.begin(), inner.end());
  }
  return clipped;
}

void save_screenshot(wxWindow& window, std::string const& path) {
  {
    Tevent_counter const painted(wxEVT_PAINT);
    window.Refresh();
    EXPECT_TRUE(painted.wait()) << "the window does not paint itself";
  }
  EXPECT_TRUE(platform::save_picture(window, path)) << path;
}

Tanswers::~Tanswers() {
  Unregister();
  EXPECT_TRUE(expected_.empty()) << expected_.size() << " dialogs were expected and not shown";
}

int Tanswers::Enter(wxDialog* dialog) {
  if (dynamic_cast<Tzu_vcl_form*>(dialog) != nullptr) return wxID_NONE;
  auto* const message = dynamic_cast<wxMessageDialog*>(dialog);
  if (message != nullptr) messages_.push_back(message->GetMessage().ToStdWstring());
  if (expected_.empty()) {
    ADD_FAILURE() << "unexpected dialog: "
                  << (message != nullptr ? message->GetMessage().utf8_str() : "");
    return wxID_CANCEL;
  }
  Tanswer const answer = expected_.front();
  expected_.pop_front();
  auto* const file = dynamic_cast<wxFileDialog*>(dialog);
  EXPECT_EQ(file != nullptr, !answer.path.empty()) << "a dialog of another kind was expected";
  if (file != nullptr) {
    file->SetPath(answer.path);
    EXPECT_TRUE(wait_until([&] { return file->GetPath() == answer.path; })) << "path not taken";
    // The path's extension chooses a filter by itself.
    file->SetFilterIndex(answer.filter_index);
  }
  return answer.result;
}

}  // namespace gui
