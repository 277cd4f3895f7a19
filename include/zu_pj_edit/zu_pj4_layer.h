/* zu_pj_edit: the C-style layer over the library's coordinate-system logic, for
   programs that have the static library linked in: the DLL exports the two
   functions of zu_pj_edit.h alone. This header compiles alone, as C and as C++.

   What holds for the whole layer
   - Threads: nothing is locked. A zu_rpj_ handle, and geometry, may be used on any
     thread, by one call at a time; calls on different ones may run at the same
     time, and beside anything else. Of all other functions, and the dialog, one
     runs at a time in the process: they share the catalogue, the interface
     language and PROJ's default context, which nobody else may use meanwhile.
   - Results: functions that return int return 1 for success or yes and 0 for
     failure or no. A null handle, text, file name, adapter or place for a result
     is a failure, which changes and writes nothing. Nothing is shown to the user.
     Beyond a lack of memory nothing is thrown.
   - Floating point: as in zu_pj_edit.h. Callbacks of adapters are called without
     traps, too. Functions that only hand values or texts over leave all as it is.
   - Handles belong to the caller: what a function ending in "_create" gave goes
     to the "_destroy" of the same prefix.
   - Text: narrow text is 8-bit in the system's ANSI code page, as in
     zu_pj_edit.h; wide text is UTF-16 on Windows and UTF-32 elsewhere. Both are
     zero-terminated. A text that is returned as a pointer belongs to the
     library; how long it is valid stands with its function.
   - Adapters: a result text is fed into a string adapter (string_adp.h), once and
     on success only. The adapter stays the caller's. */
#ifndef ZU_PJ4_LAYER_H
#define ZU_PJ4_LAYER_H

#include <stddef.h>

#include "geometry.h"
#include "string_adp.h"

#ifdef __cplusplus
extern "C" {
#endif

/* --- Definitions in other notations, and their files -----------------------

   Definitions are PROJ.4 texts. Results come as narrow or as wide text, so the
   adapter needs both callbacks. ESRI WKT is in ASCII as the library writes it.
   docs/known-limits.md tells what a conversion loses. */

/* Reads a .pj4 file: an INI file with the definition as key "pj4" of section
   "projection" (empty when the key is missing), or the definition alone, which
   begins with "+". A "+init=" in it is replaced by what zu_pj4_import_crs makes of
   the code behind it. Leaves the adapter unfed on failure. */
void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter);
/* Writes one, as an INI file in the system's ANSI code page; an existing file is
   replaced. */
void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition);

/* A definition to ESRI WKT: that of the known system which it equals, or else
   GDAL's. And into an ESRI projection file (.prj), which stays as it was when the
   conversion fails. */
int zu_pj4_export_esri(wchar_t const* definition, Izu_string_adp* adapter);
int zu_pj4_export_esri_prj(wchar_t const* definition, wchar_t const* name);

/* A definition from an ESRI projection file; from ESRI WKT, despite the name; and
   from any text that names or defines a coordinate system: "EPSG:28407", a URN,
   WKT, PROJJSON, PROJ.4, a name. Nothing in a text makes a file or a connection be
   opened but PROJ's own data. */
int zu_pj4_import_esri(wchar_t const* name, Izu_string_adp* adapter);
int zu_pj4_import_esri_prj(wchar_t const* wkt, Izu_string_adp* adapter);
int zu_pj4_import_crs(wchar_t const* text, Izu_string_adp* adapter);

/* --- Descriptions of a definition for a user -------------------------------- */

/* Feeds a line "caption = value\r\n" for each parameter that the definition gives,
   in the host's interface language. It is fed as wide text, since the system's
   code page need not have Russian letters. Not told: the southern hemisphere, units,
   grids, lon_wrap, and what is not among the 21 parameters (zu_pj4_find_losses tells
   that). */
int zu_pj4_get_text(char const* definition, Izu_string_adp* adapter);
/* Feeds a summary in one line: the catalogue's caption of the projection and the
   values, each followed by "; ", of the same parameters. It is fed as narrow text. Fails for a
   definition without a projection. */
int zu_pj4_get_short_text(char const* definition, Izu_string_adp* adapter);

/* --- What a definition loses on being read ---------------------------------- */

