// The floating-point environment of the thread that a host calls on.
#pragma once

#include <cfenv>

namespace zu {

// Within its scope no floating-point exception traps, results are rounded to the
// nearest number in full precision, and small numbers are not taken for 0. That is
// what PROJ, GDAL and the toolkit are written for: they divide by zero on purpose.
// Hosts may have it otherwise. At the scope's end the thread has again exactly what
// it had, its status flags included, so that nothing done inside traps later.
class Tfloat_scope {
 public:
  Tfloat_scope() noexcept;
  ~Tfloat_scope() { restore(); }
  Tfloat_scope(Tfloat_scope const&) = delete;
  Tfloat_scope& operator=(Tfloat_scope const&) = delete;

  // Gives back early, for exceptions that end no scope.
  void restore() const noexcept;

 private:
  // What of the machine's state the library's type lacks, or gives more slowly.
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
