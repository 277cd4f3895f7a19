// The kit's plain container and the controls that add nothing but their type.
#pragma once

#include <wx/button.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <memory>
#include <string>
#include <utility>

#include "text/own_texts.h"
#include "text/rc.h"

namespace zu::vcl {

// Makes a window that its parent owns and destroys.
template <class Window, class Parent, class... Arguments>
Window* make_child(Parent* parent, Arguments&&... arguments) {
  return std::make_unique<Window>(parent, std::forward<Arguments>(arguments)...).release();
}

// Makes the sizer of a window, which owns it. A sizer gets its owner first and its content
// later: if memory runs out in between, the owner destroys it.
template <class Sizer, class... Arguments>
Sizer* set_sizer(wxWindow& window, Arguments&&... arguments) {
  Sizer* const sizer = std::make_unique<Sizer>(std::forward<Arguments>(arguments)...).release();
  window.SetSizer(sizer);
  return sizer;
}

// Makes a sizer as the last part of another one, which owns it.
template <class Sizer, class... Arguments>
Sizer* add_sizer(wxSizer& parent, wxSizerFlags const& flags, Arguments&&... arguments) {
  auto sizer = std::make_unique<Sizer>(std::forward<Arguments>(arguments)...);
  auto item = std::make_unique<wxSizerItem>(sizer.get(), flags);
  parent.Add(item.release());
  return sizer.release();
}

// Interface texts in the current language.
std::wstring rc_text(button_text which);
std::wstring rc_text(editor_text which);
std::wstring rc_text(own_text which);

// The design is drawn in pixels for 96 dots per inch and controls of this height.
inline constexpr int design_control_height = 21;

// Scales a length of the design to the window's resolution and to the height of its theme's
// controls.
int scaled(wxWindow const& window, int length);
wxSize scaled(wxWindow const& window, wxSize const& size);

}  // namespace zu::vcl

// Containers are built in two steps after construction: create() makes and
// places the children, load_rc() sets the captions in the interface language.
class Tzu_vcl_panel : public wxPanel {
 public:
  static constexpr int initial_width = 200;
  static constexpr int initial_height = 21;

  explicit Tzu_vcl_panel(wxWindow* parent);

  virtual void create() {}
  virtual void load_rc() {}
};

// Asks for the size that its controls need. Scrolls them when it gets less.
class Tzu_vcl_scroll_box : public wxScrolledWindow {
 public:
  explicit Tzu_vcl_scroll_box(wxWindow* parent);

 protected:
  wxSize DoGetBestSize() const override;
};

class Tzu_vcl_group_box : public wxStaticBox {
 public:
  explicit Tzu_vcl_group_box(wxWindow* parent);

  std::wstring get_caption() const;
  void set_caption(std::wstring const& caption);

  // Makes the sizer that lays out the children of the box from the top, as the last part of
  // the sizer of the box's parent, in place of the box.
  void add_sizer_to(wxSizer& parent, wxSizerFlags const& flags);
  // Null before add_sizer_to.
  wxSizer* get_sizer() const noexcept { return sizer_; }

 private:
  wxSizer* sizer_ = nullptr;
};

class Tzu_vcl_label : public wxStaticText {
 public:
  explicit Tzu_vcl_label(wxWindow* parent, std::wstring const& caption = {});

  std::wstring get_caption() const;
  void set_caption(std::wstring const& caption);
};

class Tzu_vcl_button : public wxButton {
 public:
  explicit Tzu_vcl_button(wxWindow* parent, std::wstring const& caption = {},
                          wxWindowID id = wxID_ANY);

  std::wstring get_caption() const;
  void set_caption(std::wstring const& caption);
};
