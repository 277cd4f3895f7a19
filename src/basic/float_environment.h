// The floating-point environment of the thread that a host calls on.
#pragma once

#include <cfenv>

namespace zu {

// Within its scope no floating-point exception traps, results are rounded to the
// nearest number in full precision, and small numbers do not become 0. PROJ, GDAL and
// the toolkit are written for that: they divide by zero on purpose. A host may have
// set something else. At its end the scope restores exactly what the thread had,
// including the status flags, so that nothing from inside traps later.
class Tfloat_scope {
 public:
  Tfloat_scope() noexcept;
  ~Tfloat_scope() { restore(); }
  Tfloat_scope(Tfloat_scope const&) = delete;
  Tfloat_scope& operator=(Tfloat_scope const&) = delete;

  // Restores early, for an exception that does not end the scope.
  void restore() const noexcept;

 private:
  // State that fenv_t does not have, or that fegetenv reads more slowly.
  std::fenv_t environment_{};
  unsigned mxcsr_ = 0;
  unsigned short control_ = 0;
  unsigned short status_ = 0;
};

// Makes a call within such a scope.
template <class Call>
auto in_float_scope(Call call) {
  Tfloat_scope const scope;
  return call();
}

}  // namespace zu
