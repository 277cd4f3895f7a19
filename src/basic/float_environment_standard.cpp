#include "basic/float_environment.h"

namespace zu {

Tfloat_scope::Tfloat_scope() noexcept {
  std::fegetenv(&environment_);
  std::fesetenv(FE_DFL_ENV);
}

void Tfloat_scope::restore() const noexcept { std::fesetenv(&environment_); }

}  // namespace zu
