#include "vcl/application.h"

Tzu_application& Tzu_application::instance() noexcept {
  static Tzu_application application;
  return application;
}
