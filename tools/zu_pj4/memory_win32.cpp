#include "memory.h"

namespace memory {

// The heap of Windows does so by itself.
void keep_freed() noexcept {}

}  // namespace memory
