#include "vcl/modal.h"

namespace zu::vcl {

class Tmodal_loop::Tloop {};

Tmodal_loop::Tmodal_loop() = default;
Tmodal_loop::~Tmodal_loop() = default;

// Elsewhere there is a loop to run.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
int Tmodal_loop::run(wxDialog& /*dialog*/, std::function<int()> const& show_modal) {
  return show_modal();
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
void Tmodal_loop::end(wxDialog& /*dialog*/) {}

}  // namespace zu::vcl
