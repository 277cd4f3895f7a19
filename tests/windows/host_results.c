/* What a call takes and gives back. */
#include <locale.h>
#include <stdio.h>
#include <string.h>

#include "host_support.h"

static void script_close(HWND form) {
  type_text(form, L"37.5", L"38.25");
  PostMessageW(form, WM_CLOSE, 0, 0);
}

HOST_CASE(result_of_cancel_is_the_input) {
  /* No catalogue row, spelling or order of keys may touch what is not applied. */
  static char const* const texts[] = {"+units=m  +proj=merc +zone=x ", "", "not a definition",
                                      PULKOVO_ZONE_7};
  for (size_t i = 0; i < sizeof texts / sizeof texts[0]; ++i) {
    CHECK_FORM(NULL, texts[i], script_cancel, texts[i], 0);
  }
  CHECK_FORM(NULL, NULL, script_cancel, "", 0);
  CHECK_FORM(NULL, MOSCOW " ", script_close, MOSCOW " ", 0);
}

HOST_CASE(result_of_apply_is_canonical) {
  CHECK_FORM(NULL, PULKOVO_ZONE_7, script_apply, PULKOVO_ZONE_7, 1);
  CHECK_FORM(NULL, "  " MOSCOW_TM("37.500") " +title=x", script_apply, MOSCOW, 1);
  CHECK_FORM(NULL, NULL, script_apply, "", 1);
}

HOST_CASE(result_lives_until_the_next_call) {
  outcome const applied = run_form(NULL, MOSCOW_TM("37.500"), script_apply);
  /* Whatever the host does meanwhile. */
  HWND const host = open_host();
  CHECK_TEXT(applied.address, MOSCOW);
  /* The last result is a good input, with any end of the form. */
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

HOST_CASE(locale_with_decimal_comma_changes_nothing) {
  char kept[256];
  char number[16];
  CHECK(setlocale(LC_ALL, "German_Germany.1252") != NULL);
  (void)snprintf(kept, sizeof kept, "%s", setlocale(LC_ALL, NULL));
  CHECK_FORM(NULL, MOSCOW, script_type, MOSCOW_TYPED, 1);
  CHECK_TEXT(setlocale(LC_ALL, NULL), kept);
  (void)snprintf(number, sizeof number, "%.1f", 0.5);
  CHECK_TEXT(number, "0,5");
}
