// The smallest host in C++. It is linked with the library and has no window.
//
//   host DEFINITION    opens the dialog on a definition and prints the result
//   host               opens no dialog: prints the library's version
#include <iostream>

#include "zu_pj_edit/zu_pj_edit.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    // Without the suite's editor module this returns null.
    void* const result = zu_proj4_form_execute_w(nullptr, nullptr, nullptr);
    std::cout << "zu_pj_edit " ZU_PJ_EDIT_VERSION ", editor module: "
              << (result == nullptr ? "none" : "loaded") << '\n';
    return 0;
  }
  unsigned char changed = 0;
  char const* const definition = zu_proj4_form_execute(nullptr, argv[1], &changed);
  std::cout << definition << '\n' << (changed != 0 ? "changed" : "unchanged") << '\n';
  return 0;
}
