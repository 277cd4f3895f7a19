#include "host_common.h"

#include <dlfcn.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

typedef char const* (*execute_function)(zu_pj_edit_window owner, char const* definition,
                                        unsigned char* changed);

/* NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one in a process */
static execute_function execute;

char const host_usual_definition[] =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

void host_set_definition(host_state* self, char const* text) {
  (void)snprintf(self->definition, sizeof self->definition, "%s", text);
}

int host_load(char const* library) {
  char path[PATH_MAX + 32] = "";
  if (library == NULL) {
    ssize_t const length = readlink("/proc/self/exe", path, PATH_MAX);
    static char const name[] = "libzu_pj_edit.so";
    char* const separator = length > 0 ? strrchr(path, '/') : NULL;
    if (separator != NULL) memcpy(separator + 1, name, sizeof name);
    library = path;
  }
  /* RTLD_LOCAL keeps the names of the host and the library apart. The library stays loaded
     until the program ends. */
  void* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  void* const address = handle == NULL ? NULL : dlsym(handle, "zu_proj4_form_execute");
  if (address == NULL) {
    (void)fprintf(stderr, "host: cannot load the library: %s\n", dlerror());
    /* cppcheck-suppress resourceLeak */
    return 0;
  }
  /* C cannot cast an object's address to a function's. */
  memcpy(&execute, &address, sizeof execute);
  /* cppcheck-suppress resourceLeak */
  return 1;
}

int host_start(host_state* self, int argc, char** argv) {
  char const* library = NULL;
  host_set_definition(self, host_usual_definition);
  for (int i = 1; i < argc; ++i) {
    if (strcmp(argv[i], "--times") == 0 && i + 1 < argc) {
      self->times = (int)strtol(argv[++i], NULL, 10);
    } else if (strcmp(argv[i], "--library") == 0 && i + 1 < argc) {
      library = argv[++i];
    } else if (argv[i][0] == '-') {
      (void)fprintf(stderr, "usage: %s [--times N] [--library FILE] [DEFINITION]\n", argv[0]);
      return 0;
    } else {
      host_set_definition(self, argv[i]);
    }
  }
  return host_load(library);
}

void host_edit(host_state* self, zu_pj_edit_window owner) {
  unsigned char changed = 0;
  if (self->is_open) return;
  self->is_open = 1;
  self->ticks = 0;
  char const* const after = execute(owner, self->definition, &changed);
  self->is_open = 0;
  self->changed = changed;
  (void)printf("before: %s\nafter: %s\nchanged: %d\nticks: %d\n", self->definition, after, changed,
               self->ticks);
  (void)fflush(stdout);
  host_set_definition(self, after);
  if (self->times > 0) --self->times;
}

void host_tick(host_state* self) {
  if (self->is_open) ++self->ticks;
}
