/* usage: load_time LIBRARY
   Prints how many milliseconds the loading of a library takes in a new process. */
#include <dlfcn.h>
#include <stdio.h>
#include <time.h>

int main(int argc, char** argv) {
  struct timespec before;
  struct timespec after;
  if (argc != 2) return 2;
  clock_gettime(CLOCK_MONOTONIC, &before);
  void* const library = dlopen(argv[1], RTLD_NOW);
  clock_gettime(CLOCK_MONOTONIC, &after);
  if (library == NULL) return 1;
  printf("%.3f\n", (double)(after.tv_sec - before.tv_sec) * 1e3 +
                       (double)(after.tv_nsec - before.tv_nsec) / 1e6);
  // The process ends, so nothing unloads the library.
  // cppcheck-suppress resourceLeak
  return 0;
}
