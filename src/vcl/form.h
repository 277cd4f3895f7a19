// The base of modal forms.
#pragma once

#include <exception>
#include <memory>
#include <string>

#include "vcl/modal.h"

namespace zu::vcl {
class Tzu_owner_window;
}  // namespace zu::vcl

// An empty form with a title bar and nothing on it: no close box, no keys that
// close it. Subclasses fill it in create().
class Tzu_vcl_form : public zu::vcl::Tmodal<wxDialog> {
 public:
  // In the design's pixels, frame and all.
  static constexpr int least_width = 600;
  static constexpr int least_height = 360;

  // The form belongs to the caller, not to the toolkit; the window that owns
  // it on the screen is the application's at the time of show_modal.
  Tzu_vcl_form();
  ~Tzu_vcl_form() override;
  Tzu_vcl_form(Tzu_vcl_form const&) = delete;
  Tzu_vcl_form& operator=(Tzu_vcl_form const&) = delete;

  virtual void create() {}
  virtual void load_rc() {}

  std::wstring get_caption() const;
  void set_caption(std::wstring const& caption);

  // Shows the form over its owner and returns when it is closed. Throws what an
  // event handler of the form has thrown in the meantime.
  void show_modal();

  // Whether show_modal is running and nothing has ended it yet.
  bool is_open() const { return IsModal() && IsShown(); }

  // Ends show_modal; does nothing when the form is not open.
  void close_form();

  // The toolkit's own; the owner takes input again before the form hides.
  bool Show(bool show) override;

  // Accepts what is typed in the visible number edits. Returns false, with the
  // message shown and the focus on the edit, when a text was refused.
  bool commit_edits();

  // Lays the whole form out anew and makes it large enough for its content, as
  // far as the screen has room. It never gets smaller and stays on the screen.
  void fit_to_content();

  // Makes room below the design's content, in pixels.
  void set_added_height(int height) { added_height_ = height; }

  // The form that `window` is on, null when it is on none.
  static Tzu_vcl_form* find_form(wxWindow* window);

  // Keeps the first exception for show_modal and closes the form.
  void hold_exception(std::exception_ptr exception);

 private:
  void rethrow_held();
  // Over the owner, or in the middle of the screen.
  void centre();

  int added_height_ = 0;
  std::exception_ptr held_;
  // Of show_modal, while it runs.
  std::unique_ptr<zu::vcl::Tzu_owner_window> owner_;
};
