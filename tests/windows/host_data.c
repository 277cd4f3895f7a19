/* PROJ's database in the folder of the library. Codes of systems need it. test_shipped_data
   has none, and bad ones. */
#include <stdio.h>
#include <stdlib.h>

#include "host_support.h"

/* No code page has all these letters. */
#define FOLDER L"host data \u041a\u0430\u0440\u0442\u0430 \u03b1 \u4e2d\\"

#define PULKOVO_ZONE_7                                           \
  "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "   \
  "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass " \
  "+units=m +lon_wrap=45 +no_defs"

static void script_load(HWND form) {
  wchar_t path[MAX_PATH];
  GetFullPathNameW(FOLDER L"\u8868.pj4", MAX_PATH, path, NULL);
  press(form, load_button);
  HWND const chooser = wait_for_dialog(form);
  type_text(chooser, NULL, path);
  PostMessageW(chooser, WM_COMMAND, IDOK, 0);
  wait_until_closed(chooser);
  /* A message over the form would disable the button. */
  press(form, apply_button);
}

/* Loads a file with the code of a system. The library is in another folder than this
   program. */
HOST_CASE(database_is_found_beside_the_library) {
  /* These variables must not help. */
  CHECK(_putenv("PROJ_DATA=") == 0 && _putenv("PROJ_LIB=") == 0);
  (void)CreateDirectoryW(FOLDER, NULL);
  CHECK(CopyFileW(L"zu_pj_edit.dll", FOLDER L"zu_pj_edit.dll", FALSE));
  CHECK(CopyFileW(L"proj.db", FOLDER L"proj.db", FALSE));
  FILE* const file = _wfopen(FOLDER L"\u8868.pj4", L"wb");
  CHECK(file != NULL && fputs("+init=epsg:28407\n", file) >= 0);
  CHECK(file != NULL && fclose(file) == 0);
  library_name = FOLDER L"zu_pj_edit.dll";
  CHECK_FORM(open_host(), MOSCOW, script_load, PULKOVO_ZONE_7, 1);
}
