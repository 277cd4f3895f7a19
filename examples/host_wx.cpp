// A host of the dialog in wxWidgets, which is also the dialog's toolkit. Both share one copy of
// it. The host has started it.
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/timer.h>

#include <memory>
#include <vector>

#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

#include "host_common.h"

namespace {

zu_pj_edit_window window_id(wxWindow const& window) {
#ifdef GDK_WINDOWING_X11
  GdkWindow* const native = gtk_widget_get_window(window.GetHandle());
  if (GDK_IS_X11_WINDOW(native)) return GSIZE_TO_POINTER(GDK_WINDOW_XID(native));
#endif
  return nullptr;
}

class Tframe : public wxFrame {
 public:
  explicit Tframe(host_state& host)
      : wxFrame(nullptr, wxID_ANY, "zu_pj_edit host in wxWidgets", wxDefaultPosition,
                wxSize(860, 420)),
        host_(host) {
    // The frame owns the button.
    auto* const button = std::make_unique<wxButton>(this, wxID_ANY, "Edit...").release();
    button->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { host_edit(&host_, window_id(*this)); });
    ticks_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { host_tick(&host_); });
    user_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
      host_edit(&host_, window_id(*this));
      if (host_.times > 0) {
        user_.StartOnce(host_pause_ms);
      } else {
        Close();
      }
    });
    ticks_.Start(host_tick_ms);
    if (host_.times > 0) user_.StartOnce(host_pause_ms);
  }

 private:
  host_state& host_;
  wxTimer ticks_;
  wxTimer user_;
};

class Tapplication : public wxApp {
 public:
  bool OnInit() override {
    std::vector<std::string> words;
    words.reserve(argv.GetArguments().size());
    for (wxString const& word : argv.GetArguments()) words.push_back(word.utf8_string());
    std::vector<char*> arguments;
    arguments.reserve(words.size());
    for (std::string& word : words) arguments.push_back(word.data());
    if (host_start(&host_, argc, arguments.data()) == 0) return false;
    // The main loop of the application ends with this window.
    return std::make_unique<Tframe>(host_).release()->Show();
  }

 private:
  host_state host_{};
};

}  // namespace

wxIMPLEMENT_APP(Tapplication);
