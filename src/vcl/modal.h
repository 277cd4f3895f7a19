// How a dialog waits for its user in a host with a main loop of its own.
#pragma once

#include <wx/dialog.h>

#include <functional>
#include <memory>

namespace zu::vcl {

// The loop of one modal dialog. GTK's main loops are one stack in a process: the
// toolkit's modal loop ends the host's loop together with its own, and loses the
// host's request to quit. So a dialog runs a loop apart from that stack there, as
// GTK's own dialogs do. Elsewhere the toolkit's loop serves.
class Tmodal_loop {
 public:
  Tmodal_loop();
  ~Tmodal_loop();
  Tmodal_loop(Tmodal_loop const&) = delete;
  Tmodal_loop& operator=(Tmodal_loop const&) = delete;

  // Shows `dialog` until it ends; `show_modal` is the toolkit's way to do so.
  // Throws what the dialog's event handlers have let out.
  int run(wxDialog& dialog, std::function<int()> const& show_modal);
  // These tell of loops that are not the toolkit's.
  bool is_running() const noexcept { return is_running_; }
  void end(wxDialog& dialog);

 private:
  class Tloop;
  bool is_running_ = false;
  std::unique_ptr<Tloop> loop_;
};

// A dialog of the toolkit's that is modal in such a loop.
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
