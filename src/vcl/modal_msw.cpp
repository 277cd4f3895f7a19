#include "vcl/modal.h"

namespace zu::vcl {

class Tmodal_loop::Tloop {};

Tmodal_loop::Tmodal_loop() = default;
Tmodal_loop::~Tmodal_loop() = default;

int Tmodal_loop::run(wxDialog& /*dialog*/, std::function<int()> const& show_modal) {
  return show_modal();
}

void Tmodal_loop::end(wxDialog& /*dialog*/) {}

}  // namespace zu::vcl
