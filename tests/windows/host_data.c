/* PROJ's database in the folder of the library. Codes of systems need it. */
#include <stdio.h>
#include <stdlib.h>

#include "host_support.h"

/* No code page has all these letters. */
#define FOLDER L"host data \u041a\u0430\u0440\u0442\u0430 \u03b1 \u4e2d"

static wchar_t definition_file[MAX_PATH];

static void script_load(HWND form) {
  press(form, load_button);
  HWND const chooser = wait_for_dialog(form);
  type_text(chooser, NULL, definition_file);
  PostMessageW(chooser, WM_COMMAND, IDOK, 0);
  wait_until_closed(chooser);
  /* A message over the form would disable the button. */
  press(form, apply_button);
}

/* Loads a file with the code of a system. The library is in another folder than this
   program, with the database or without it. */
static void load_code(BOOL with_database, char const* expected) {
  static wchar_t const* const names[] = {L"zu_pj_edit.dll", L"proj.db"};
  static wchar_t const* const copies[] = {FOLDER L"\\zu_pj_edit.dll", FOLDER L"\\proj.db"};
  wchar_t shipped[MAX_PATH];
  wchar_t copy[MAX_PATH];
  /* These variables must not help. */
  CHECK(_putenv("PROJ_DATA=") == 0 && _putenv("PROJ_LIB=") == 0);
  library_path(copy, FOLDER);
  (void)CreateDirectoryW(copy, NULL);
  for (int i = 0; i < 2; ++i) {
    library_path(shipped, names[i]);
    library_path(copy, copies[i]);
    (void)DeleteFileW(copy);
    if (i == 0 || with_database) CHECK(CopyFileW(shipped, copy, FALSE));
  }
  library_path(definition_file, FOLDER L"\\\u8868.pj4");
  FILE* const file = _wfopen(definition_file, L"wb");
  CHECK(file != NULL && fputs("+init=epsg:28407\n", file) >= 0);
  CHECK(file != NULL && fclose(file) == 0);

  library_name = copies[0];
  CHECK_FORM(open_host(), MOSCOW, script_load, expected, 1);
}

HOST_CASE(database_is_found_beside_the_library) { load_code(TRUE, PULKOVO_ZONE_7); }

HOST_CASE(database_may_be_missing) { load_code(FALSE, ""); }
