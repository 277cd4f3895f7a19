/* Points, boxes, matrices, sequences of points and sets of sequences. The
   functions of zu_pj4_layer.h read and write them. This header compiles alone,
   as C and as C++.

   - Coordinates are in the unit of their coordinate system: degrees with the
     longitude first, or the projection's unit with the easting first.
   - Sequences and sets are opaque. The caller owns an object from its `_create`
     function until the `_destroy` function of the same name. Vertices are copied.
   - Functions that return an int return 1 on success and 0 on failure. A failure
     (null, an index past the end, not enough memory) changes nothing.
   - Nothing is locked: only one thread at a time may use an object. */
#ifndef ZU_PJ_EDIT_GEOMETRY_H
#define ZU_PJ_EDIT_GEOMETRY_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct Tzu_vtx_d2 {
  double x;
  double y;
} Tzu_vtx_d2;

typedef struct Tzu_vtx_d3 {
  double x;
  double y;
  double z;
} Tzu_vtx_d3;

typedef struct Tzu_box_d2 {
  double min_x;
  double min_y;
  double max_x;
  double max_y;
} Tzu_box_d2;

/* Stored row by row. An affine step uses the first six elements:
   x' = e[0] x + e[1] y + e[2], y' = e[3] x + e[4] y + e[5]. */
typedef struct Tzu_matrix3x3 {
  double e[9];
} Tzu_matrix3x3;

/* A sequence of points, and a set of sequences, in the plane and in space. */
typedef struct Tzu_pp2d Tzu_pp2d;
typedef struct Tzu_op2d Tzu_op2d;
typedef struct Tzu_pvtx_d3 Tzu_pvtx_d3;
typedef struct Tzu_ovtx_d3 Tzu_ovtx_d3;

/* These set all members. Nothing happens to null. */
void zu_vtx_d2_init_xy(Tzu_vtx_d2* vertex, double x, double y);
void zu_vtx_d3_init_xyz(Tzu_vtx_d3* vertex, double x, double y, double z);
void zu_box_d2_init_xy(Tzu_box_d2* box, double min_x, double min_y, double max_x, double max_y);
/* Makes the identity matrix. */
void zu_matrix3x3_init_single(Tzu_matrix3x3* matrix);
/* Inverts in place. 0 for a singular matrix: its determinant is lost in the
   rounding of its terms, or an element is not finite. */
int zu_matrix3x3_invert(Tzu_matrix3x3* matrix);

/* Makes `size` points at the origin; null when there is not enough memory. */
Tzu_pp2d* zu_pv_d2_create(size_t size);
void zu_pv_d2_destroy(Tzu_pp2d* sequence);
/* 0 for null. */
size_t zu_pv_d2_get_size(Tzu_pp2d const* sequence);
/* Keeps the first points. New points are at the origin. */
int zu_pv_d2_set_size(Tzu_pp2d* sequence, size_t size);
int zu_pv_d2_get_vtx(Tzu_pp2d const* sequence, size_t index, Tzu_vtx_d2* vertex);
int zu_pv_d2_set_vtx(Tzu_pp2d* sequence, size_t index, Tzu_vtx_d2 const* vertex);

/* Makes `size` empty sequences; null when there is not enough memory. */
Tzu_op2d* zu_ov_d2_create(size_t size);
void zu_ov_d2_destroy(Tzu_op2d* set);
size_t zu_ov_d2_get_size(Tzu_op2d const* set);
/* A sequence of the set. The set stays its owner, so it is valid until the set
   is destroyed. Null for an index past the end. */
Tzu_pp2d* zu_ov_d2_get_pv_ptr(Tzu_op2d* set, size_t index);

/* The same functions in space. */
Tzu_pvtx_d3* zu_pv_d3_create(size_t size);
void zu_pv_d3_destroy(Tzu_pvtx_d3* sequence);
size_t zu_pv_d3_get_size(Tzu_pvtx_d3 const* sequence);
int zu_pv_d3_set_size(Tzu_pvtx_d3* sequence, size_t size);
int zu_pv_d3_get_vtx(Tzu_pvtx_d3 const* sequence, size_t index, Tzu_vtx_d3* vertex);
int zu_pv_d3_set_vtx(Tzu_pvtx_d3* sequence, size_t index, Tzu_vtx_d3 const* vertex);
Tzu_ovtx_d3* zu_ov_d3_create(size_t size);
void zu_ov_d3_destroy(Tzu_ovtx_d3* set);
size_t zu_ov_d3_get_size(Tzu_ovtx_d3 const* set);
Tzu_pvtx_d3* zu_ov_d3_get_pv_ptr(Tzu_ovtx_d3* set, size_t index);

#ifdef __cplusplus
}
#endif

#endif
