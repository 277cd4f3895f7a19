#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/modalhook.h>

#include "vcl/modal.h"

namespace zu::vcl {
namespace {

struct Tunref {
  void operator()(GMainLoop* loop) const { g_main_loop_unref(loop); }
};

// In this scope the window is modal, and closing it does not destroy it.
class Tmodal_window_scope {
 public:
  explicit Tmodal_window_scope(GtkWidget* window)
      : window_(window),
        on_delete_(g_signal_connect(window, "delete-event", G_CALLBACK(gtk_true), nullptr)) {
    gtk_window_set_modal(GTK_WINDOW(window_), TRUE);
  }
  ~Tmodal_window_scope() {
    gtk_window_set_modal(GTK_WINDOW(window_), FALSE);
    g_signal_handler_disconnect(window_, on_delete_);
  }
  Tmodal_window_scope(Tmodal_window_scope const&) = delete;
  Tmodal_window_scope& operator=(Tmodal_window_scope const&) = delete;

 private:
  GtkWidget* window_;
  gulong on_delete_;
};

}  // namespace

class Tmodal_loop::Tloop : public wxGUIEventLoop {
 public:
  void ScheduleExit(int /*result*/) override {
    m_shouldExit = true;
    g_main_loop_quit(loop_.get());
  }

 protected:
  int DoRun() override {
    // A host with threads may hold GDK's lock. The loop takes that lock itself.
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    gdk_threads_leave();
    g_main_loop_run(loop_.get());
    gdk_threads_enter();
    G_GNUC_END_IGNORE_DEPRECATIONS
    OnExit();
    wxTheApp->RethrowStoredException();
    return 0;
  }

 private:
  std::unique_ptr<GMainLoop, Tunref> loop_{g_main_loop_new(nullptr, FALSE)};
};

Tmodal_loop::Tmodal_loop() : loop_(std::make_unique<Tloop>()) {}
Tmodal_loop::~Tmodal_loop() = default;

int Tmodal_loop::run(wxDialog& dialog, std::function<int()> const& /*show_modal*/) {
  if (int const answer = wxModalDialogHook::CallEnter(&dialog); answer != wxID_NONE) return answer;
  wxModalDialogHookExitGuard const hook(&dialog);
  Tmodal_window_scope const modal(dialog.GetHandle());
  is_running_ = true;
  dialog.Show();
  if (is_running_) loop_->Run();
  is_running_ = false;
  return dialog.GetReturnCode();
}

void Tmodal_loop::end(wxDialog& dialog) {
  is_running_ = false;
  loop_->ScheduleExit(0);
  dialog.Hide();
}

}  // namespace zu::vcl
