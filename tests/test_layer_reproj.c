/* The reprojection functions of the C-style layer, as a host in C calls them. */
#include <math.h>
#include <stddef.h>

#include "layer_support.h"

static int is_near(double left, double right) { return fabs(left - right) < 1e-5; }

/* The origin of a zone is known without any transformation. */
static char const utm[] = "+proj=utm +zone=37 +ellps=WGS84";
static char const geographic[] = "+proj=longlat +ellps=WGS84";
static wchar_t const wide_utm[] = L"+proj=utm +zone=37 +ellps=WGS84";
static wchar_t const wide_geographic[] = L"+proj=longlat +ellps=WGS84";

static Tzu_matrix3x3 shift_by(double x) {
  Tzu_matrix3x3 matrix;
  zu_matrix3x3_init_single(&matrix);
  matrix.e[2] = x;
  return matrix;
}

/* Points at the zone's origin, sequences of two and sets of one sequence; or nothing
   at all. */
typedef struct {
  Tzu_vtx_d2* vertex;
  Tzu_vtx_d3* vertex3d;
  Tzu_box_d2* box;
  Tzu_box_d2* approximate;
  double* x;
  double* y;
  Tzu_pp2d* pv;
  Tzu_op2d* ov;
  Tzu_pvtx_d3* pv3d;
  Tzu_ovtx_d3* ov3d;
} geometry;

static void put(Tzu_pp2d* pv, Tzu_pvtx_d3* pv3d, geometry const* from) {
  CHECK(zu_pv_d2_set_size(pv, 2) && zu_pv_d3_set_size(pv3d, 2));
  for (size_t i = 0; i < 2; ++i) {
    CHECK(zu_pv_d2_set_vtx(pv, i, from->vertex) && zu_pv_d3_set_vtx(pv3d, i, from->vertex3d));
    from->x[i] = from->vertex->x;
    from->y[i] = from->vertex->y;
  }
}

/* One at a time: what is not a sequence is the function's own. */
static geometry create_geometry(double x, double y) {
  static Tzu_vtx_d2 vertex;
  static Tzu_vtx_d3 vertex3d;
  static Tzu_box_d2 boxes[2];
  static double numbers[4];
  geometry const made = {
      &vertex,     &vertex3d,          &boxes[0],          &boxes[1],          numbers,
      numbers + 2, zu_pv_d2_create(1), zu_ov_d2_create(1), zu_pv_d3_create(1), zu_ov_d3_create(1)};
  zu_vtx_d2_init_xy(&vertex, x, y);
  zu_vtx_d3_init_xyz(&vertex3d, x, y, 77);
  zu_box_d2_init_xy(&boxes[0], x, y, x, y);
  boxes[1] = boxes[0];
  put(made.pv, made.pv3d, &made);
  put(zu_ov_d2_get_pv_ptr(made.ov, 0), zu_ov_d3_get_pv_ptr(made.ov3d, 0), &made);
  return made;
}

static void destroy_geometry(geometry const* old) {
  zu_pv_d2_destroy(old->pv);
  zu_pv_d3_destroy(old->pv3d);
  zu_ov_d2_destroy(old->ov);
  zu_ov_d3_destroy(old->ov3d);
}

static void check_at(Tzu_pp2d const* pv, Tzu_pvtx_d3 const* pv3d, double x, double y) {
  CHECK(zu_pv_d2_get_size(pv) == 2 && zu_pv_d3_get_size(pv3d) == 2);
  for (size_t i = 0; i < 2; ++i) {
    Tzu_vtx_d2 vertex = {0, 0};
    Tzu_vtx_d3 vertex3d = {0, 0, 0};
    CHECK(zu_pv_d2_get_vtx(pv, i, &vertex) == 1 && zu_pv_d3_get_vtx(pv3d, i, &vertex3d) == 1);
    CHECK(is_near(vertex.x, x) && is_near(vertex.y, y));
    CHECK(is_near(vertex3d.x, x) && is_near(vertex3d.y, y) && vertex3d.z == 77);
  }
}

