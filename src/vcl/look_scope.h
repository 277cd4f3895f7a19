// The current look of controls.
#pragma once

#include <cstdint>

namespace zu::vcl {

namespace platform {

// Returns what leave_current_look takes, 0 when there was nothing to do.
std::uintptr_t enter_current_look();
void leave_current_look(std::uintptr_t cookie);

}  // namespace platform

// Within its scope windows are made with the system's current controls, whatever
// look the host has chosen for its own. Only Windows knows more than one.
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
