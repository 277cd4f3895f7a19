// The messages of GDAL and PROJ during a conversion.
#pragma once

#include <functional>
#include <string_view>

#include "proj4/proj_library.h"

namespace zu::foreign_messages {

// Receives each message, in UTF-8, without a line end.
using sink = std::function<void(std::string_view)>;

// Sends the messages of this thread to a sink. Without one they are dropped. The dialog
// library must not use this: it changes PROJ's current context, and the default context
// belongs to the host.
class Tsink_scope {
 public:
  explicit Tsink_scope(sink wanted);
  ~Tsink_scope();
  Tsink_scope(Tsink_scope const&) = delete;
  Tsink_scope& operator=(Tsink_scope const&) = delete;

 private:
  sink own_;
  sink const* outer_;
};

// Sends a message of this library to the sink.
void tell(std::string_view message);

// Within its scope the messages of this thread go to the sink, or are dropped.
class Tscope {
 public:
  Tscope();
  ~Tscope();
  Tscope(Tscope const&) = delete;
  Tscope& operator=(Tscope const&) = delete;

 private:
  bool was_short_;
};

// Whether a message in the innermost scope, or in a scope inside it, reported a lack of
// memory. The libraries then continue with an incomplete result, for example without
// the shift of a datum.
bool is_memory_short() noexcept;

// The same for PROJ's current context.
class Tproj_scope {
 public:
  Tproj_scope();
  ~Tproj_scope();
  Tproj_scope(Tproj_scope const&) = delete;
  Tproj_scope& operator=(Tproj_scope const&) = delete;

 private:
  PJ_LOG_LEVEL level_;
};

}  // namespace zu::foreign_messages
