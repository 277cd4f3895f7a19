/* The reprojection functions of the C-style layer, as a host in C calls them. */
#include <math.h>
#include <string.h>
#include <wchar.h>

#include "layer_support.h"

#define NEAR(left, right, digit) CHECK(fabs((left) - (right)) < (digit))

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

/* Sequences and a set of one sequence, of two points at the zone's origin. */
typedef struct {
  Tzu_vtx_d2 vertex;
  Tzu_vtx_d3 vertex3d;
  Tzu_box_d2 box;
  Tzu_pp2d* pv;
  Tzu_op2d* ov;
  Tzu_pvtx_d3* pv3d;
  Tzu_ovtx_d3* ov3d;
} geometry;

static void put(Tzu_pp2d* pv, Tzu_pvtx_d3* pv3d, geometry const* from) {
  size_t i = 0;
  CHECK(zu_pv_d2_set_size(pv, 2) && zu_pv_d3_set_size(pv3d, 2));
  for (i = 0; i < 2; ++i) {
    CHECK(zu_pv_d2_set_vtx(pv, i, &from->vertex) == 1);
    CHECK(zu_pv_d3_set_vtx(pv3d, i, &from->vertex3d) == 1);
  }
}

static geometry create_geometry(double x, double y) {
  geometry made;
  zu_vtx_d2_init_xy(&made.vertex, x, y);
  zu_vtx_d3_init_xyz(&made.vertex3d, x, y, 77);
  zu_box_d2_init_xy(&made.box, x, y, x, y);
  made.pv = zu_pv_d2_create(1);
  made.pv3d = zu_pv_d3_create(1);
  made.ov = zu_ov_d2_create(1);
  made.ov3d = zu_ov_d3_create(1);
  put(made.pv, made.pv3d, &made);
  put(zu_ov_d2_get_pv_ptr(made.ov, 0), zu_ov_d3_get_pv_ptr(made.ov3d, 0), &made);
  return made;
}

static void destroy_geometry(geometry* old) {
  zu_pv_d2_destroy(old->pv);
  zu_pv_d3_destroy(old->pv3d);
  zu_ov_d2_destroy(old->ov);
  zu_ov_d3_destroy(old->ov3d);
}

static void check_at(Tzu_pp2d const* pv, Tzu_pvtx_d3 const* pv3d, double x, double y) {
  size_t i = 0;
  Tzu_vtx_d2 vertex = {0, 0};
  Tzu_vtx_d3 vertex3d = {0, 0, 0};
  CHECK(zu_pv_d2_get_size(pv) == 2 && zu_pv_d3_get_size(pv3d) == 2);
  for (i = 0; i < 2; ++i) {
    CHECK(zu_pv_d2_get_vtx(pv, i, &vertex) == 1);
    CHECK(zu_pv_d3_get_vtx(pv3d, i, &vertex3d) == 1);
    NEAR(vertex.x, x, 1e-5);
    NEAR(vertex.y, y, 1e-5);
    NEAR(vertex3d.x, x, 1e-5);
    NEAR(vertex3d.y, y, 1e-5);
    CHECK(vertex3d.z == 77);
  }
}

static void check_all_at(geometry* of, double x, double y) {
  NEAR(of->vertex.x, x, 1e-5);
  NEAR(of->vertex.y, y, 1e-5);
  NEAR(of->vertex3d.x, x, 1e-5);
  CHECK(of->vertex3d.z == 77);
  NEAR(of->box.min_x, x, 1e-5);
  NEAR(of->box.max_y, y, 1e-5);
  CHECK(zu_ov_d2_get_size(of->ov) == 1 && zu_ov_d3_get_size(of->ov3d) == 1);
  check_at(of->pv, of->pv3d, x, y);
  check_at(zu_ov_d2_get_pv_ptr(of->ov, 0), zu_ov_d3_get_pv_ptr(of->ov3d, 0), x, y);
}

