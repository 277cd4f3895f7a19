// The current look of controls.
#pragma once

#include <cstdint>

namespace zu::vcl {

// Within its scope windows are made with the system's current controls, whatever
// look the host has chosen for its own. Only Windows knows more than one.
class Tzu_look_scope {
 public:
  Tzu_look_scope();
  ~Tzu_look_scope();
  Tzu_look_scope(Tzu_look_scope const&) = delete;
  Tzu_look_scope& operator=(Tzu_look_scope const&) = delete;

 private:
  std::uintptr_t cookie_ = 0;
};

}  // namespace zu::vcl
