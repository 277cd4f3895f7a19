/* zu_pj_edit: the C-style layer over the library's coordinate-system logic. It is
   for programs that link the static library: the DLL exports only the two
   functions of zu_pj_edit.h. This header compiles alone, as C and as C++.

   Rules for the whole layer
   - Threads: nothing is locked. A zu_rpj_ handle or a geometry object may be used
     on any thread, by one call at a time. Calls with different objects may run at
     the same time, also while other functions run. Of all other functions and the
     dialog only one may run at a time in the process. They share the catalogue,
     the interface language and PROJ's default context; no other code may use
     that context in the meantime.
   - Results: functions that return int return 1 for success or yes and 0 for
     failure or no. A null handle, text, file name, adapter or place for a result
     is a failure. A failure changes and writes nothing. Nothing is shown to the
     user. The only exception thrown is std::bad_alloc.
   - Floating point: as in zu_pj_edit.h. Callbacks of adapters run without traps,
     too. Functions that only copy values or texts change no setting.
   - The caller owns handles: a "_create" function makes one, and the "_destroy"
     function of the same prefix frees it.
   - Text: narrow text is 8-bit in the system's ANSI code page, as in
     zu_pj_edit.h; wide text is UTF-16 on Windows and UTF-32 elsewhere. Both are
     zero-terminated. The library owns a text that it returns as a pointer. The
     comment of the function tells how long it is valid.
   - Adapters: a result text is fed into a string adapter (string_adp.h), once and
     only on success. The caller keeps the adapter. */
#ifndef ZU_PJ4_LAYER_H
#define ZU_PJ4_LAYER_H

#include <stddef.h>

#include "geometry.h"
#include "string_adp.h"

