// How the program keeps memory.
#pragma once

namespace memory {

// Keeps freed memory in the program. GDAL and PROJ take and free much memory for each system. On
// Linux each time would be a call of the system, for which all threads wait. Measured with
// "import -": 1.2 times as fast with one job and with two.
void keep_freed() noexcept;

}  // namespace memory
