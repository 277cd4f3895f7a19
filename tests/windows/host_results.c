/* Texts that go to the library and come back. */
#include <string.h>

#include "host_support.h"

HOST_CASE(result_lives_until_the_next_call) {
  outcome const applied = run_form(NULL, "  " MOSCOW_TM("37.500") " +title=x", script_apply);
  HWND const host = open_host();
  CHECK_TEXT(applied.address, MOSCOW);
  /* The host may hand in the last result. */
  outcome const cancelled = run_form(host, applied.address, script_cancel);
  CHECK_TEXT(cancelled.address, MOSCOW);
  outcome const again = run_form(host, cancelled.address, script_apply);
  CHECK_TEXT(again.address, MOSCOW);
}

HOST_CASE(result_keeps_letters_of_the_code_page) {
  char text[512] = MOSCOW " +title=";
  size_t length = strlen(text);
  for (int byte = 0x80; byte <= 0xFF; ++byte) text[length++] = (char)byte;
  text[length] = 0;
  CHECK_FORM(NULL, text, script_cancel, text, 0);
  CHECK_FORM(NULL, text, script_apply, MOSCOW, 1);
}
