/* What a C host has from the suite's other modules: a string adapter, and the
   interface language. */
#ifndef ZU_LAYER_SUPPORT_H
#define ZU_LAYER_SUPPORT_H

#include <zu_pj_edit/zu_pj4_layer.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The program's adapter, which has received nothing. */
Izu_string_adp* layer_adapter(void);
/* What it has received since; null when nothing of that width. */
char const* layer_received_narrow(void);
wchar_t const* layer_received_wide(void);

/* The language: 1 is Russian, 0 English. */
void layer_set_language(int language);

#ifdef __cplusplus
}
#endif

#endif
