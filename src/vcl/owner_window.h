// Ownership of a form by a window of the host's.
#pragma once

#include <wx/gdicmn.h>

#include <memory>
#include <optional>

class wxTopLevelWindow;

namespace zu::vcl {

// Makes the native window `owner` the owner of `form` for as long as the form is
// modal: the form stays above it and is minimised with it. A null, destroyed or
// made-up handle, or a display that knows no such handles, leaves the form
// without an owner.
//
// On Windows the top-level windows of the form's thread, the owner among them,
// take no input until release() or the end of the object, whichever is first;
// those that took none before never do. A request to quit that the program gets
// meanwhile is its own again at the end of the object.
class Tzu_owner_window {
 public:
  Tzu_owner_window(wxTopLevelWindow& form, void* owner);
  ~Tzu_owner_window();

  Tzu_owner_window(Tzu_owner_window const&) = delete;
  Tzu_owner_window& operator=(Tzu_owner_window const&) = delete;

  // The owner's place on the screen, empty without an owner.
  std::optional<wxRect> const& get_place() const;

  // Right before the form hides: a form that hides while its owner takes no
  // input hands the screen to another program.
  void release();

 private:
  class Timpl;
  std::unique_ptr<Timpl> impl_;
};

}  // namespace zu::vcl
