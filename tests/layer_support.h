/* Shared by the tests of the C-style layer: checks, a string adapter, files and the language. */
#ifndef ZU_LAYER_SUPPORT_H
#define ZU_LAYER_SUPPORT_H

#include <zu_pj_edit/zu_pj4_layer.h>

#ifdef __cplusplus
extern "C" {
#endif

/* All tests in C. */
void test_layer(void);

/* Reports a false condition. layer_result is how many there were. It removes the files. */
#ifndef __cplusplus
#define CHECK(condition) layer_check((condition) ? 1 : 0, #condition, __FILE__, __LINE__)
#endif
void layer_check(int holds, char const* what, char const* file, int line);
int layer_result(void);

/* Whether both are the same text and neither is null. */
int layer_same(char const* left, char const* right);

/* The program's adapter. Forgets the texts that it has received. */
Izu_string_adp* layer_adapter(void);
/* How many texts it has received since then, and whether it was exactly this one. */
int layer_received_count(void);
int layer_received(char const* text);
int layer_received_wide(wchar_t const* text);
/* The narrow text; null if there is none. */
char const* layer_received_narrow(void);

/* The language: 1 is Russian, 0 English. */
void layer_set_language(int language);
/* The path of a file in a temporary folder of the program. Valid until the next call. */
wchar_t const* layer_file(wchar_t const* name);
/* The content of a file, until the next call; null if it cannot be read. */
char const* layer_content(wchar_t const* name);

#ifdef __cplusplus
}
#endif

#endif