typedef enum zu_pj4_loss_reason {
  ZU_PJ4_LOSS_TEXT_BEFORE,    /* text before the first "+" is never read */
  ZU_PJ4_LOSS_UNKNOWN_KEY,    /* the key is none of the 21, nor another name of one */
  ZU_PJ4_LOSS_REPEATED_KEY,   /* the parameter is given by another piece */
  ZU_PJ4_LOSS_UNREAD_VALUE,   /* no number, no text, or a flag that is said to be off */
  ZU_PJ4_LOSS_UNREAD_TAIL,    /* only the begin of the value is read, "37" of "37d30" */
  ZU_PJ4_LOSS_EIGHTH_NUMBER,  /* a datum shift of more than seven numbers */
  ZU_PJ4_LOSS_CHANGED_NUMBER, /* 1e12 and more: what is written is read as another number */
  ZU_PJ4_LOSS_SPHERE_SHIFT,   /* a sphere is written without its datum shift */
  ZU_PJ4_LOSS_OTHER_LON_WRAP, /* "+lon_wrap=45" is written, whatever the text says */
  ZU_PJ4_LOSS_OTHER_COUNT     /* a datum shift of neither three nor seven numbers: zeros
                                 stand for those that are missing */
} zu_pj4_loss_reason;

/* One loss. The texts are valid during the callback. */
typedef struct zu_pj4_loss {
  char const* piece; /* as it stands in the text, with its "+" */
  zu_pj4_loss_reason reason;
  char const* kept;        /* what is read of the value, "" for nothing */
  int moves_points;        /* whether coordinates depend on what was lost */
  wchar_t const* sentence; /* for a user, in the interface language */
} zu_pj4_loss;

/* Tells each loss of a definition, in the order of its text, and returns how many
   there are. The callback may be null, and must not throw. */
unsigned zu_pj4_find_losses(char const* definition,
                            void (*found)(void* context, zu_pj4_loss const* loss), void* context);

/* --- Parameters of a definition ------------------------------------------

   A definition as 21 typed parameters and its PROJ.4 text. Reading is lenient:
   keys beyond the 21 are dropped, and a number that does not read leaves its
   parameter undefined.

   The parameters, by the kind of function that reaches their value:
     str      proj, datum, ellps, units, nadgrids
     int      zone
     dbl      lon_0, lonc, lat_0, lat_1, lat_ts, lat_2, alpha (degrees),
              x_0, y_0, a, b (metres), k_0, rf (ratios)
     bool     south
     towgs84  towgs84 (seven numbers towards WGS 84: three metres, three
              arc-seconds with position-vector signs, parts per million)
   Names are compared without regard to case. */

typedef struct zu_pj4_params zu_pj4_params;

/* An empty definition, freed by the caller. Nothing happens to null. */
zu_pj4_params* zu_pj4_params_create(void);
void zu_pj4_params_destroy(zu_pj4_params* params);

/* The definition's text: set only stores it, decompose reads it into the
   parameters, compose writes it from them. get returns what was set or composed
   last, null for a null handle; it is valid until the next set, compose or
   destroy. compose_for_proj4 writes a sphere with its radius, as PROJ wants it. */
int zu_pj4_params_set(zu_pj4_params* params, char const* definition);
char const* zu_pj4_params_get(zu_pj4_params* params);
int zu_pj4_params_decompose(zu_pj4_params* params);
int zu_pj4_params_compose(zu_pj4_params* params);
int zu_pj4_params_compose_for_proj4(zu_pj4_params* params);

/* Values are kept, for when their parameters are defined again. */
int zu_pj4_params_set_all_undefined(zu_pj4_params* params);
/* Makes the definition geographic; datum and ellipsoid stay. */
int zu_pj4_params_set_is_long_lat(zu_pj4_params* params);
/* Whether compose writes "+lon_wrap=45"; it does in a new definition. */
int zu_pj4_params_set_is_lon_wrap(zu_pj4_params* params, int value);

/* 1 for yes; 0 for no, and for a null handle. A valid definition has a
   projection and an ellipsoid in one of the forms. equal compares all but
   nadgrids. */
int zu_pj4_params_is_valid(zu_pj4_params* params);
int zu_pj4_params_is_sphere(zu_pj4_params* params);
int zu_pj4_params_equal(zu_pj4_params* params, zu_pj4_params* other);
int zu_pj4_params_get_is_long_lat(zu_pj4_params* params);
int zu_pj4_params_get_is_lon_wrap(zu_pj4_params* params);

