// A strip of a form that tells its user something.
#pragma once

#include <functional>
#include <string>

#include "vcl/panel.h"

// Is there only while there is something to tell. A long text is wrapped and, beyond
// a few lines, cut; the whole of it is the strip's tooltip, and what screen readers get.
class Tzu_vcl_note_strip : public Tzu_vcl_panel {
 public:
  static constexpr int margin = 4;
  static constexpr std::size_t most_lines = 3;

  explicit Tzu_vcl_note_strip(wxWindow* parent);

  void create() override;

  std::wstring const& get_text() const noexcept { return text_; }
  // Nothing hides the strip. The form has to be laid out after it.
  void set_text(std::wstring const& text);

  // Fired when another width has changed the number of lines.
  std::function<void()> on_layout;

 private:
  void wrap(int width);
  void on_size();

  std::wstring text_;
  wxStaticText* label_ = nullptr;
  int wrapped_width_ = 0;
  std::size_t lines_ = 0;
};
