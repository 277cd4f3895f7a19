/* A call that may end by an exception of the system's. */
#ifndef ZU_HOST_GUARD_H
#define ZU_HOST_GUARD_H

#include <windows.h>

/* Returns the code of the exception that ended `body`, 0 when none did. */
DWORD call_guarded(void (*body)(void* context), void* context);

#endif
