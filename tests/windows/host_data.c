/* PROJ's database beside the library, which the code of a system needs. */
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

#include "host_support.h"

/* Letters of no code page, and blanks. */
#define FOLDER L"host data \u041a\u0430\u0440\u0442\u0430 \u03b1 \u4e2d"
#define NO_ZONE ""

static wchar_t definition_file[MAX_PATH];

static void put_file(wchar_t const* name, char const* content) {
  FILE* const file = _wfopen(name, L"wb");
  CHECK(file != NULL);
  if (file == NULL) return;
  CHECK(fputs(content, file) >= 0);
  CHECK(fclose(file) == 0);
}

static void script_load(HWND form) {
  press(form, load_button);
  HWND const chooser = wait_for_message(form);
  type_text(chooser, NULL, definition_file);
  PostMessageW(chooser, WM_COMMAND, IDOK, 0);
  wait_until_closed(chooser);
  /* A message over the form would keep it from this. */
  press(form, apply_button);
}

/* Loads a file with the code of a system, with the library in a folder apart. The
   database there has this content; null stands for the one that is shipped, "-"
   for none. */
static void load_code(char const* database, char const* expected) {
  wchar_t copy[MAX_PATH];
  wchar_t shipped[MAX_PATH];
  wchar_t beside[MAX_PATH];
  /* Nothing else is to tell where the database is. */
  CHECK(_putenv("PROJ_DATA=") == 0 && _putenv("PROJ_LIB=") == 0);
  library_path(copy, MAX_PATH, FOLDER);
  (void)CreateDirectoryW(copy, NULL);
  library_path(shipped, MAX_PATH, L"zu_pj_edit.dll");
  library_path(copy, MAX_PATH, FOLDER L"\\zu_pj_edit.dll");
  CHECK(CopyFileW(shipped, copy, FALSE));
  library_path(shipped, MAX_PATH, L"proj.db");
  library_path(beside, MAX_PATH, FOLDER L"\\proj.db");
  (void)DeleteFileW(beside);
  if (database == NULL)
    CHECK(CopyFileW(shipped, beside, FALSE));
  else if (*database != '-')
    put_file(beside, database);
  library_path(definition_file, MAX_PATH, L"host_data.pj4");
  put_file(definition_file, "[projection]\npj4=+init=epsg:28407\n");

  use_library(FOLDER L"\\zu_pj_edit.dll");
  CHECK_OUTCOME(run_form(open_host(), MOSCOW_TM("37.5"), script_load), expected, 1);
}

void database_is_found_beside_the_library(void) { load_code(NULL, PULKOVO_ZONE_7); }
void database_may_be_missing(void) { load_code("-", NO_ZONE); }
void database_may_be_empty(void) { load_code("", NO_ZONE); }
void database_may_be_no_database(void) { load_code("text", NO_ZONE); }
