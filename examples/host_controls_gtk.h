/* Tells an outside program, such as a script that sends key strokes and mouse
   clicks, what the open dialog shows and where. */
#ifndef ZU_HOST_CONTROLS_GTK_H
#define ZU_HOST_CONTROLS_GTK_H

#include <gtk/gtk.h>

/* Keeps `file` up to date with the visible controls of every top-level window
   but `host`, one a line, fields parted by tabs:
     KIND X Y STATE TEXT
   KIND is window, button or edit; X and Y are the centre on the screen; STATE
   is on or off (greyed out or read-only), of a window its X11 id. The file is
   empty while no such window is open. `file` must outlive the program's main
   loop. */
void host_controls_watch(GtkWidget* host, char const* file);

#endif
