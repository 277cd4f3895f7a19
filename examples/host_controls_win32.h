/* Tells an outside program, such as a script that sends key strokes and mouse
   clicks, what the open dialog shows and where. */
#ifndef ZU_HOST_CONTROLS_WIN32_H
#define ZU_HOST_CONTROLS_WIN32_H

#include <windows.h>

/* Writes to `file`, replaced as a whole, the visible controls of every window
   that this thread shows but `host`, in UTF-8, one a line, fields parted by
   tabs:
     KIND X Y STATE TEXT
   KIND is window, button or edit; X and Y are the centre on the screen; STATE
   is on or off (greyed out or read-only), of a window nothing. The file is
   empty while no such window is open. False when it cannot be written. */
BOOL host_controls_write(HWND host, wchar_t const* file);

#endif
