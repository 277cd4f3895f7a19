// Event handlers whose exceptions reach the caller of the form.
//
// No exception may fly through the frames of the window system's C code. Every
// handler of the kit is bound by bind_guarded: what it throws is kept in the
// form the window is on, the form closes, and Tzu_vcl_form::show_modal throws
// it again.
#pragma once

#include <wx/window.h>

#include <functional>
#include <type_traits>
#include <utility>

namespace zu::vcl {

// Runs `body` on behalf of `window`.
void run_guarded(wxWindow& window, std::function<void()> const& body);

// `handler` takes the event or nothing.
template <class Event_tag, class Handler>
void bind_guarded(wxWindow& window, Event_tag const& tag, Handler handler) {
  using Event = typename Event_tag::EventClass;
  window.Bind(tag, [source = &window, handler = std::move(handler)](Event& event) {
    run_guarded(*source, [&] {
      if constexpr (std::is_invocable_v<Handler const&, Event&>) {
        handler(event);
      } else {
        handler();
      }
    });
  });
}

// Runs `body` once the event being handled is done with, unless `window` is
// gone by then.
void call_after_guarded(wxWindow& window, std::function<void()> body);

}  // namespace zu::vcl
