#include "interchange/foreign_messages.h"

#include <cpl_error.h>

#include <utility>

namespace zu::foreign_messages {
namespace {

sink& receiver() {
  static sink installed;
  return installed;
}

void pass_on(char const* message) {
  if (message != nullptr && receiver()) receiver()(message);
}

void CPL_STDCALL on_gdal_message(CPLErr level, CPLErrorNum number, char const* message) {
  if (level == CE_Debug)
    CPLDefaultErrorHandler(level, number, message);
  else
    pass_on(message);
}

void on_proj_message(void* /*context*/, int /*level*/, char const* message) { pass_on(message); }

}  // namespace

void set_sink(sink wanted) {
  receiver() = std::move(wanted);
  if (receiver()) proj_log_func(nullptr, nullptr, &on_proj_message);
}

Tscope::Tscope() { CPLPushErrorHandler(&on_gdal_message); }
Tscope::~Tscope() { CPLPopErrorHandler(); }

Tproj_scope::Tproj_scope() : level_(proj_log_level(nullptr, PJ_LOG_TELL)) {
  proj_log_level(nullptr, receiver() ? PJ_LOG_ERROR : PJ_LOG_NONE);
}
Tproj_scope::~Tproj_scope() { proj_log_level(nullptr, level_); }

}  // namespace zu::foreign_messages
