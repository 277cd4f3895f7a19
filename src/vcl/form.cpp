#include "vcl/form.h"

#include <wx/display.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "vcl/application.h"
#include "vcl/edit.h"
#include "vcl/event_guard.h"
#include "vcl/owner_window.h"
#include "vcl/panel.h"
#include "vcl/toolkit.h"

namespace {

wxRect screen_at(wxPoint const& point) {
  int const display = wxDisplay::GetFromPoint(point);
  return wxDisplay(display == wxNOT_FOUND ? 0U : static_cast<unsigned>(display)).GetClientArea();
}

wxPoint centre_of(wxRect const& place) {
  return {place.x + place.width / 2, place.y + place.height / 2};
}

wxPoint keep_on_screen(wxRect const& place, wxRect const& screen) {
  return {std::max(screen.x, std::min(place.x, screen.x + screen.width - place.width)),
          std::max(screen.y, std::min(place.y, screen.y + screen.height - place.height))};
}

// The toolkit lays out the children of a window at each change of its size, and not at all
// when the size stays the same. Here all windows are laid out exactly once.
void layout_all(wxWindow& window) {
  auto const set_automatic = [&](bool automatic) {
    for (wxWindow* const child : window.GetChildren()) {
      if (child->GetSizer() != nullptr) child->SetAutoLayout(automatic);
    }
  };
  set_automatic(false);
  if (auto* const box = dynamic_cast<Tzu_vcl_scroll_box*>(&window))
    box->FitInside();
  else
    window.Layout();
  set_automatic(true);
  for (wxWindow* const child : window.GetChildren()) {
    if (!child->IsTopLevel()) layout_all(*child);
  }
}

// The size that the controls need. When they get less in one direction, a scroll bar needs
// space in the other direction.
wxSize room_for_content(wxSizer& sizer, wxSize const& room) {
  wxSize const need = sizer.GetMinSize();
  return {need.x + (need.y > room.y ? wxSystemSettings::GetMetric(wxSYS_VSCROLL_X) : 0),
          need.y + (need.x > room.x ? wxSystemSettings::GetMetric(wxSYS_HSCROLL_Y) : 0)};
}

bool commit_all(wxWindow& window) {
  if (auto* const edit = dynamic_cast<Tzu_vcl_dbl_edit*>(&window)) return edit->commit();
  return std::ranges::all_of(window.GetChildren(), [](wxWindow* child) {
    return child->IsTopLevel() || !child->IsShown() || commit_all(*child);
  });
}

}  // namespace

Tzu_vcl_form::Tzu_vcl_form()
    : Tmodal(nullptr, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
             wxCAPTION | wxDIALOG_NO_PARENT) {
  SetEscapeId(wxID_NONE);
  zu::vcl::platform::prepare_form(*this);
  SetSize(zu::vcl::scaled(*this, wxSize(least_width, least_height)));
  // A window manager can close a window even without a close box.
  zu::vcl::bind_guarded(*this, wxEVT_CLOSE_WINDOW, [this] { close_form(); });
}

std::wstring Tzu_vcl_form::get_caption() const { return GetTitle().ToStdWstring(); }

void Tzu_vcl_form::set_caption(std::wstring const& caption) { SetTitle(caption); }

Tzu_vcl_form::~Tzu_vcl_form() = default;

void Tzu_vcl_form::show_modal() {
  rethrow_held();
  owner_ =
      std::make_unique<zu::vcl::Tzu_owner_window>(*this, Tzu_application::instance().get_handle());
  centre();
  zu::vcl::platform::call_when_framed(*this, [this] {
    if (!is_open()) return;
    fit_to_content();
    centre();
  });
  // An exception during the form's first appearance comes before there is a loop to end.
  CallAfter([this] {
    if (held_) close_form();
  });
  ShowModal();
  // A request of the program to quit ends the loop but does not hide the form.
  if (IsShown()) Hide();
  owner_.reset();
  rethrow_held();
}

void Tzu_vcl_form::centre() {
  wxRect const around = owner_->get_place().value_or(screen_at({0, 0}));
  wxSize const size = GetClientSize() + zu::vcl::platform::frame_size(*this);
  wxPoint const middle = centre_of(around);
  zu::vcl::platform::move_to(
      *this, keep_on_screen({middle.x - size.x / 2, middle.y - size.y / 2, size.x, size.y},
                            screen_at(middle)));
}

bool Tzu_vcl_form::Show(bool show) {
  if (!show && owner_ != nullptr) owner_->release();
  return wxDialog::Show(show);
}

void Tzu_vcl_form::close_form() {
  if (!is_open()) return;
  // A window over the form runs its own loop. That loop has to end first.
  for (wxWindow* const child : GetChildren()) {
    auto* const dialog = dynamic_cast<wxDialog*>(child);
    if (dialog != nullptr && dialog->IsModal() && dialog->IsShown()) dialog->EndModal(wxID_CANCEL);
  }
  EndModal(wxID_CANCEL);
}

bool Tzu_vcl_form::commit_edits() { return commit_all(*this); }

void Tzu_vcl_form::fit_to_content() {
  wxRect const screen = screen_at(IsShown() ? centre_of(GetRect()) : wxPoint());
  wxSize const frame = zu::vcl::platform::frame_size(*this);
  // Set the size of the inside: a window manager may add the frame later.
  wxSize const before = GetClientSize();
  wxSize size = zu::vcl::scaled(*this, wxSize(least_width, least_height)) - frame;
  size.y += added_height_;
  if (IsShown()) size.IncTo(before);
  wxSize const room = screen.GetSize() - frame;
  if (GetSizer() != nullptr) size.IncTo(room_for_content(*GetSizer(), room));
  size.DecTo(room);
  if (size != before) {
    SetAutoLayout(false);
    SetClientSize(size);
    SetAutoLayout(true);
    if (IsShown()) Move(keep_on_screen({GetPosition(), size + frame}, screen));
  }
  layout_all(*this);
  // Windows copies the picture of a moved control, and the copy may cover too much.
  if (size != before) Refresh();
  zu::vcl::platform::renew_tab_order(*this);
}

Tzu_vcl_form* Tzu_vcl_form::find_form(wxWindow* window) {
  for (; window != nullptr; window = window->GetParent()) {
    if (auto* const form = dynamic_cast<Tzu_vcl_form*>(window)) return form;
  }
  return nullptr;
}

void Tzu_vcl_form::hold_exception(std::exception_ptr exception) {
  if (!held_) held_ = std::move(exception);
  close_form();
}

void Tzu_vcl_form::rethrow_held() {
  if (held_) std::rethrow_exception(std::exchange(held_, nullptr));
}