static void check_all_at(geometry const* of, double x, double y) {
  CHECK(is_near(of->vertex->x, x) && is_near(of->vertex->y, y));
  CHECK(is_near(of->vertex3d->x, x) && of->vertex3d->z == 77);
  CHECK(is_near(of->box->min_x, x) && is_near(of->box->max_y, y));
  CHECK(is_near(of->approximate->min_x, x) && is_near(of->approximate->max_y, y));
  CHECK(zu_ov_d2_get_size(of->ov) == 1 && zu_ov_d3_get_size(of->ov3d) == 1);
  check_at(of->pv, of->pv3d, x, y);
  check_at(zu_ov_d2_get_pv_ptr(of->ov, 0), zu_ov_d3_get_pv_ptr(of->ov3d, 0), x, y);
}

/* How many of the functions succeed. */
static int apply_all(zu_rpj_d2* reproj, geometry const* to) {
  return zu_rpj_d2_apply_vtx(reproj, to->vertex) + zu_rpj_d2_apply_vtx3d(reproj, to->vertex3d) +
         zu_rpj_d2_apply_pv(reproj, to->pv) + zu_rpj_d2_apply_ov(reproj, to->ov) +
         zu_rpj_d2_apply_pv3d(reproj, to->pv3d) + zu_rpj_d2_apply_ov3d(reproj, to->ov3d) +
         zu_rpj_d2_apply_box_approx(reproj, to->box) +
         zu_rpj_d2_apply_box_approx_ex(reproj, to->approximate);
}

static int apply_all_fb(zu_rpj_fb_d2* reproj, geometry const* to, int forward) {
  return zu_rpj_fb_d2_apply_vtx(reproj, to->vertex, forward) +
         zu_rpj_fb_d2_apply_vtx3d(reproj, to->vertex3d, forward) +
         zu_rpj_fb_d2_apply_pv(reproj, to->pv, forward) +
         zu_rpj_fb_d2_apply_ov(reproj, to->ov, forward) +
         zu_rpj_fb_d2_apply_pv3d(reproj, to->pv3d, forward) +
         zu_rpj_fb_d2_apply_ov3d(reproj, to->ov3d, forward) +
         zu_rpj_fb_d2_apply_box(reproj, to->box, forward) +
         zu_rpj_fb_d2_apply_box_approx(reproj, to->approximate, forward) +
         zu_rpj_fb_d2_apply_xy(reproj, 2, to->x, to->y, forward);
}

static void test_one_way(void) {
  Tzu_matrix3x3 const west = shift_by(-1000);
  Tzu_matrix3x3 const east = shift_by(0.5);
  geometry const points = create_geometry(501000, 0);
  zu_rpj_d2* const reproj = zu_rpj_d2_create();
  CHECK(reproj != NULL && zu_rpj_d2_apply_vtx(reproj, points.vertex) == 0);
  CHECK(zu_rpj_d2_init_ex(reproj, utm, "+proj=nonsense") == 0);
  CHECK(zu_rpj_d2_init_ex(reproj, utm, geographic) == 1);
  CHECK(zu_rpj_d2_init_ex(reproj, NULL, geographic) == 0);
  CHECK(zu_rpj_d2_init_crs(reproj, wide_utm, NULL) == 0);
  CHECK(zu_rpj_d2_set_affine_before(reproj, &west) && zu_rpj_d2_set_use_affine_before(reproj, 1));
  CHECK(zu_rpj_d2_set_affine_after(reproj, &east) && zu_rpj_d2_set_use_affine_after(reproj, 1));
  CHECK(apply_all(reproj, &points) == 8);
  check_all_at(&points, 39.5, 0);

  CHECK(zu_rpj_d2_set_use_affine_before(reproj, 0) && zu_rpj_d2_set_use_reproj(reproj, 0));
  CHECK(apply_all(reproj, &points) == 8);
  check_all_at(&points, 40, 0);
  CHECK(zu_rpj_d2_set_use_affine_after(reproj, 0) && zu_rpj_d2_set_use_reproj(reproj, 1));
  CHECK(zu_rpj_d2_init_crs(reproj, wide_geographic, wide_utm) == 1);
  CHECK(zu_rpj_d2_clear_buffer(reproj) == 1);
  zu_vtx_d2_init_xy(points.vertex, 39, 0);
  CHECK(zu_rpj_d2_apply_vtx(reproj, points.vertex) == 1);
  CHECK(is_near(points.vertex->x, 500000));
  destroy_geometry(&points);
  zu_rpj_d2_destroy(reproj);
}

