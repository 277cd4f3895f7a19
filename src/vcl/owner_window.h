// Makes a window of the host the owner of a form.
#pragma once

#include <wx/gdicmn.h>

#include <memory>
#include <optional>

class wxTopLevelWindow;

namespace zu::vcl {

// Makes the native window `owner` the owner of `form` while the form is modal: the form stays
// above it and is minimised with it. The form has no owner when the handle is null, destroyed
// or invalid, or when the display has no such handles.
//
// On Windows all top-level windows of the form's thread, with the owner, take no input until
// release() or until this object is destroyed. A window that took no input before stays so.
// The program gets a request to quit that came in the meantime when this object is destroyed.
class Tzu_owner_window {
 public:
  Tzu_owner_window(wxTopLevelWindow& form, void* owner);
  ~Tzu_owner_window();

  Tzu_owner_window(Tzu_owner_window const&) = delete;
  Tzu_owner_window& operator=(Tzu_owner_window const&) = delete;

  // The owner's rectangle on the screen, empty without an owner.
  std::optional<wxRect> const& get_place() const;

  // To be called right before the form hides. If the owner still took no input then, the
  // system would bring another program to the front.
  void release();

 private:
  class Timpl;
  std::unique_ptr<Timpl> impl_;
};

}  // namespace zu::vcl
