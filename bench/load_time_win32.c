/* usage: load_time LIBRARY
   Prints how many milliseconds the loading of a library takes in a new process. */
#include <stdio.h>
#include <windows.h>

int main(int argc, char** argv) {
  LARGE_INTEGER before;
  LARGE_INTEGER after;
  LARGE_INTEGER second;
  if (argc != 2) return 2;
  QueryPerformanceFrequency(&second);
  QueryPerformanceCounter(&before);
  HMODULE const library = LoadLibraryA(argv[1]);
  QueryPerformanceCounter(&after);
  if (library == NULL) return 1;
  printf("%.3f\n", (double)(after.QuadPart - before.QuadPart) * 1e3 / (double)second.QuadPart);
  // The process ends, so nothing unloads the library.
  // cppcheck-suppress resourceLeak
  return 0;
}