static void test_both_ways(void) {
  Tzu_matrix3x3 const west = shift_by(-1000);
  Tzu_matrix3x3 const east = shift_by(0.5);
  Tzu_matrix3x3 const singular = {{1, 1, 0, 1, 1, 0, 0, 0, 1}};
  geometry const points = create_geometry(501000, 0);
  zu_rpj_fb_d2* const reproj = zu_rpj_fb_d2_create();
  CHECK(reproj != NULL && zu_rpj_fb_d2_apply_vtx(reproj, points.vertex, 0) == 0);
  CHECK(zu_rpj_fb_d2_init_ex(reproj, utm, "") == 0);
  CHECK(zu_rpj_fb_d2_init_ex(reproj, utm, geographic) == 1);
  CHECK(zu_rpj_fb_d2_init_ex(reproj, utm, NULL) == 0);
  CHECK(zu_rpj_fb_d2_init_crs(reproj, NULL, wide_utm) == 0);
  CHECK(zu_rpj_fb_d2_init_crs(reproj, wide_utm, wide_geographic) == 1);
  CHECK(zu_rpj_fb_d2_set_affine_before(reproj, &west) &&
        zu_rpj_fb_d2_set_use_affine_before(reproj, 1));
  CHECK(zu_rpj_fb_d2_set_affine_after(reproj, &east) &&
        zu_rpj_fb_d2_set_use_affine_after(reproj, 1));
  CHECK(apply_all_fb(reproj, &points, 1) == 9);
  check_all_at(&points, 39.5, 0);
  CHECK(is_near(points.x[1], 39.5) && is_near(points.y[1], 0));
  CHECK(zu_rpj_fb_d2_set_use_reproj(reproj, 1) == 1);
  CHECK(apply_all_fb(reproj, &points, 0) == 9);
  check_all_at(&points, 501000, 0);
  CHECK(zu_rpj_fb_d2_set_affine_after(reproj, &singular) == 1);
  CHECK(apply_all_fb(reproj, &points, 0) == 0);
  check_all_at(&points, 501000, 0);
  CHECK(zu_rpj_fb_d2_clear_buffer(reproj) == 1);
  destroy_geometry(&points);
  zu_rpj_fb_d2_destroy(reproj);
}

