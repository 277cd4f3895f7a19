// The messages of GDAL and PROJ during a conversion.
#pragma once

#include <functional>
#include <string_view>

#include "proj4/proj_library.h"

namespace zu::foreign_messages {

// Receives each message, in UTF-8, without a line end. Without a sink the messages are
// dropped. A program installs one for its whole life. The dialog library must not: a
// sink changes PROJ's default context, which belongs to the host.
using sink = std::function<void(std::string_view)>;
void set_sink(sink wanted);

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

// The same for PROJ's default context.
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
