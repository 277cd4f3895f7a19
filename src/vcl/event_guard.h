// Brings exceptions of event handlers to the caller of the form.
//
// An exception must not pass through the C code of the window system. So every handler of the
// kit is bound by bind_guarded: the form of the window keeps the exception and closes, and
// Tzu_vcl_form::show_modal throws it again.
#pragma once

#include <wx/window.h>

#include <functional>
#include <type_traits>
#include <utility>

namespace zu::vcl {

// Runs `body` and gives its exception to the form of `window`.
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

// Runs `body` after the current event, unless `window` is destroyed before.
void call_after_guarded(wxWindow& window, std::function<void()> body);

}  // namespace zu::vcl