/* Null for each handle, text, matrix and geometry: 0, and nothing changes. */
static void test_nothing_given(void) {
  Tzu_matrix3x3 const matrix = shift_by(0);
  geometry const points = create_geometry(500000, 0);
  geometry const none = {NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL};
  zu_rpj_d2* const reproj = zu_rpj_d2_create();
  zu_rpj_fb_d2* const both = zu_rpj_fb_d2_create();
  CHECK(apply_all(NULL, &points) == 0 && zu_rpj_d2_clear_buffer(NULL) == 0);
  CHECK(!zu_rpj_d2_init_ex(NULL, utm, geographic) && !zu_rpj_d2_set_use_reproj(NULL, 1));
  CHECK(zu_rpj_d2_init_crs(NULL, wide_utm, wide_geographic) == 0);
  CHECK(!zu_rpj_d2_set_use_affine_before(NULL, 1) && !zu_rpj_d2_set_use_affine_after(NULL, 1));
  CHECK(!zu_rpj_d2_set_affine_before(NULL, &matrix) && !zu_rpj_d2_set_affine_after(NULL, &matrix));
  CHECK(!zu_rpj_d2_set_affine_before(reproj, NULL) && !zu_rpj_d2_set_affine_after(reproj, NULL));
  CHECK(zu_rpj_d2_init_ex(reproj, utm, geographic) == 1 && apply_all(reproj, &none) == 0);

  CHECK(!zu_rpj_fb_d2_init_ex(NULL, utm, geographic) && !zu_rpj_fb_d2_set_use_reproj(NULL, 1));
  CHECK(zu_rpj_fb_d2_init_crs(NULL, wide_utm, wide_geographic) == 0);
  CHECK(!zu_rpj_fb_d2_set_use_affine_before(NULL, 1) &&
        !zu_rpj_fb_d2_set_use_affine_after(NULL, 1));
  CHECK(!zu_rpj_fb_d2_set_affine_before(NULL, &matrix));
  CHECK(!zu_rpj_fb_d2_set_affine_after(NULL, &matrix) && zu_rpj_fb_d2_clear_buffer(NULL) == 0);
  CHECK(!zu_rpj_fb_d2_set_affine_before(both, NULL) && !zu_rpj_fb_d2_set_affine_after(both, NULL));
  CHECK(zu_rpj_fb_d2_init_ex(both, utm, geographic) == 1);
  for (int forward = 0; forward < 2; ++forward) {
    CHECK(apply_all_fb(NULL, &points, forward) == 0 && apply_all_fb(both, &none, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_xy(both, 1, NULL, points.y, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_xy(both, 1, points.x, NULL, forward) == 0);
  }
  check_all_at(&points, 500000, 0);
  CHECK(points.x[0] == 500000 && points.y[0] == 0);

  /* The geometry itself. */
  zu_vtx_d2_init_xy(NULL, 1, 2);
  zu_vtx_d3_init_xyz(NULL, 1, 2, 3);
  zu_box_d2_init_xy(NULL, 1, 2, 3, 4);
  zu_matrix3x3_init_single(NULL);
  CHECK(zu_matrix3x3_invert(NULL) == 0);
  CHECK(zu_pv_d2_get_size(NULL) == 0 && zu_pv_d3_get_size(NULL) == 0);
  CHECK(zu_ov_d2_get_size(NULL) == 0 && zu_ov_d3_get_size(NULL) == 0);
  CHECK(zu_pv_d2_set_size(NULL, 1) == 0 && zu_pv_d3_set_size(NULL, 1) == 0);
  CHECK(!zu_pv_d2_set_size(points.pv, (size_t)-1) && !zu_pv_d3_set_size(points.pv3d, (size_t)-1));
  CHECK(zu_pv_d2_create((size_t)-1) == NULL && zu_pv_d3_create((size_t)-1) == NULL);
  CHECK(zu_ov_d2_create((size_t)-1) == NULL && zu_ov_d3_create((size_t)-1) == NULL);
  CHECK(zu_pv_d2_get_vtx(points.pv, 2, points.vertex) == 0);
  CHECK(zu_pv_d2_get_vtx(points.pv, 0, NULL) == 0 && zu_pv_d2_get_vtx(NULL, 0, points.vertex) == 0);
  CHECK(zu_pv_d2_set_vtx(points.pv, 2, points.vertex) == 0);
  CHECK(zu_pv_d2_set_vtx(points.pv, 0, NULL) == 0 && zu_pv_d2_set_vtx(NULL, 0, points.vertex) == 0);
  CHECK(!zu_pv_d3_get_vtx(points.pv3d, 2, points.vertex3d));
  CHECK(!zu_pv_d3_set_vtx(points.pv3d, 2, points.vertex3d));
  CHECK(zu_ov_d2_get_pv_ptr(points.ov, 1) == NULL && zu_ov_d2_get_pv_ptr(NULL, 0) == NULL);
  CHECK(zu_ov_d3_get_pv_ptr(points.ov3d, 1) == NULL && zu_ov_d3_get_pv_ptr(NULL, 0) == NULL);
  check_all_at(&points, 500000, 0);

  zu_rpj_d2_destroy(NULL);
  zu_rpj_fb_d2_destroy(NULL);
  destroy_geometry(&none);
  destroy_geometry(&points);
  zu_rpj_d2_destroy(reproj);
  zu_rpj_fb_d2_destroy(both);
}

int main(void) {
  test_one_way();
  test_both_ways();
  test_nothing_given();
  return layer_result();
}
