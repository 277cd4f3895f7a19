/* Texts that go to the library and come back. */
#include <string.h>

#include "host_support.h"

HOST_CASE(result_lives_until_the_next_call) {
  char const* const applied =
      CHECK_FORM(NULL, "  " MOSCOW_TM("37.500") " +title=x", script_apply, MOSCOW, 1);
  HWND const host = open_host();
  CHECK(strcmp(applied, MOSCOW) == 0);
  /* The host may hand in the last result. */
  char const* const cancelled = CHECK_FORM(host, applied, script_cancel, MOSCOW, 0);
  CHECK_FORM(host, cancelled, script_apply, MOSCOW, 1);
}

HOST_CASE(result_keeps_letters_of_the_code_page) {
  char text[512] = MOSCOW " +title=";
  size_t length = strlen(text);
  for (int byte = 0x80; byte <= 0xFF; ++byte) text[length++] = (char)byte;
  text[length] = 0;
  CHECK_FORM(NULL, text, script_cancel, text, 0);
  CHECK_FORM(NULL, text, script_apply, MOSCOW, 1);
}
