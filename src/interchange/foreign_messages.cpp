#include "interchange/foreign_messages.h"

#include <new>
#include <utility>

#include "interchange/gdal.h"

namespace zu::foreign_messages {
namespace {

sink& receiver() {
  static sink installed;
  return installed;
}

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
thread_local bool memory_is_short = false;

void pass_on(char const* message) {
  if (message == nullptr) return;
  // PROJ catches exceptions and reports their texts.
  std::bad_alloc const caught;
  if (std::string_view(message).find(caught.what()) != std::string_view::npos)
    memory_is_short = true;
  if (receiver()) receiver()(message);
}

void CPL_STDCALL on_gdal_message(CPLErr level, CPLErrorNum number, char const* message) {
  if (level == CE_Debug)
    gdal().CPLDefaultErrorHandler(level, number, message);
  else
    pass_on(message);
}

void on_proj_message(void* /*context*/, int /*level*/, char const* message) { pass_on(message); }

}  // namespace

void set_sink(sink wanted) {
  receiver() = std::move(wanted);
  if (receiver()) proj_log_func(nullptr, nullptr, &on_proj_message);
}

void tell(std::string_view message) {
  if (receiver()) receiver()(message);
}

Tscope::Tscope() : was_short_(std::exchange(memory_is_short, false)) {
  gdal().CPLPushErrorHandler(&on_gdal_message);
}
Tscope::~Tscope() {
  gdal().CPLPopErrorHandler();
  memory_is_short = memory_is_short || was_short_;
}

bool is_memory_short() noexcept { return memory_is_short; }

Tproj_scope::Tproj_scope() : level_(proj_log_level(nullptr, PJ_LOG_TELL)) {
  proj_log_level(nullptr, receiver() ? PJ_LOG_ERROR : PJ_LOG_NONE);
}
Tproj_scope::~Tproj_scope() { proj_log_level(nullptr, level_); }

}  // namespace zu::foreign_messages
