#include "interchange/foreign_messages.h"

#include <new>
#include <utility>

#include "interchange/gdal.h"

namespace zu::foreign_messages {
namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
thread_local sink const* receiver = nullptr;
thread_local bool memory_is_short = false;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

void pass_on(char const* message) {
  if (message == nullptr) return;
  // PROJ catches exceptions and reports their texts.
  std::bad_alloc const caught;
  if (std::string_view(message).find(caught.what()) != std::string_view::npos)
    memory_is_short = true;
  tell(message);
}

void CPL_STDCALL on_gdal_message(CPLErr level, CPLErrorNum number, char const* message) {
  if (level == CE_Debug)
    gdal().CPLDefaultErrorHandler(level, number, message);
  else
    pass_on(message);
}

void on_proj_message(void* /*context*/, int /*level*/, char const* message) { pass_on(message); }

}  // namespace

Tsink_scope::Tsink_scope(sink wanted)
    : own_(std::move(wanted)), outer_(std::exchange(receiver, &own_)) {
  proj_log_func(proj_library::current_context(), nullptr, &on_proj_message);
}
Tsink_scope::~Tsink_scope() { receiver = outer_; }

void tell(std::string_view message) {
  if (receiver != nullptr) (*receiver)(message);
}

Tscope::Tscope() : was_short_(std::exchange(memory_is_short, false)) {
  gdal().CPLPushErrorHandler(&on_gdal_message);
}
Tscope::~Tscope() {
  gdal().CPLPopErrorHandler();
  memory_is_short = memory_is_short || was_short_;
}

bool is_memory_short() noexcept { return memory_is_short; }

Tproj_scope::Tproj_scope() : level_(proj_log_level(proj_library::current_context(), PJ_LOG_TELL)) {
  proj_log_level(proj_library::current_context(), receiver != nullptr ? PJ_LOG_ERROR : PJ_LOG_NONE);
}
Tproj_scope::~Tproj_scope() { proj_log_level(proj_library::current_context(), level_); }

}  // namespace zu::foreign_messages
