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

// Makes a sizer. The window or sizer that receives it becomes its owner.
template <class Sizer, class... Arguments>
Sizer* make_sizer(Arguments&&... arguments) {
  return std::make_unique<Sizer>(std::forward<Arguments>(arguments)...).release();
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

  // Lays out the children of the box from the top. Made at the first call. The sizer of the
  // box's parent must contain this sizer in place of the box.
  wxSizer* get_sizer();

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
