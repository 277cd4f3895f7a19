#include "vcl/selbox.h"

#include <wx/arrstr.h>
#include <wx/control.h>
#include <wx/dcclient.h>

#include <algorithm>
#include <utility>

#include "vcl/event_guard.h"
#include "vcl/list_keys.h"
#include "vcl/panel.h"
#include "vcl/toolkit.h"

namespace {

constexpr int first_width = 100;
constexpr int first_height = 21;
// In pixels of the design, with the arrow.
constexpr int least_width = 70;

template <class Predicate>
int find_position(std::vector<Tzu_vcl_selbox_item> const& items, Predicate predicate) {
  auto const found = std::ranges::find_if(items, predicate);
  return found == items.end() ? wxNOT_FOUND : static_cast<int>(found - items.begin());
}

}  // namespace

// Without a first size the toolkit resizes the list several times to find one. It uses a given
// size as minimum size.
Tzu_vcl_selbox::Tzu_vcl_selbox(wxWindow* parent)
    : wxChoice(parent, wxID_ANY, wxDefaultPosition,
               parent->FromDIP(wxSize(first_width, first_height))) {
  SetMinSize(wxDefaultSize);
  zu::vcl::platform::prepare_list(*this);
  zu::vcl::platform::watch_list(
      *this, [this] { restore_active(); }, [this] { shorten_active(); });
  zu::vcl::platform::add_list_keys(*this);
  zu::vcl::bind_guarded(*this, wxEVT_CHOICE, [this] { on_self_change(); });
  zu::vcl::bind_guarded(*this, wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    shorten_active();
  });
  // A user who scrolls the window with the wheel must not change the choice under the pointer.
  zu::vcl::bind_guarded(*this, wxEVT_MOUSEWHEEL,
                        [this](wxMouseEvent& event) { event.Skip(HasFocus()); });
}

void Tzu_vcl_selbox::clear() {
  Clear();
  items_.clear();
  shortened_ = wxNOT_FOUND;
  longest_ = 0;
  widest_ = 0;
}

void Tzu_vcl_selbox::add_item(std::wstring const& caption, unsigned key) {
  Tzu_vcl_selbox_item const item{caption, key};
  add_items({&item, 1});
}

void Tzu_vcl_selbox::add_items(std::span<Tzu_vcl_selbox_item const> items) {
  if (items.empty()) return;
  bool const was_empty = items_.empty();
  wxArrayString captions;
  captions.reserve(items.size());
  for (auto const& item : items) {
    captions.push_back(item.caption);
    measure(item.caption);
  }
  Append(captions);
  items_.insert(items_.end(), items.begin(), items.end());
  if (was_empty) SetSelection(0);
  zu::vcl::platform::finish_list(*this, widest_);
  shorten_active();
}

bool Tzu_vcl_selbox::find_str(std::wstring const& caption, unsigned* key) const {
  auto const found = std::ranges::find(items_, caption, &Tzu_vcl_selbox_item::caption);
  if (found == items_.end()) return false;
  *key = found->key;
  return true;
}

Tzu_vcl_selbox_item const* Tzu_vcl_selbox::get_active() const {
  int const position = GetSelection();
  return position == wxNOT_FOUND ? nullptr : &items_[static_cast<std::size_t>(position)];
}

unsigned Tzu_vcl_selbox::get_active_idx() const {
  auto const* const item = get_active();
  return item == nullptr ? 0 : item->key;
}

void Tzu_vcl_selbox::set_active_idx(unsigned key) {
  restore_active();
  SetSelection(find_position(items_, [key](auto const& item) { return item.key == key; }));
  shorten_active();
}

std::wstring Tzu_vcl_selbox::get_active_caption() const {
  auto const* const item = get_active();
  return item == nullptr ? std::wstring() : item->caption;
}

void Tzu_vcl_selbox::set_active_caption(std::wstring const& caption) {
  restore_active();
  SetSelection(find_position(items_, [&](auto const& item) { return item.caption == caption; }));
  shorten_active();
}

std::wstring Tzu_vcl_selbox::get_item_captions(std::size_t position) const {
  return position < items_.size() ? items_[position].caption : std::wstring();
}

void Tzu_vcl_selbox::set_item_captions(std::size_t position, std::wstring const& caption) {
  if (position >= items_.size()) return;
  restore_active();
  items_[position].caption = caption;
  SetString(static_cast<unsigned>(position), caption);
  measure(caption);
  InvalidateBestSize();
  shorten_active();
}

void Tzu_vcl_selbox::on_self_change() {
  // The list may still be changing itself.
  zu::vcl::call_after_guarded(*this, [this] { shorten_active(); });
  call_on_change();
}

void Tzu_vcl_selbox::shorten_active() {
  restore_active();
  auto const* const item = get_active();
  int const room = GetSize().x - GetSizeFromTextSize(0).x;
  if (item == nullptr || room <= 0 || GetTextExtent(item->caption).x <= room) {
    UnsetToolTip();
    return;
  }
  SetToolTip(item->caption);
  if (zu::vcl::platform::lists_shorten_captions()) return;
  shortened_ = GetSelection();
  wxClientDC dc(this);
  dc.SetFont(GetFont());
  SetString(static_cast<unsigned>(shortened_),
            wxControl::Ellipsize(item->caption, dc, wxELLIPSIZE_END, room, wxELLIPSIZE_FLAGS_NONE));
}

void Tzu_vcl_selbox::restore_active() {
  if (shortened_ == wxNOT_FOUND) return;
  auto const position = static_cast<std::size_t>(std::exchange(shortened_, wxNOT_FOUND));
  SetString(static_cast<unsigned>(position), items_[position].caption);
}

// Measuring takes long, so a caption that is several letters shorter is not measured.
void Tzu_vcl_selbox::measure(std::wstring const& caption) {
  constexpr std::size_t letters = 4;
  if (caption.size() + letters < longest_) return;
  longest_ = std::max(longest_, caption.size());
  widest_ = std::max(widest_, GetTextExtent(caption).x);
}

wxSize Tzu_vcl_selbox::DoGetBestSize() const {
  // The toolkit would measure all items at every layout and would make the form too wide.
  wxSize best = GetSizeFromTextSize(widest_);
  best.x = std::min(best.x, zu::vcl::scaled(*this, least_width));
  return best;
}

void Tzu_vcl_selbox::call_on_change() const {
  if (on_change) on_change();
}

Tzu_vcl_combo_box::Tzu_vcl_combo_box(wxWindow* parent) : wxComboBox(parent, wxID_ANY) {}
