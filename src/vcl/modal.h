// The loop of a dialog in a host that has its own main loop.
#pragma once

#include <wx/dialog.h>

#include <functional>
#include <memory>

namespace zu::vcl {

// The loop of one modal dialog. All GTK main loops of a process form one stack. The toolkit's
// modal loop would end the host's loop together with its own, and would lose the host's
// request to quit. So under GTK a dialog runs a separate loop, as GTK's own dialogs do.
// Elsewhere it uses the toolkit's loop.
class Tmodal_loop {
 public:
  Tmodal_loop();
  ~Tmodal_loop();
  Tmodal_loop(Tmodal_loop const&) = delete;
  Tmodal_loop& operator=(Tmodal_loop const&) = delete;

  // Shows `dialog` until it ends. `show_modal` is the toolkit's function for that. Throws the
  // exception of an event handler of the dialog.
  int run(wxDialog& dialog, std::function<int()> const& show_modal);
  // These are for loops that the toolkit does not know.
  bool is_running() const noexcept { return is_running_; }
  void end(wxDialog& dialog);

 private:
  class Tloop;
  bool is_running_ = false;
  std::unique_ptr<Tloop> loop_;
};

// A dialog of the toolkit that runs in such a loop.
template <class Tdialog>
class Tmodal : public Tdialog {
 public:
  using Tdialog::Tdialog;

  int ShowModal() override {
    return loop_.run(*this, [this] { return Tdialog::ShowModal(); });
  }
  bool IsModal() const override { return loop_.is_running() || Tdialog::IsModal(); }
  void EndModal(int result) override {
    if (!loop_.is_running()) return Tdialog::EndModal(result);
    this->SetReturnCode(result);
    loop_.end(*this);
  }

 private:
  Tmodal_loop loop_;
};

}  // namespace zu::vcl
