// The system's current look of controls.
#pragma once

#include <cstdint>

namespace zu::vcl {

namespace platform {

// Returns the argument for leave_current_look; 0 when there was nothing to do.
std::uintptr_t enter_current_look();
void leave_current_look(std::uintptr_t cookie);

}  // namespace platform

// New windows in this scope have the system's current controls, whatever look the host uses.
// Only Windows has more than one look.
class Tzu_look_scope {
 public:
  Tzu_look_scope() : cookie_(platform::enter_current_look()) {}
  ~Tzu_look_scope() { platform::leave_current_look(cookie_); }
  Tzu_look_scope(Tzu_look_scope const&) = delete;
  Tzu_look_scope& operator=(Tzu_look_scope const&) = delete;

 private:
  std::uintptr_t cookie_;
};

}  // namespace zu::vcl