/* How many of the functions succeed. */
static int apply_all(zu_rpj_d2* reproj, geometry* to) {
  Tzu_box_d2 same = to->box;
  int const done =
      zu_rpj_d2_apply_vtx(reproj, &to->vertex) + zu_rpj_d2_apply_vtx3d(reproj, &to->vertex3d) +
      zu_rpj_d2_apply_pv(reproj, to->pv) + zu_rpj_d2_apply_ov(reproj, to->ov) +
      zu_rpj_d2_apply_pv3d(reproj, to->pv3d) + zu_rpj_d2_apply_ov3d(reproj, to->ov3d) +
      zu_rpj_d2_apply_box_approx(reproj, &to->box) + zu_rpj_d2_apply_box_approx_ex(reproj, &same);
  NEAR(same.min_x, to->box.min_x, 1e-12);
  NEAR(same.max_y, to->box.max_y, 1e-12);
  return done;
}

static int apply_all_fb(zu_rpj_fb_d2* reproj, geometry* to, int forward) {
  double x[2] = {to->vertex.x, to->vertex.x};
  double y[2] = {to->vertex.y, to->vertex.y};
  Tzu_box_d2 same = to->box;
  int done = 0;
  done = zu_rpj_fb_d2_apply_vtx(reproj, &to->vertex, forward) +
         zu_rpj_fb_d2_apply_vtx3d(reproj, &to->vertex3d, forward) +
         zu_rpj_fb_d2_apply_pv(reproj, to->pv, forward) +
         zu_rpj_fb_d2_apply_ov(reproj, to->ov, forward) +
         zu_rpj_fb_d2_apply_pv3d(reproj, to->pv3d, forward) +
         zu_rpj_fb_d2_apply_ov3d(reproj, to->ov3d, forward) +
         zu_rpj_fb_d2_apply_box(reproj, &to->box, forward) +
         zu_rpj_fb_d2_apply_box_approx(reproj, &same, forward) +
         zu_rpj_fb_d2_apply_xy(reproj, 2, x, y, forward);
  NEAR(x[1], to->vertex.x, 1e-9);
  NEAR(y[1], to->vertex.y, 1e-9);
  NEAR(same.max_x, to->box.max_x, 1e-9);
  return done;
}

static void test_one_way(void) {
  Tzu_matrix3x3 const west = shift_by(-1000);
  Tzu_matrix3x3 const east = shift_by(0.5);
  geometry points = create_geometry(501000, 0);
  zu_rpj_d2* const reproj = zu_rpj_d2_create();
  CHECK(reproj != NULL && zu_rpj_d2_apply_vtx(reproj, &points.vertex) == 0);
  CHECK(zu_rpj_d2_init_ex(reproj, utm, "+proj=nonsense") == 0);
  CHECK(zu_rpj_d2_init_ex(reproj, utm, geographic) == 1);
  CHECK(zu_rpj_d2_init_ex(reproj, NULL, geographic) == 0);
  CHECK(zu_rpj_d2_init_crs(reproj, wide_utm, NULL) == 0);
  CHECK(zu_rpj_d2_set_affine_before(reproj, &west) == 1);
  CHECK(zu_rpj_d2_set_use_affine_before(reproj, 1) == 1);
  CHECK(zu_rpj_d2_set_affine_after(reproj, &east) == 1);
  CHECK(zu_rpj_d2_set_use_affine_after(reproj, 1) == 1);
  CHECK(apply_all(reproj, &points) == 8);
  check_all_at(&points, 39.5, 0);

  CHECK(zu_rpj_d2_set_use_affine_before(reproj, 0) == 1);
  CHECK(zu_rpj_d2_set_use_reproj(reproj, 0) == 1);
  CHECK(apply_all(reproj, &points) == 8);
  check_all_at(&points, 40, 0);
  CHECK(zu_rpj_d2_set_use_affine_after(reproj, 0) && zu_rpj_d2_set_use_reproj(reproj, 1));
  CHECK(zu_rpj_d2_init_crs(reproj, wide_geographic, wide_utm) == 1);
  CHECK(zu_rpj_d2_clear_buffer(reproj) == 1);
  zu_vtx_d2_init_xy(&points.vertex, 39, 0);
  CHECK(zu_rpj_d2_apply_vtx(reproj, &points.vertex) == 1);
  NEAR(points.vertex.x, 500000, 1e-5);
  destroy_geometry(&points);
  zu_rpj_d2_destroy(reproj);
}

