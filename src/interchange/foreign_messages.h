// What GDAL and PROJ have to say about a conversion.
#pragma once

#include <functional>
#include <string_view>

#include "proj4/proj_library.h"

namespace zu::foreign_messages {

// Receives each message, in UTF-8, without a line end. Without a sink nothing is
// shown. A program installs one for its whole life; it changes how PROJ's default
// context reports, which a library inside somebody else's program must not.
using sink = std::function<void(std::string_view)>;
void set_sink(sink wanted);

// Adds a message of this library's own.
void tell(std::string_view message);

// Within its scope messages of this thread go to the sink, or nowhere.
class Tscope {
 public:
  Tscope();
  ~Tscope();
  Tscope(Tscope const&) = delete;
  Tscope& operator=(Tscope const&) = delete;

 private:
  bool was_short_;
};

// Whether a message of the innermost such scope, or of one that was inside it, said
// so. The libraries go on without what they had no memory for, be it a datum's shift.
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
