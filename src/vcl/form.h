// The base of modal forms.
#pragma once

#include <exception>
#include <memory>
#include <string>

#include "vcl/modal.h"

namespace zu::vcl {
class Tzu_owner_window;
}  // namespace zu::vcl

// An empty form with a title bar, without a close box, and without keys that close it.
// Subclasses fill it in create().
class Tzu_vcl_form : public zu::vcl::Tmodal<wxDialog> {
 public:
  // In the design's pixels, with the frame.
  static constexpr int least_width = 600;
  static constexpr int least_height = 360;

  // The caller owns the form, not the toolkit. On the screen its owner is the application's
  // window at the time of show_modal.
  Tzu_vcl_form();
  ~Tzu_vcl_form() override;
  Tzu_vcl_form(Tzu_vcl_form const&) = delete;
  Tzu_vcl_form& operator=(Tzu_vcl_form const&) = delete;

  virtual void create() {}
  virtual void load_rc() {}

  std::wstring get_caption() const;
  void set_caption(std::wstring const& caption);

  // Shows the form over its owner and returns when it is closed. Throws the exception of an
  // event handler of the form.
  void show_modal();

  // Whether show_modal is running and has not been told to end.
  bool is_open() const { return IsModal() && IsShown(); }

  // Ends show_modal; does nothing when the form is not open.
  void close_form();

  // Overrides the toolkit's function: the owner takes input again before the form hides.
  bool Show(bool show) override;

  // Accepts the texts in the visible number edits. When one is refused, shows the message,
  // leaves the focus on the edit and returns false.
  bool commit_edits();

  // Lays out the whole form again and makes it large enough for its content, as far as the
  // screen allows. The form never becomes smaller and stays on the screen.
  void fit_to_content();

  // Adds space below the design's content, in pixels.
  void set_added_height(int height) { added_height_ = height; }

  // The form that contains `window`, or null.
  static Tzu_vcl_form* find_form(wxWindow* window);

  // Stores the first exception for show_modal and closes the form.
  void hold_exception(std::exception_ptr exception);

 private:
  void rethrow_held();
  // Places the form over the owner, or in the middle of the screen.
  void centre();

  int added_height_ = 0;
  std::exception_ptr held_;
  // Used by show_modal while it runs.
  std::unique_ptr<zu::vcl::Tzu_owner_window> owner_;
};
