/* What the sample hosts in C and C++ share: their options, the library, loaded at
   run time as a host without this build system would, and what they print. All
   sample hosts keep to it, those in other languages on their own.

   usage: HOST [--times N] [--library FILE] [DEFINITION]

   --times N       open the dialog N times by itself, each time from the running
                   event loop, and end that loop
   --library FILE  the library; by default the one beside the program

   Of each call a host prints four lines:
     before: DEFINITION
     after: DEFINITION
     changed: 0 or 1
     ticks: how often its own timer has run while the dialog was open */
#ifndef ZU_HOST_COMMON_H
#define ZU_HOST_COMMON_H

#include "zu_pj_edit/zu_pj_edit.h"

#ifdef __cplusplus
extern "C" {
#endif

enum {
  host_text_size = 4096,
  host_tick_ms = 50,   /* how often the host's timer runs */
  host_pause_ms = 500, /* before each dialog: the window has got its place */
};

/* C reads it, too. NOLINTNEXTLINE(modernize-use-using) */
typedef struct {
  int times;   /* dialogs still to be opened; 0 when the user opens them */
  int is_open; /* the dialog is: open no second one */
  int ticks;
  int changed; /* what the last call has said */
  char definition[host_text_size];
} host_state;

/* Takes the options and loads the library. False after a line on standard error. */
int host_start(host_state* self, int argc, char** argv);

/* Loads the library; without a name, the one beside the program. */
int host_load(char const* library);

/* What is edited where the user names nothing. */
extern char const host_usual_definition[];
void host_set_definition(host_state* self, char const* text);

/* Opens the dialog on the definition, keeps the result and prints the call. */
void host_edit(host_state* self, zu_pj_edit_window owner);

/* What the host's timer does. */
void host_tick(host_state* self);

#ifdef __cplusplus
}
#endif

#endif