/* Feeds what zu_pj4_get_text feeds, of the parameters as they are. */
int zu_pj4_params_get_text(zu_pj4_params* params, Izu_string_adp* adapter);

/* How many parameters there are, and the name of each from 0 on: null from the
   count on and for a null handle. A name is valid as long as its handle. */
unsigned zu_pj4_params_get_count(void);
char const* zu_pj4_params_get_name(zu_pj4_params* params, unsigned index);

/* A parameter of any kind: whether the definition gives it; its text as composed
   ("+name=value ", empty when undefined; null for an unknown name; valid until
   the next get_out_str, compose or destroy); and its value from text, which sets
   whether it is defined. val_from_str fails when the text does not read; of
   towgs84, which it always defines, when the last of the numbers does not. */
int zu_pj4_params_get_def(zu_pj4_params* params, char const* name);
int zu_pj4_params_set_def(zu_pj4_params* params, char const* name, int def);
char const* zu_pj4_params_get_out_str(zu_pj4_params* params, char const* name);
int zu_pj4_params_val_from_str(zu_pj4_params* params, char const* name, char const* text);

/* A parameter's value, which an undefined one has, too: setting a value does not
   define. All fail for a name that is unknown or of another kind; a getter then
   leaves `value` as it is. Numbers must be finite. A text that is got is valid
   until the parameter's value changes or the handle is destroyed. */
int zu_pj4_params_get_str(zu_pj4_params* params, char const* name, char const** value);
int zu_pj4_params_set_str(zu_pj4_params* params, char const* name, char const* value);
int zu_pj4_params_get_dbl(zu_pj4_params* params, char const* name, double* value);
int zu_pj4_params_set_dbl(zu_pj4_params* params, char const* name, double value);
int zu_pj4_params_get_int(zu_pj4_params* params, char const* name, int* value);
int zu_pj4_params_set_int(zu_pj4_params* params, char const* name, int value);
int zu_pj4_params_get_bool(zu_pj4_params* params, char const* name, int* value);
int zu_pj4_params_set_bool(zu_pj4_params* params, char const* name, int value);
int zu_pj4_params_get_towgs84(zu_pj4_params* params, double values[7]);
int zu_pj4_params_set_towgs84(zu_pj4_params* params, double const values[7]);

/* --- Reprojection ---------------------------------------------------------

   A zu_rpj_d2 transforms geometry (geometry.h) from a source definition to a
   target, a zu_rpj_fb_d2 also back: its `forward` is 1 from source to target and
   0 from target to source. Each is a chain of an affine step, the PROJ step and
   another affine step; going back, the inverted second affine step comes first
   and the inverted first one last.

   - Geographic coordinates are degrees, longitude first, whatever the axis order
     of the definition's authority; longitudes come out from -135 to 225, so that
     Russia is in one piece. Projected coordinates are in the unit of their
     definition, easting first. Heights stay as they are.
   - All works in place. A point that cannot be transformed is left with a
     coordinate that is not finite and makes the result 0; the others of its
     sequence and set are transformed all the same. Without an operation every
     result is 0, and points of a geographic source are left in radians.
   - Long sequences are shared among the processors for the length of the call;
     the results are the same to the last bit. A handle keeps the memory of its
     longest sequence until clear_buffer or destroy. */

typedef struct zu_rpj_d2 zu_rpj_d2;
typedef struct zu_rpj_fb_d2 zu_rpj_fb_d2;

/* A chain without an operation, which fails until an init; the PROJ step in use,
   the affine steps not. Nothing happens to null. */
zu_rpj_d2* zu_rpj_d2_create(void);
void zu_rpj_d2_destroy(zu_rpj_d2* reproj);

/* Take two PROJ.4 texts; 0 when PROJ makes no operation of them. Both take up to
   some milliseconds, unless the texts are those of the operation already there. */
int zu_rpj_d2_init_ex(zu_rpj_d2* reproj, char const* source, char const* target);
int zu_rpj_d2_init_crs(zu_rpj_d2* reproj, wchar_t const* source, wchar_t const* target);

