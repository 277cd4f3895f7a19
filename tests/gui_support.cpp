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

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <memory>

#include "vcl/panel.h"
#include "vcl/selbox.h"

// Xlib's macros spoil what comes after them.
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace gui {
namespace {

constexpr int patience_ms = 10'000;
constexpr int whole_script_ms = 60'000;

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
  bool wait() const {
    return wait_until([this] { return seen_; });
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

// What the toolkit knows of a window runs ahead of the display server and lags
// behind it; input goes by the server. Without a window manager nobody else
// gives a new window the keyboard.
bool is_ready(Tzu_vcl_form& form) {
  if (!form.IsModal() || !form.IsShownOnScreen()) return false;
  GtkWidget* const widget = form.GetHandle();
  GdkWindow* const window = gtk_widget_get_window(widget);
  Display* const display = GDK_WINDOW_XDISPLAY(window);
  Window const id = GDK_WINDOW_XID(window);
  XWindowAttributes attributes{};
  if (XGetWindowAttributes(display, id, &attributes) == 0) return false;
  if (attributes.map_state != IsViewable) return false;
  Window focused = None;
  int revert = 0;
  XGetInputFocus(display, &focused, &revert);
  if (focused == id) return gtk_window_is_active(GTK_WINDOW(widget)) != 0;
  XSetInputFocus(display, id, RevertToNone, CurrentTime);
  return false;
}

bool near(wxPoint const& left, wxPoint const& right) {
  return std::abs(left.x - right.x) <= 2 && std::abs(left.y - right.y) <= 2;
}

// A form that grows is moved and laid out by the toolkit at once, by GTK with
// its next frame, and by the server after that. A click goes by the server.
bool is_settled(wxWindow const& control) {
  GtkWidget* const widget = control.GetHandle();
  GtkWidget* const top = gtk_widget_get_toplevel(widget);
  GdkWindow* const window = gtk_widget_get_window(top);
  Display* const display = GDK_WINDOW_XDISPLAY(window);
  Window const id = GDK_WINDOW_XID(window);
  XWindowAttributes attributes{};
  if (XGetWindowAttributes(display, id, &attributes) == 0) return false;
  wxPoint origin;
  Window child = None;
  XTranslateCoordinates(display, id, attributes.root, 0, 0, &origin.x, &origin.y, &child);
  wxPoint inside;
  gtk_widget_translate_coordinates(widget, top, 0, 0, &inside.x, &inside.y);
  return attributes.width == gtk_widget_get_allocated_width(top) &&
         attributes.height == gtk_widget_get_allocated_height(top) &&
         gtk_widget_get_allocated_width(widget) == control.GetSize().x &&
         near(origin + inside, control.GetScreenPosition());
}

Tzu_vcl_form* find_modal_form() {
  for (wxWindow* const window : wxTopLevelWindows) {
    auto* const form = dynamic_cast<Tzu_vcl_form*>(window);
    if (form != nullptr && form->IsModal()) return form;
  }
  return nullptr;
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
        form = find_modal_form();
        return form == nullptr || is_ready(*form);
      })) << "the form does not come up";
      if (form != nullptr) script(*form);
    } catch (std::exception const& error) {
      ADD_FAILURE() << "the script of the test throws: " << error.what();
    }
    if (form != nullptr) form->close_form();
  });
  Ttimer const watch_dog(whole_script_ms, [] {
    ADD_FAILURE() << "the form does not close";
    if (Tzu_vcl_form* const form = find_modal_form()) form->close_form();
  });
  open();
}

void show_and_run(Tzu_vcl_form& form, std::function<void()> const& script) {
  // As long as the focus goes with the pointer, a window gets it twice.
  XSetInputFocus(gdk_x11_get_default_xdisplay(), None, RevertToNone, CurrentTime);
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
  EXPECT_TRUE(wait_until([&] { return is_settled(control); })) << "the control does not settle";
  wxSize const size = control.GetSize();
  wxPoint const centre = control.ClientToScreen(wxPoint(size.x / 2, size.y / 2));
  Tevent_counter const released(wxEVT_LEFT_UP);
  wxUIActionSimulator simulator;
  simulator.MouseMove(centre);
  simulator.MouseClick();
  EXPECT_TRUE(released.wait()) << "the click does not arrive";
  pump();
}

void pick(Tzu_vcl_selbox& list, std::wstring const& caption) {
  int const position = list.FindString(caption);
  ASSERT_NE(position, wxNOT_FOUND) << wxString(caption).utf8_str();
  ASSERT_TRUE(list.IsShownOnScreen() && list.IsEnabled()) << wxString(caption).utf8_str();
  list.SetFocus();
  list.SetSelection(position);
  wxCommandEvent event(wxEVT_CHOICE, list.GetId());
  event.SetEventObject(&list);
  event.SetInt(position);
  list.ProcessWindowEvent(event);
  pump();
}

std::vector<std::wstring> find_clipped(wxWindow& root) {
  std::vector<std::wstring> clipped;
  for (wxWindow* const child : root.GetChildren()) {
    if (!child->IsShown()) continue;
    wxSize const size = child->GetSize();
    child->InvalidateBestSize();
    wxSize const best = child->GetBestSize();
    wxRect const inside(root.GetClientSize());
    bool const is_cut =
        dynamic_cast<wxStaticBox*>(&root) == nullptr && !inside.Contains(child->GetRect());
    if (size.x < best.x || size.y < best.y || is_cut) {
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
  GdkWindow* const source = gtk_widget_get_window(window.GetHandle());
  std::unique_ptr<GdkPixbuf, decltype(&g_object_unref)> const picture(
      gdk_pixbuf_get_from_window(source, 0, 0, gdk_window_get_width(source),
                                 gdk_window_get_height(source)),
      g_object_unref);
  EXPECT_NE(0, gdk_pixbuf_save(picture.get(), path.c_str(), "png", nullptr, nullptr)) << path;
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

Tforeign_window::Tforeign_window(wxRect const& place) {
  Display* const display = XOpenDisplay(nullptr);
  window_ = XCreateSimpleWindow(display, DefaultRootWindow(display), place.x, place.y,
                                static_cast<unsigned>(place.width),
                                static_cast<unsigned>(place.height), 0, 0, 0);
  XMapWindow(display, window_);
  XSync(display, False);
  display_ = display;
}

void* Tforeign_window::get_handle() const {
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(window_));
}

void Tforeign_window::destroy() {
  if (display_ != nullptr) XCloseDisplay(static_cast<Display*>(std::exchange(display_, nullptr)));
}

void* get_owner(Tzu_vcl_form const& form) {
  GdkWindow* const window = gtk_widget_get_window(form.GetHandle());
  Window owner = None;
  XGetTransientForHint(GDK_WINDOW_XDISPLAY(window), GDK_WINDOW_XID(window), &owner);
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(owner));
}

}  // namespace gui
