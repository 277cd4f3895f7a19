/* What a call takes and gives back. */
#include <locale.h>
#include <stdio.h>
#include <string.h>
#include <wchar.h>

#include "host_support.h"

void result_of_cancel_is_the_input(void) {
  /* No catalogue row, spelling or order of keys may touch what is not applied. */
  static char const* const texts[] = {"+units=m  +proj=merc +zone=x ", "", "not a definition",
                                      PULKOVO_ZONE_7};
  for (size_t i = 0; i < sizeof texts / sizeof texts[0]; ++i) {
    CHECK_OUTCOME(run_form(NULL, texts[i], script_cancel), texts[i], 0);
  }
  CHECK_OUTCOME(run_form(NULL, NULL, script_cancel), "", 0);
}

static void script_close(HWND form) {
  type_text(form, L"37.5", L"38.25");
  PostMessageW(form, WM_CLOSE, 0, 0);
}

void result_of_closing_is_the_input(void) {
  CHECK_OUTCOME(run_form(NULL, MOSCOW_TM("37.50"), script_close), MOSCOW_TM("37.50"), 0);
}

void result_of_apply_is_canonical(void) {
  CHECK_OUTCOME(run_form(NULL, PULKOVO_ZONE_7, script_apply), PULKOVO_ZONE_7, 1);
  CHECK_OUTCOME(run_form(NULL, "  " MOSCOW_TM("37.500") " +title=x", script_apply),
                MOSCOW_TM("37.5"), 1);
  CHECK_OUTCOME(run_form(NULL, NULL, script_apply), "", 1);
}

void result_lives_until_the_next_call(void) {
  outcome const applied = run_form(NULL, MOSCOW_TM("37.500"), script_apply);
  /* Whatever the host does meanwhile. */
  HWND const host = open_host();
  pump();
  CHECK_TEXT(applied.address, MOSCOW_TM("37.5"));
  /* The last result is a good input, with any end of the form. */
  outcome const cancelled = run_form(host, applied.address, script_cancel);
  CHECK_TEXT(cancelled.text, MOSCOW_TM("37.5"));
  outcome const again = run_form(host, cancelled.address, script_apply);
  CHECK_TEXT(again.text, MOSCOW_TM("37.5"));
  CHECK_TEXT(again.address, MOSCOW_TM("37.5"));
}

static void script_type(HWND form) {
  type_text(form, L"37.5", L"38.25");
  press(form, apply_button);
}

void result_has_the_typed_number(void) {
  CHECK_OUTCOME(run_form(open_host(), MOSCOW_TM("37.5"), script_type), MOSCOW_TM("38.25"), 1);
}

static void script_choose(HWND form) {
  /* The first list is the type of the definition, its first item "none". */
  HWND const list = find_child(form, L"ComboBox", NULL);
  DWORD_PTR result = 0;
  CHECK(list != NULL);
  SendMessageTimeoutW(list, CB_SETCURSEL, 0, 0, SMTO_NORMAL, patience_ms, &result);
  WPARAM const id = (WPARAM)GetDlgCtrlID(list) & 0xFFFF;
  UINT const notices[] = {CBN_SELENDOK, CBN_SELCHANGE};
  for (int i = 0; i < 2; ++i) {
    SendMessageTimeoutW(GetParent(list), WM_COMMAND, id | (WPARAM)notices[i] << 16, (LPARAM)list,
                        SMTO_NORMAL, patience_ms, &result);
  }
  CHECK(find_child(form, L"Edit", NULL) == NULL);
  press(form, apply_button);
}

void result_has_the_chosen_item(void) {
  CHECK_OUTCOME(run_form(NULL, MOSCOW_TM("37.5"), script_choose), "", 1);
}

static void script_refuse(HWND form) {
  type_text(form, L"55.5", L"91");
  press(form, apply_button);
  HWND const message = wait_for_message(form);
  CHECK(!IsWindowEnabled(form));
  CHECK(find_child(message, L"Static", L"Number must be less than: 90") != NULL);
  PostMessageW(message, WM_COMMAND, IDOK, 0);
  wait_until_closed(message);
  CHECK(IsWindowVisible(form));
  type_text(form, L"91", L"55.5");
  press(form, apply_button);
}

void result_waits_for_a_good_number(void) {
  HWND const host = open_host();
  CHECK_OUTCOME(run_form(host, MOSCOW_TM("37.5"), script_refuse), MOSCOW_TM("37.5"), 1);
  CHECK(IsWindowEnabled(host));
}

void result_keeps_letters_of_the_code_page(void) {
  char text[512] = MOSCOW_TM("37.5") " +title=";
  size_t length = strlen(text);
  for (int byte = 0x80; byte <= 0xFF; ++byte) text[length++] = (char)byte;
  text[length] = 0;
  CHECK_TEXT(run_form(NULL, text, script_cancel).text, text);
  CHECK_TEXT(run_form(NULL, text, script_apply).text, MOSCOW_TM("37.5"));
}

static void script_captions(HWND form) {
  CHECK(find_child(form, L"Button", button_caption(apply_button)) != NULL);
  CHECK(find_child(form, L"Button", button_caption(cancel_button)) != NULL);
  wchar_t title[64] = L"";
  GetWindowTextW(form, title, 64);
  BOOL const russian = GetACP() == 1251;
  CHECK(wcscmp(title,
               russian ? L"\u041f\u0440\u043e\u0435\u043a\u0446\u0438\u044f" : L"Projection") == 0);
  CHECK(find_child(form, L"Static",
                   russian ? L"\u0426\u0435\u043d\u0442\u0440\u0430\u043b\u044c\u043d\u044b\u0439 "
                             L"\u043c\u0435\u0440\u0438\u0434\u0438\u0430\u043d"
                           : L"Central Meridian") != NULL);
  press(form, cancel_button);
}

void captions_are_in_the_users_language(void) {
  /* The system's language and its code page go together here. */
  CHECK_NUMBER(PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_RUSSIAN, GetACP() == 1251);
  (void)run_form(NULL, MOSCOW_TM("37.5"), script_captions);
}

void locale_with_decimal_comma_changes_nothing(void) {
  char kept[256];
  char number[16];
  CHECK(setlocale(LC_ALL, "German_Germany.1252") != NULL);
  (void)snprintf(kept, sizeof kept, "%s", setlocale(LC_ALL, NULL));
  (void)snprintf(number, sizeof number, "%.1f", 0.5);
  CHECK_TEXT(number, "0,5");
  CHECK_TEXT(run_form(NULL, MOSCOW_TM("37.5"), script_type).text, MOSCOW_TM("38.25"));
  CHECK_TEXT(setlocale(LC_ALL, NULL), kept);
  (void)snprintf(number, sizeof number, "%.1f", 0.5);
  CHECK_TEXT(number, "0,5");
}
