/* What the tests of the C-style layer share: checks, a string adapter, and what only
   the platform and the suite can give. */
#ifndef ZU_LAYER_SUPPORT_H
#define ZU_LAYER_SUPPORT_H

#include <zu_pj_edit/zu_pj4_layer.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Tells of a condition that does not hold; layer_result is main's result then. */
#ifndef __cplusplus
#define CHECK(condition) layer_check((condition) ? 1 : 0, #condition, __FILE__, __LINE__)
#endif
void layer_check(int holds, char const* what, char const* file, int line);
int layer_result(void);

/* Whether both are texts, and the same. */
int layer_same(char const* left, char const* right);

/* The program's adapter, which has received nothing. */
Izu_string_adp* layer_adapter(void);
/* How many texts it has received since, and whether it was one, of that width. */
int layer_received_count(void);
int layer_received(char const* text);
int layer_received_wide(wchar_t const* text);
/* The narrow text; null when there is none. */
char const* layer_received_narrow(void);

/* The language: 1 is Russian, 0 English. */
void layer_set_language(int language);
/* Path of a file in a folder of the program's own, which goes with it. Valid until
   the next call. */
wchar_t const* layer_file(wchar_t const* name);
/* A file's content, until the next call; null when there is none to be read. */
char const* layer_content(wchar_t const* name);

#ifdef __cplusplus
}
#endif

#endif