static void test_both_ways(void) {
  Tzu_matrix3x3 const west = shift_by(-1000);
  Tzu_matrix3x3 const east = shift_by(0.5);
  Tzu_matrix3x3 const singular = {{1, 1, 0, 1, 1, 0, 0, 0, 1}};
  geometry points = create_geometry(501000, 0);
  zu_rpj_fb_d2* const reproj = zu_rpj_fb_d2_create();
  CHECK(reproj != NULL && zu_rpj_fb_d2_apply_vtx(reproj, &points.vertex, 0) == 0);
  CHECK(zu_rpj_fb_d2_init_ex(reproj, utm, "") == 0);
  CHECK(zu_rpj_fb_d2_init_ex(reproj, utm, geographic) == 1);
  CHECK(zu_rpj_fb_d2_init_ex(reproj, utm, NULL) == 0);
  CHECK(zu_rpj_fb_d2_init_crs(reproj, NULL, wide_utm) == 0);
  CHECK(zu_rpj_fb_d2_init_crs(reproj, wide_utm, wide_geographic) == 1);
  CHECK(zu_rpj_fb_d2_set_affine_before(reproj, &west) == 1);
  CHECK(zu_rpj_fb_d2_set_use_affine_before(reproj, 1) == 1);
  CHECK(zu_rpj_fb_d2_set_affine_after(reproj, &east) == 1);
  CHECK(zu_rpj_fb_d2_set_use_affine_after(reproj, 1) == 1);
  CHECK(apply_all_fb(reproj, &points, 1) == 9);
  check_all_at(&points, 39.5, 0);
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
  Tzu_matrix3x3 matrix = shift_by(0);
  double x = 1;
  double y = 2;
  int forward = 0;
  geometry points = create_geometry(500000, 0);
  geometry none;
  zu_rpj_d2* const reproj = zu_rpj_d2_create();
  zu_rpj_fb_d2* const both = zu_rpj_fb_d2_create();
  CHECK(apply_all(NULL, &points) == 0);
  CHECK(zu_rpj_d2_init_ex(NULL, utm, geographic) == 0);
  CHECK(zu_rpj_d2_init_crs(NULL, wide_utm, wide_geographic) == 0);
  CHECK(zu_rpj_d2_set_use_reproj(NULL, 1) == 0);
  CHECK(zu_rpj_d2_set_use_affine_before(NULL, 1) == 0);
  CHECK(zu_rpj_d2_set_affine_before(NULL, &matrix) == 0);
  CHECK(zu_rpj_d2_set_use_affine_after(NULL, 1) == 0);
  CHECK(zu_rpj_d2_set_affine_after(NULL, &matrix) == 0);
  CHECK(zu_rpj_d2_clear_buffer(NULL) == 0);
  CHECK(zu_rpj_d2_set_affine_before(reproj, NULL) == 0);
  CHECK(zu_rpj_d2_set_affine_after(reproj, NULL) == 0);
  CHECK(zu_rpj_d2_init_ex(reproj, utm, geographic) == 1);
  CHECK(zu_rpj_d2_apply_vtx(reproj, NULL) == 0 && zu_rpj_d2_apply_pv(reproj, NULL) == 0);
  CHECK(zu_rpj_d2_apply_ov(reproj, NULL) == 0 && zu_rpj_d2_apply_vtx3d(reproj, NULL) == 0);
  CHECK(zu_rpj_d2_apply_pv3d(reproj, NULL) == 0 && zu_rpj_d2_apply_ov3d(reproj, NULL) == 0);
  CHECK(zu_rpj_d2_apply_box_approx(reproj, NULL) == 0);
  CHECK(zu_rpj_d2_apply_box_approx_ex(reproj, NULL) == 0);

  CHECK(zu_rpj_fb_d2_init_ex(NULL, utm, geographic) == 0);
  CHECK(zu_rpj_fb_d2_init_crs(NULL, wide_utm, wide_geographic) == 0);
  CHECK(zu_rpj_fb_d2_set_use_reproj(NULL, 1) == 0);
  CHECK(zu_rpj_fb_d2_set_use_affine_before(NULL, 1) == 0);
  CHECK(zu_rpj_fb_d2_set_affine_before(NULL, &matrix) == 0);
  CHECK(zu_rpj_fb_d2_set_use_affine_after(NULL, 1) == 0);
  CHECK(zu_rpj_fb_d2_set_affine_after(NULL, &matrix) == 0);
  CHECK(zu_rpj_fb_d2_clear_buffer(NULL) == 0);
  CHECK(zu_rpj_fb_d2_set_affine_before(both, NULL) == 0);
  CHECK(zu_rpj_fb_d2_set_affine_after(both, NULL) == 0);
  CHECK(zu_rpj_fb_d2_init_ex(both, utm, geographic) == 1);
  for (forward = 0; forward < 2; ++forward) {
    CHECK(apply_all_fb(NULL, &points, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_xy(both, 1, NULL, &y, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_xy(both, 1, &x, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_vtx(both, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_pv(both, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_ov(both, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_vtx3d(both, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_pv3d(both, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_ov3d(both, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_box(both, NULL, forward) == 0);
    CHECK(zu_rpj_fb_d2_apply_box_approx(both, NULL, forward) == 0);
  }
  check_all_at(&points, 500000, 0);
  CHECK(x == 1 && y == 2);

  /* The geometry itself. */
  zu_vtx_d2_init_xy(NULL, 1, 2);
  zu_vtx_d3_init_xyz(NULL, 1, 2, 3);
  zu_box_d2_init_xy(NULL, 1, 2, 3, 4);
  zu_matrix3x3_init_single(NULL);
  CHECK(zu_matrix3x3_invert(NULL) == 0);
  none = points;
  CHECK(zu_pv_d2_get_size(NULL) == 0 && zu_pv_d3_get_size(NULL) == 0);
  CHECK(zu_ov_d2_get_size(NULL) == 0 && zu_ov_d3_get_size(NULL) == 0);
  CHECK(zu_pv_d2_set_size(NULL, 1) == 0 && zu_pv_d3_set_size(NULL, 1) == 0);
  CHECK(zu_pv_d2_set_size(points.pv, (size_t)-1) == 0);
  CHECK(zu_pv_d3_set_size(points.pv3d, (size_t)-1) == 0);
  CHECK(zu_pv_d2_create((size_t)-1) == NULL && zu_pv_d3_create((size_t)-1) == NULL);
  CHECK(zu_ov_d2_create((size_t)-1) == NULL && zu_ov_d3_create((size_t)-1) == NULL);
  CHECK(zu_pv_d2_get_vtx(points.pv, 2, &none.vertex) == 0);
  CHECK(zu_pv_d2_get_vtx(points.pv, 0, NULL) == 0 && zu_pv_d2_get_vtx(NULL, 0, &none.vertex) == 0);
  CHECK(zu_pv_d2_set_vtx(points.pv, 2, &none.vertex) == 0);
  CHECK(zu_pv_d2_set_vtx(points.pv, 0, NULL) == 0 && zu_pv_d2_set_vtx(NULL, 0, &none.vertex) == 0);
  CHECK(zu_pv_d3_get_vtx(points.pv3d, 2, &none.vertex3d) == 0);
  CHECK(zu_pv_d3_set_vtx(points.pv3d, 2, &none.vertex3d) == 0);
  CHECK(zu_ov_d2_get_pv_ptr(points.ov, 1) == NULL && zu_ov_d2_get_pv_ptr(NULL, 0) == NULL);
  CHECK(zu_ov_d3_get_pv_ptr(points.ov3d, 1) == NULL && zu_ov_d3_get_pv_ptr(NULL, 0) == NULL);
  check_all_at(&points, 500000, 0);

  zu_rpj_d2_destroy(NULL);
  zu_rpj_fb_d2_destroy(NULL);
  memset(&none, 0, sizeof none);
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
