/* Answers the library's questions to its host: the language of the dialog's texts and the place
   of the catalogue. The library finds this module by its name. So the dialog has QGIS's language
   and not the system's, and the catalogue of the plug-in and not one next to QGIS's program. */
#include <string.h>
#include <wchar.h>

#if defined(_WIN32)
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED __attribute__((visibility("default")))
#endif

enum { path_size = 32768, russian = 0, english = 1 };

struct answers {
  wchar_t main_module[path_size];
  int language;
};
/* A process has one host. NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables) */
static struct answers answers = {L"", english};

/* No header declares these. */
EXPORTED int zu_qgis_answer(wchar_t const* folder, int is_russian);
EXPORTED wchar_t const* zu_options_get_main_module_path(void);
EXPORTED int zu_res_get_lng(void);

/* Sets both answers. The folder ends with its separator. Returns 0 if it is too long. */
int zu_qgis_answer(wchar_t const* folder, int is_russian) {
  size_t const size = wcslen(folder) + 1;
  if (size > path_size) return 0;
  memcpy(answers.main_module, folder, size * sizeof(wchar_t));
  answers.language = is_russian ? russian : english;
  return 1;
}

wchar_t const* zu_options_get_main_module_path(void) { return answers.main_module; }

int zu_res_get_lng(void) { return answers.language; }
