#include "vcl/look_scope.h"

namespace zu::vcl {

Tzu_look_scope::Tzu_look_scope() = default;
Tzu_look_scope::~Tzu_look_scope() = default;

}  // namespace zu::vcl
