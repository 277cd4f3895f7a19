/* What the library asks of its host: the language of the dialog's texts and the
   place of the catalogue. The library finds this module by its name. So the dialog
   has QGIS's language, not the system's, and the plug-in's catalogue, not one
   beside QGIS's program. */
#include <wchar.h>

#if defined(_WIN32)
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED __attribute__((visibility("default")))
#endif

enum { path_size = 32768, russian = 0, english = 1 };

static wchar_t main_module[path_size];
static int language = english;

/* A prototype for each, since no header declares them. */
EXPORTED int zu_qgis_answer(wchar_t const* folder, int is_russian);
EXPORTED wchar_t const* zu_options_get_main_module_path(void);
EXPORTED int zu_res_get_lng(void);

/* Sets both answers. The folder ends with its separator. 0 for one that is too long. */
int zu_qgis_answer(wchar_t const* folder, int is_russian) {
  if (wcslen(folder) >= path_size) return 0;
  wcscpy(main_module, folder);
  language = is_russian ? russian : english;
  return 1;
}

wchar_t const* zu_options_get_main_module_path(void) { return main_module; }

int zu_res_get_lng(void) { return language; }
