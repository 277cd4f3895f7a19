#include <stdio.h>

#include "zu_pj_edit/zu_pj_edit.h"

int main(void) {
  /* No editor module is loaded here, so there is nobody to hand the call to. */
  void* const result = zu_proj4_form_execute_w(NULL, NULL, NULL);
  printf("C consumer: zu_pj_edit %s, %s\n", ZU_PJ_EDIT_VERSION,
         result == NULL ? "no editor module" : "editor module");
  return result == NULL ? 0 : 1;
}
