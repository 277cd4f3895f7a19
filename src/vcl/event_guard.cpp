#include "vcl/event_guard.h"

#include <exception>

#include "vcl/form.h"

namespace zu::vcl {

void run_guarded(wxWindow& window, std::function<void()> const& body) {
  Tzu_vcl_form* const form = Tzu_vcl_form::find_form(&window);
  if (form == nullptr) {
    body();
    return;
  }
  try {
    body();
  } catch (...) {
    form->hold_exception(std::current_exception());
  }
}

void call_after_guarded(wxWindow& window, std::function<void()> body) {
  // Waiting calls for a window are dropped when the window is destroyed.
  window.CallAfter([source = &window, body = std::move(body)] { run_guarded(*source, body); });
}

}  // namespace zu::vcl
