#include "memory.h"

#include <malloc.h>

namespace memory {

void keep_freed() noexcept {
  mallopt(M_TRIM_THRESHOLD, 64 << 20);
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
  mallopt(M_TOP_PAD, 8 << 20);
}

}  // namespace memory