#ifdef __cplusplus
extern "C" {
#endif

/* --- Definitions in other notations, and their files -----------------------

   Definitions are PROJ.4 texts. Results are narrow or wide text, so the adapter
   needs both callbacks. The library writes ESRI WKT in ASCII.
   docs/known-limits.md tells what a conversion loses. */

/* Reads a .pj4 file. It is an INI file with the definition as key "pj4" of section
   "projection" (empty when the key is missing), or it is only the definition and
   begins with "+". A "+init=" in it is replaced by the result of zu_pj4_import_crs
   for the code behind it. Does not feed the adapter on failure. */
void zu_pj4_load_simple_w(wchar_t const* name, Izu_string_adp* adapter);
/* Writes a .pj4 file as INI file in the system's ANSI code page. Replaces an
   existing file. */
void zu_pj4_save_simple_w(wchar_t const* name, wchar_t const* definition);

/* Convert a definition to ESRI WKT: to the text of the known system when it is
   equal to one, else to GDAL's text. The second function writes it to an ESRI
   projection file (.prj). The file does not change when the conversion fails. */
int zu_pj4_export_esri(wchar_t const* definition, Izu_string_adp* adapter);
int zu_pj4_export_esri_prj(wchar_t const* definition, wchar_t const* name);

/* Convert to a definition: zu_pj4_import_esri from an ESRI projection file,
   zu_pj4_import_esri_prj from ESRI WKT (despite its name), and zu_pj4_import_crs
   from any text that names or defines a coordinate system: "EPSG:28407", a URN,
   WKT, PROJJSON, PROJ.4, a name. No text can make the library open a connection or
   a file other than PROJ's own data. */
int zu_pj4_import_esri(wchar_t const* name, Izu_string_adp* adapter);
int zu_pj4_import_esri_prj(wchar_t const* wkt, Izu_string_adp* adapter);
int zu_pj4_import_crs(wchar_t const* text, Izu_string_adp* adapter);

/* --- Descriptions of a definition for a user -------------------------------- */

/* Feeds a line "caption = value\r\n" for each parameter that the definition gives,
   in the host's interface language. Feeds wide text, because the system's code
   page may have no Russian letters. Leaves out south, units, nadgrids, lon_wrap,
   and everything that is not among the parameters (see zu_pj4_find_losses). */
int zu_pj4_get_text(char const* definition, Izu_string_adp* adapter);
/* Feeds a summary in one line: the catalogue's caption of the projection and the
   values of the same parameters, each followed by "; ". Feeds narrow text. Fails
   for a definition without a projection. */
int zu_pj4_get_short_text(char const* definition, Izu_string_adp* adapter);

/* --- Losses when a definition is read --------------------------------------- */

typedef enum zu_pj4_loss_reason {
  ZU_PJ4_LOSS_TEXT_BEFORE,    /* text before the first "+" is never read */
  ZU_PJ4_LOSS_UNKNOWN_KEY,    /* no parameter has the key as its name or other name */
  ZU_PJ4_LOSS_REPEATED_KEY,   /* the parameter is given by another piece */
  ZU_PJ4_LOSS_UNREAD_VALUE,   /* no number, no text, or a flag with a value that means no */
  ZU_PJ4_LOSS_UNREAD_TAIL,    /* only the beginning of the value is read, "37" of "37d30" */
  ZU_PJ4_LOSS_EIGHTH_NUMBER,  /* a datum shift of more than seven numbers */
  ZU_PJ4_LOSS_CHANGED_NUMBER, /* 1e12 and more: the written text is read as another number */
  ZU_PJ4_LOSS_SPHERE_SHIFT,   /* a sphere is written without its datum shift */
  ZU_PJ4_LOSS_OTHER_LON_WRAP, /* "+lon_wrap=45" is written, whatever the text says */
  ZU_PJ4_LOSS_OTHER_COUNT     /* a datum shift of neither three nor seven numbers: zeros
                                 replace the missing ones */
} zu_pj4_loss_reason;

/* One loss. The texts are valid during the callback. */
typedef struct zu_pj4_loss {
  char const* piece; /* as it stands in the text, with its "+" */
  zu_pj4_loss_reason reason;
  char const* kept;        /* the part of the value that is read, "" for nothing */
  int moves_points;        /* whether coordinates depend on what was lost */
  wchar_t const* sentence; /* for a user, in the interface language */
} zu_pj4_loss;

/* Calls `found` for each loss of a definition, in the order of its text. Returns
   the number of losses. The callback may be null and must not throw. */
unsigned zu_pj4_find_losses(char const* definition,
                            void (*found)(void* context, zu_pj4_loss const* loss), void* context);

/* --- Parameters of a definition ------------------------------------------

   A definition as typed parameters and its PROJ.4 text. Reading is lenient:
   other keys are dropped, and a number that cannot be read leaves its
   parameter undefined.

   The parameters, by the kind of function for their value:
     str      proj, datum, ellps, units, nadgrids
     int      zone
     dbl      lon_0, lonc, lat_0, lat_1, lat_ts, lat_2, alpha (degrees),
              x_0, y_0, a, b (metres), k_0, rf (ratios)
     bool     south
     towgs84  towgs84 (seven numbers towards WGS 84: three metres, three
              arc-seconds with position-vector signs, parts per million)
   Names are compared without regard to case. */

typedef struct zu_pj4_params zu_pj4_params;

/* An empty definition. The caller destroys it. Nothing happens to null. */
zu_pj4_params* zu_pj4_params_create(void);
void zu_pj4_params_destroy(zu_pj4_params* params);

/* The definition's text: set only stores it, decompose reads it into the
   parameters, compose writes it from them. get returns the last text that was set
   or composed, null for a null handle. It is valid until the next set, compose or
   destroy. compose_for_proj4 writes a sphere with its radius, as PROJ needs it. */
int zu_pj4_params_set(zu_pj4_params* params, char const* definition);
char const* zu_pj4_params_get(zu_pj4_params* params);
int zu_pj4_params_decompose(zu_pj4_params* params);
int zu_pj4_params_compose(zu_pj4_params* params);
int zu_pj4_params_compose_for_proj4(zu_pj4_params* params);

/* Keeps the values: they count again when their parameters are defined again. */
int zu_pj4_params_set_all_undefined(zu_pj4_params* params);
/* Makes the definition geographic; datum and ellipsoid stay. */
int zu_pj4_params_set_is_long_lat(zu_pj4_params* params);
/* Whether compose writes "+lon_wrap=45". It does so for a new definition. */
int zu_pj4_params_set_is_lon_wrap(zu_pj4_params* params, int value);

/* 1 for yes, 0 for no and for a null handle. A valid definition has a projection
   and an ellipsoid: by a datum, by its name or by its axes. equal compares all
   parameters except nadgrids. */
int zu_pj4_params_is_valid(zu_pj4_params* params);
int zu_pj4_params_is_sphere(zu_pj4_params* params);
int zu_pj4_params_equal(zu_pj4_params* params, zu_pj4_params* other);
int zu_pj4_params_get_is_long_lat(zu_pj4_params* params);
int zu_pj4_params_get_is_lon_wrap(zu_pj4_params* params);

/* Feeds the same text as zu_pj4_get_text, for the current parameters. */
int zu_pj4_params_get_text(zu_pj4_params* params, Izu_string_adp* adapter);

/* The number of parameters, and the name of each, counted from 0. The name is null
   for an index past the end and for a null handle. It is valid as long as the
   handle. */
unsigned zu_pj4_params_get_count(void);
char const* zu_pj4_params_get_name(zu_pj4_params* params, unsigned index);

/* For a parameter of any kind. get_def tells whether the definition gives it.
   get_out_str returns its text as composed: "+name=value ", empty when undefined,
   null for an unknown name. The text is valid until the next get_out_str, compose
   or destroy. val_from_str sets the value from text, and whether the parameter is
   defined. It fails when the text cannot be read. It always defines towgs84, and
   fails when the last of its numbers cannot be read. */
int zu_pj4_params_get_def(zu_pj4_params* params, char const* name);
int zu_pj4_params_set_def(zu_pj4_params* params, char const* name, int def);
char const* zu_pj4_params_get_out_str(zu_pj4_params* params, char const* name);
int zu_pj4_params_val_from_str(zu_pj4_params* params, char const* name, char const* text);

/* The value of a parameter. An undefined parameter has a value, too, and setting a
   value does not define it. All functions fail for a name that is unknown or has
   another kind; a getter then leaves `value` unchanged. Numbers must be finite. The
   text of get_str is valid until the value changes or the handle is destroyed. */
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
   target definition. A zu_rpj_fb_d2 transforms in both directions: `forward` is 1
   from source to target and 0 from target to source. Each is a chain of an affine
   step, the PROJ step and another affine step. Backward, the chain begins with the
   inverse of the second affine step and ends with the inverse of the first one.

   - Geographic coordinates are degrees, longitude first, whatever the axis order
     of the definition's authority. Resulting longitudes are from -135 to 225, so
     that Russia is in one piece. Projected coordinates are in the unit of their
     definition, easting first. Heights do not change.
   - All functions work in place. A point that cannot be transformed gets a
     coordinate that is not finite and makes the result 0; the other points of its
     sequence and set are transformed. Without an operation every result is 0, and
     points of a geographic source are left in radians.
   - Long sequences are divided among the processors during the call. The results
     are the same to the last bit. A handle keeps the memory of its longest sequence
     until clear_buffer or destroy. */

typedef struct zu_rpj_d2 zu_rpj_d2;
typedef struct zu_rpj_fb_d2 zu_rpj_fb_d2;

/* A chain without an operation: it fails until an init. The PROJ step is in use,
   the affine steps are not. Nothing happens to null. */
zu_rpj_d2* zu_rpj_d2_create(void);
void zu_rpj_d2_destroy(zu_rpj_d2* reproj);

/* Take two PROJ.4 texts; 0 when PROJ has no operation for them. They need up to
   some milliseconds, except for the texts of the current operation. */
int zu_rpj_d2_init_ex(zu_rpj_d2* reproj, char const* source, char const* target);
int zu_rpj_d2_init_crs(zu_rpj_d2* reproj, wchar_t const* source, wchar_t const* target);

/* Set which steps of the chain are in use, and the matrices, which are copied. */
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
/* Transform 7 x 7 points of the box. The result is the box of those that do not
   fail, widened by a thousandth of its size on every side. 0, and the box
   unchanged, when all fail. Around a pole the result spans the longitudes of the
   points, which may be less than the whole circle. Both functions do the same. */
int zu_rpj_d2_apply_box_approx(zu_rpj_d2* reproj, Tzu_box_d2* box);
int zu_rpj_d2_apply_box_approx_ex(zu_rpj_d2* reproj, Tzu_box_d2* box);

int zu_rpj_d2_clear_buffer(zu_rpj_d2* reproj);

/* The same functions in both directions. Backward, a singular matrix in use makes
   every apply fail and change nothing. */
zu_rpj_fb_d2* zu_rpj_fb_d2_create(void);
void zu_rpj_fb_d2_destroy(zu_rpj_fb_d2* reproj);
int zu_rpj_fb_d2_init_ex(zu_rpj_fb_d2* reproj, char const* source, char const* target);
int zu_rpj_fb_d2_init_crs(zu_rpj_fb_d2* reproj, wchar_t const* source, wchar_t const* target);
int zu_rpj_fb_d2_set_use_reproj(zu_rpj_fb_d2* reproj, int use);
int zu_rpj_fb_d2_set_use_affine_before(zu_rpj_fb_d2* reproj, int use);
int zu_rpj_fb_d2_set_affine_before(zu_rpj_fb_d2* reproj, Tzu_matrix3x3 const* matrix);
int zu_rpj_fb_d2_set_use_affine_after(zu_rpj_fb_d2* reproj, int use);
int zu_rpj_fb_d2_set_affine_after(zu_rpj_fb_d2* reproj, Tzu_matrix3x3 const* matrix);
/* x and y are arrays of `count` elements. */
int zu_rpj_fb_d2_apply_xy(zu_rpj_fb_d2* reproj, size_t count, double* x, double* y, int forward);
int zu_rpj_fb_d2_apply_vtx(zu_rpj_fb_d2* reproj, Tzu_vtx_d2* vertex, int forward);
int zu_rpj_fb_d2_apply_pv(zu_rpj_fb_d2* reproj, Tzu_pp2d* sequence, int forward);
int zu_rpj_fb_d2_apply_ov(zu_rpj_fb_d2* reproj, Tzu_op2d* set, int forward);
int zu_rpj_fb_d2_apply_vtx3d(zu_rpj_fb_d2* reproj, Tzu_vtx_d3* vertex, int forward);
int zu_rpj_fb_d2_apply_pv3d(zu_rpj_fb_d2* reproj, Tzu_pvtx_d3* sequence, int forward);
int zu_rpj_fb_d2_apply_ov3d(zu_rpj_fb_d2* reproj, Tzu_ovtx_d3* set, int forward);
/* The box of the four transformed corners. 0, and the box unchanged, when a corner
   fails. */
int zu_rpj_fb_d2_apply_box(zu_rpj_fb_d2* reproj, Tzu_box_d2* box, int forward);
int zu_rpj_fb_d2_apply_box_approx(zu_rpj_fb_d2* reproj, Tzu_box_d2* box, int forward);
int zu_rpj_fb_d2_clear_buffer(zu_rpj_fb_d2* reproj);

#ifdef __cplusplus
}
#endif

#endif
