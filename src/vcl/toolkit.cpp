#include "vcl/toolkit.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/window.h>

#include <clocale>
#include <memory>
#include <string>

namespace zu::vcl {
namespace {

// The application object for a host without the toolkit. Its main loop never runs: forms run
// loops of their own.
class Tzu_wx_app : public wxApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
  }
};

// The toolkit and its libraries set the user's locale when they start. But the locale belongs
// to the host.
class Tzu_locale_scope {
 public:
  Tzu_locale_scope() : kept_(std::setlocale(LC_ALL, nullptr)) {}
  ~Tzu_locale_scope() { (void)std::setlocale(LC_ALL, kept_.c_str()); }

  Tzu_locale_scope(Tzu_locale_scope const&) = delete;
  Tzu_locale_scope& operator=(Tzu_locale_scope const&) = delete;

 private:
  std::string kept_;
};

}  // namespace

void start() {
  if (wxApp::GetInstance() != nullptr) return platform::check_running();

  Tzu_locale_scope const locale;
  platform::prepare_start();
  wxApp::SetInstance(std::make_unique<Tzu_wx_app>().release());
  // The caller gets the failure, so nothing has to be printed.
  wxLogNull const quiet;
  if (!platform::start_toolkit()) {
    throw Tstart_error("no display can be opened");
  }
  if (!wxTheApp->CallOnInit()) {
    wxEntryCleanup();
    throw Tstart_error("the window toolkit does not start");
  }
  platform::keep_library_loaded();
  platform::check_running();
}

void set_control_name(wxWindow& control, std::wstring const& name) {
  control.SetName(name);
  platform::announce_name(control);
}

}  // namespace zu::vcl
