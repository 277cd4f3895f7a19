/* Shared by the sample hosts in C and C++: their options, loading the library at run time, and
   their output. Hosts in other languages do the same.

   usage: HOST [--times N] [--library FILE] [DEFINITION]

   --times N       open the dialog N times by itself, each time from the event loop, and
                   end that loop
   --library FILE  the library; by default the one in the program's folder

   A host prints four lines after each call:
     before: DEFINITION
     after: DEFINITION
     changed: 0 or 1
     ticks: how often the host's timer has run while the dialog was open */
#ifndef ZU_HOST_COMMON_H
#define ZU_HOST_COMMON_H

#include "zu_pj_edit/zu_pj_edit.h"

#ifdef __cplusplus
extern "C" {
#endif

enum {
  host_text_size = 4096,
  host_tick_ms = 50,   /* how often the host's timer runs */
  host_pause_ms = 500, /* before each dialog, for the window to get its place */
};

/* C reads it, too. NOLINTNEXTLINE(modernize-use-using) */
typedef struct {
  int times;   /* dialogs that the host will open; 0 when the user opens them */
  int is_open; /* a dialog is open, so do not open another one */
  int ticks;
  int changed; /* of the last call */
  char definition[host_text_size];
} host_state;

/* Reads the options and loads the library. On failure prints a line and returns 0. */
int host_start(host_state* self, int argc, char** argv);

/* Without a name, loads the library in the program's folder. */
int host_load(char const* library);

/* The definition if the user names none. */
extern char const host_usual_definition[];
void host_set_definition(host_state* self, char const* text);

/* Opens the dialog on the definition, keeps the result and prints the call. */
void host_edit(host_state* self, zu_pj_edit_window owner);

/* The host's timer calls this. */
void host_tick(host_state* self);

#ifdef __cplusplus
}
#endif

#endif
