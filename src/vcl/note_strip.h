// A strip of a form with messages for the user.
#pragma once

#include <functional>
#include <string>

#include "vcl/panel.h"

// Visible only while it has a text. A long text is wrapped, and cut after a few lines. The
// tooltip of the strip has the whole text, and screen readers get it.
class Tzu_vcl_note_strip : public Tzu_vcl_panel {
 public:
  static constexpr int margin = 4;
  static constexpr std::size_t most_lines = 3;

  explicit Tzu_vcl_note_strip(wxWindow* parent);

  void create() override;

  std::wstring const& get_text() const noexcept { return text_; }
  // An empty text hides the strip. The form has to be laid out afterwards.
  void set_text(std::wstring const& text);

  // Fired when a new width has changed the number of lines.
  std::function<void()> on_layout;

 private:
  void wrap(int width);
  void on_size();

  std::wstring text_;
  wxStaticText* label_ = nullptr;
  int wrapped_width_ = 0;
  std::size_t lines_ = 0;
};
