/* A host's own module that uses the C-style layer, for programs in other languages. The layer is
   in the static library, and no module exports the functions of that. So a module exports its
   own functions, those that its program needs. examples/layer.py calls the ones here. */
#include <string.h>

#include "zu_pj_edit/zu_pj4_layer.h"

#if defined(_WIN32)
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED __attribute__((visibility("default")))
#endif

/* No header declares these. */
EXPORTED int layer_transform(char const* source, char const* target, size_t count, double* x,
                             double* y);
EXPORTED int layer_export_esri(wchar_t const* definition, char* text, size_t size);
EXPORTED unsigned layer_find_losses(char const* definition,
                                    void (*found)(void* context, zu_pj4_loss const* loss),
                                    void* context);

/* Transforms points in place. Returns 0 if any of them failed. */
int layer_transform(char const* source, char const* target, size_t count, double* x, double* y) {
  zu_rpj_fb_d2* const reproj = zu_rpj_fb_d2_create();
  int const done =
      zu_rpj_fb_d2_init_ex(reproj, source, target) && zu_rpj_fb_d2_apply_xy(reproj, count, x, y, 1);
  zu_rpj_fb_d2_destroy(reproj);
  return done;
}

typedef struct {
  char* text;
  size_t size;
} Tbuffer;

static void keep_narrow(char const* text, void* context) {
  Tbuffer const* const buffer = context;
  size_t const size = strlen(text) + 1;
  if (size <= buffer->size) memcpy(buffer->text, text, size);
}

/* ESRI WKT is ASCII. */
static void keep_wide(wchar_t const* text, void* context) {
  Tbuffer const* const buffer = context;
  size_t const size = wcslen(text) + 1;
  if (size > buffer->size) return;
  for (size_t i = 0; i < size; ++i) buffer->text[i] = (char)text[i];
}

/* Makes ESRI WKT of a definition. Returns 0 if there is none, or no room for it. */
int layer_export_esri(wchar_t const* definition, char* text, size_t size) {
  if (size == 0) return 0;
  text[0] = '\0';
  Tbuffer buffer = {text, size};
  Izu_string_adp* const adapter = zu_string_adp_create(keep_narrow, keep_wide, &buffer);
  int const done = zu_pj4_export_esri(definition, adapter);
  zu_string_adp_destroy(adapter);
  return done && text[0] != '\0';
}

unsigned layer_find_losses(char const* definition,
                           void (*found)(void* context, zu_pj4_loss const* loss), void* context) {
  return zu_pj4_find_losses(definition, found, context);
}
