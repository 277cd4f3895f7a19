#include "memory.h"

#include <malloc.h>

namespace memory {

// These sizes are far more than a conversion frees at once. A block of more than half of glibc's
// heap of a thread (64 MB) cannot be a part of that heap, so 32 MB is the most that glibc takes.
void keep_freed() noexcept {
  mallopt(M_TRIM_THRESHOLD, 64 << 20);
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
  mallopt(M_TOP_PAD, 8 << 20);
}

}  // namespace memory
