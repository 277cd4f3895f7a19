#include "vcl/panel.h"

#include "text/strconv.h"
#include "vcl/toolkit.h"

namespace zu::vcl {

std::wstring rc_text(button_text which) { return strconv::from_interface(Tzu_rc::get_str(which)); }
std::wstring rc_text(editor_text which) { return strconv::from_interface(Tzu_rc::get_str(which)); }
std::wstring rc_text(own_text which) { return get_own_text(which); }

int scaled(wxWindow const& window, int length) {
  int const height = platform::control_height(window);
  return (length * height + design_control_height / 2) / design_control_height;
}

wxSize scaled(wxWindow const& window, wxSize const& size) {
  return {scaled(window, size.x), scaled(window, size.y)};
}

}  // namespace zu::vcl

Tzu_vcl_panel::Tzu_vcl_panel(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition,
              parent->FromDIP(wxSize(initial_width, initial_height)),
              wxTAB_TRAVERSAL | wxBORDER_NONE) {
  // The toolkit uses the first size as minimum size.
  SetMinSize(wxDefaultSize);
}

Tzu_vcl_scroll_box::Tzu_vcl_scroll_box(wxWindow* parent)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxTAB_TRAVERSAL | wxBORDER_NONE) {
  int const step = FromDIP(zu::vcl::design_control_height / 2);
  SetScrollRate(step, step);
  zu::vcl::platform::prepare_scroll_box(*this);
}

// The toolkit would answer with the size of a box that scrolls everything.
wxSize Tzu_vcl_scroll_box::DoGetBestSize() const {
  return GetSizer() == nullptr ? wxSize() : GetSizer()->GetMinSize();
}

Tzu_vcl_group_box::Tzu_vcl_group_box(wxWindow* parent)
    : wxStaticBox(parent, wxID_ANY, wxString()) {}

std::wstring Tzu_vcl_group_box::get_caption() const { return GetLabelText().ToStdWstring(); }

void Tzu_vcl_group_box::set_caption(std::wstring const& caption) { SetLabelText(caption); }

void Tzu_vcl_group_box::add_sizer_to(wxSizer& parent, wxSizerFlags const& flags) {
  sizer_ = zu::vcl::add_sizer<wxStaticBoxSizer>(parent, flags, this, wxVERTICAL);
}

// A new caption does not change the width that the sizer gave to the label.
Tzu_vcl_label::Tzu_vcl_label(wxWindow* parent, std::wstring const& caption)
    : wxStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                   wxST_NO_AUTORESIZE) {
  set_caption(caption);
}

std::wstring Tzu_vcl_label::get_caption() const { return GetLabelText().ToStdWstring(); }

void Tzu_vcl_label::set_caption(std::wstring const& caption) {
  SetLabelText(caption);
  // The toolkit keeps the size of the old text unless it resizes the label itself.
  InvalidateBestSize();
}

// As wide as the caption needs: the toolkit's default width is too large for a bar of five
// buttons. The first caption is not empty, because the toolkit would give a button with a
// standard id its own caption.
Tzu_vcl_button::Tzu_vcl_button(wxWindow* parent, std::wstring const& caption, wxWindowID id)
    : wxButton(parent, id, L" ", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT) {
  set_caption(caption);
}

std::wstring Tzu_vcl_button::get_caption() const { return GetLabelText().ToStdWstring(); }

void Tzu_vcl_button::set_caption(std::wstring const& caption) { SetLabelText(caption); }