/* What of the chain is in use, and the matrices, which are copied. */
int zu_rpj_d2_set_use_reproj(zu_rpj_d2* reproj, int use);
int zu_rpj_d2_set_use_affine_before(zu_rpj_d2* reproj, int use);
int zu_rpj_d2_set_affine_before(zu_rpj_d2* reproj, Tzu_matrix3x3 const* matrix);
int zu_rpj_d2_set_use_affine_after(zu_rpj_d2* reproj, int use);
int zu_rpj_d2_set_affine_after(zu_rpj_d2* reproj, Tzu_matrix3x3 const* matrix);

int zu_rpj_d2_apply_vtx(zu_rpj_d2* reproj, Tzu_vtx_d2* vertex);
int zu_rpj_d2_apply_pv(zu_rpj_d2* reproj, Tzu_pp2d* sequence);
int zu_rpj_d2_apply_ov(zu_rpj_d2* reproj, Tzu_op2d* set);
int zu_rpj_d2_apply_vtx3d(zu_rpj_d2* reproj, Tzu_vtx_d3* vertex);
int zu_rpj_d2_apply_pv3d(zu_rpj_d2* reproj, Tzu_pvtx_d3* sequence);
int zu_rpj_d2_apply_ov3d(zu_rpj_d2* reproj, Tzu_ovtx_d3* set);
/* The box of 7 x 7 transformed points of the box, those that fail left out,
   widened by a thousandth of its size on every side. 0, and unchanged, when all
   fail. Around a pole it spans the points' longitudes, which need not be the
   whole circle. Both do the same. */
int zu_rpj_d2_apply_box_approx(zu_rpj_d2* reproj, Tzu_box_d2* box);
int zu_rpj_d2_apply_box_approx_ex(zu_rpj_d2* reproj, Tzu_box_d2* box);

int zu_rpj_d2_clear_buffer(zu_rpj_d2* reproj);

/* The same each way. Backward, a singular matrix in use makes every apply fail
   and change nothing. */
zu_rpj_fb_d2* zu_rpj_fb_d2_create(void);
void zu_rpj_fb_d2_destroy(zu_rpj_fb_d2* reproj);
int zu_rpj_fb_d2_init_ex(zu_rpj_fb_d2* reproj, char const* source, char const* target);
int zu_rpj_fb_d2_init_crs(zu_rpj_fb_d2* reproj, wchar_t const* source, wchar_t const* target);
int zu_rpj_fb_d2_set_use_reproj(zu_rpj_fb_d2* reproj, int use);
int zu_rpj_fb_d2_set_use_affine_before(zu_rpj_fb_d2* reproj, int use);
int zu_rpj_fb_d2_set_affine_before(zu_rpj_fb_d2* reproj, Tzu_matrix3x3 const* matrix);
int zu_rpj_fb_d2_set_use_affine_after(zu_rpj_fb_d2* reproj, int use);
int zu_rpj_fb_d2_set_affine_after(zu_rpj_fb_d2* reproj, Tzu_matrix3x3 const* matrix);
/* Two arrays of `count` elements. */
int zu_rpj_fb_d2_apply_xy(zu_rpj_fb_d2* reproj, size_t count, double* x, double* y, int forward);
int zu_rpj_fb_d2_apply_vtx(zu_rpj_fb_d2* reproj, Tzu_vtx_d2* vertex, int forward);
int zu_rpj_fb_d2_apply_pv(zu_rpj_fb_d2* reproj, Tzu_pp2d* sequence, int forward);
int zu_rpj_fb_d2_apply_ov(zu_rpj_fb_d2* reproj, Tzu_op2d* set, int forward);
int zu_rpj_fb_d2_apply_vtx3d(zu_rpj_fb_d2* reproj, Tzu_vtx_d3* vertex, int forward);
int zu_rpj_fb_d2_apply_pv3d(zu_rpj_fb_d2* reproj, Tzu_pvtx_d3* sequence, int forward);
int zu_rpj_fb_d2_apply_ov3d(zu_rpj_fb_d2* reproj, Tzu_ovtx_d3* set, int forward);
/* The box of the four transformed corners; 0, and unchanged, when any fails. */
int zu_rpj_fb_d2_apply_box(zu_rpj_fb_d2* reproj, Tzu_box_d2* box, int forward);
int zu_rpj_fb_d2_apply_box_approx(zu_rpj_fb_d2* reproj, Tzu_box_d2* box, int forward);
int zu_rpj_fb_d2_clear_buffer(zu_rpj_fb_d2* reproj);

#ifdef __cplusplus
}
#endif

#endif
