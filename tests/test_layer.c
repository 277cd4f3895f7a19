/* The C-style layer, as a host in C calls it. */
#include <math.h>
#include <stddef.h>
#include <string.h>

#include "layer_support.h"

/* ---- parameters */

static char const sample[] =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

static zu_pj4_params* read_definition(char const* text) {
  zu_pj4_params* const params = zu_pj4_params_create();
  CHECK(zu_pj4_params_set(params, text) == 1);
  CHECK(zu_pj4_params_decompose(params) == 1);
  return params;
}

static void test_params(void) {
  zu_pj4_params* const params = read_definition(sample);
  zu_pj4_params* const other = read_definition("+proj=merc +R=6371000 +towgs84=1,2,3");
  CHECK(zu_pj4_params_compose(params) == 1);
  CHECK(layer_same(zu_pj4_params_get(params), sample));
  CHECK(zu_pj4_params_set(params, NULL) == 0 && layer_same(zu_pj4_params_get(params), sample));
  CHECK(zu_pj4_params_is_valid(params) && !zu_pj4_params_is_sphere(params));
  CHECK(!zu_pj4_params_get_is_long_lat(params));
  CHECK(zu_pj4_params_equal(params, params) && !zu_pj4_params_equal(params, other));
  CHECK(zu_pj4_params_is_sphere(other) && zu_pj4_params_get_is_lon_wrap(other));
  CHECK(zu_pj4_params_set_is_lon_wrap(other, 0) == 1 && !zu_pj4_params_get_is_lon_wrap(other));
  CHECK(zu_pj4_params_compose_for_proj4(other) == 1);
  CHECK(layer_same(zu_pj4_params_get(other), "+proj=merc +R=6371000 +no_defs"));
  CHECK(zu_pj4_params_set_is_long_lat(params) == 1 && zu_pj4_params_get_is_long_lat(params));
  CHECK(zu_pj4_params_get_def(params, "ellps") && !zu_pj4_params_get_def(params, "lon_0"));
  CHECK(zu_pj4_params_set_all_undefined(params) == 1 && !zu_pj4_params_is_valid(params));
  CHECK(zu_pj4_params_compose(params) == 1 && layer_same(zu_pj4_params_get(params), ""));
  zu_pj4_params_destroy(params);
  zu_pj4_params_destroy(other);
}

/* A function takes the names of its kind and no other. */
static void test_values(void) {
  static char const* const names[] = {"proj",  "zone",  "lon_0",   "lonc",  "lat_0", "x_0",
                                      "y_0",   "lat_1", "lat_ts",  "lat_2", "south", "k_0",
                                      "alpha", "datum", "towgs84", "a",     "b",     "rf",
                                      "ellps", "units", "nadgrids"};
  static char const kinds[] = "siddddddddbddstdddsss";
  zu_pj4_params* const params = zu_pj4_params_create();
  unsigned const count = zu_pj4_params_get_count();
  CHECK(count == sizeof names / sizeof *names);
  for (unsigned i = 0; i < count; ++i) {
    char const* const name = zu_pj4_params_get_name(params, i);
    char const kind = kinds[i];
    char const* text = "kept";
    double real = -1;
    int integer = -1;
    int flag = -1;
    CHECK(layer_same(name, names[i]));
    CHECK(zu_pj4_params_set_str(params, name, "text") == (kind == 's'));
    CHECK(zu_pj4_params_get_str(params, name, &text) == (kind == 's'));
    CHECK(layer_same(text, kind == 's' ? "text" : "kept"));
    CHECK(zu_pj4_params_set_dbl(params, name, 0.25) == (kind == 'd'));
    CHECK(zu_pj4_params_get_dbl(params, name, &real) == (kind == 'd'));
    CHECK(fabs(real - (kind == 'd' ? 0.25 : -1)) < 1e-12);
    CHECK(zu_pj4_params_set_int(params, name, 37) == (kind == 'i'));
    CHECK(zu_pj4_params_get_int(params, name, &integer) == (kind == 'i'));
    CHECK(integer == (kind == 'i' ? 37 : -1));
    CHECK(zu_pj4_params_set_bool(params, name, 5) == (kind == 'b'));
    CHECK(zu_pj4_params_get_bool(params, name, &flag) == (kind == 'b'));
    CHECK(flag == (kind == 'b' ? 1 : -1));
    CHECK(!zu_pj4_params_get_def(params, name) &&
          layer_same(zu_pj4_params_get_out_str(params, name), ""));
    CHECK(zu_pj4_params_set_dbl(params, name, NAN) == 0);
  }
  CHECK(zu_pj4_params_get_name(params, count) == NULL);

  CHECK(zu_pj4_params_set_def(params, "LON_0", 2) == 1 && zu_pj4_params_get_def(params, "lon_0"));
  CHECK(layer_same(zu_pj4_params_get_out_str(params, "lon_0"), "+lon_0=0.25 "));
  CHECK(zu_pj4_params_val_from_str(params, "zone", " 7 ") == 1);
  CHECK(layer_same(zu_pj4_params_get_out_str(params, "zone"), "+zone=7 "));
  CHECK(zu_pj4_params_val_from_str(params, "zone", "seven") == 0);
  CHECK(!zu_pj4_params_get_def(params, "zone"));
  zu_pj4_params_destroy(params);
}

static void test_towgs84(void) {
  double values[7] = {0, 0, 0, 0, 0, 0, 0};
  zu_pj4_params* const params = read_definition("+towgs84=1,2.5,-3");
  CHECK(zu_pj4_params_get_towgs84(params, values) == 1);
  CHECK(fabs(values[1] - 2.5) < 1e-12 && fabs(values[2] + 3) < 1e-12 && fabs(values[6]) < 1e-12);
  values[6] = -0.12;
  CHECK(zu_pj4_params_set_towgs84(params, values) == 1);
  values[0] = INFINITY;
  CHECK(zu_pj4_params_set_towgs84(params, values) == 0);
  CHECK(layer_same(zu_pj4_params_get_out_str(params, "towgs84"), "+towgs84=1,2.5,-3,0,0,0,-0.12 "));
  zu_pj4_params_destroy(params);
}

static void test_texts(void) {
  static wchar_t const line[] = L"\u041F\u0440\u043E\u0435\u043A\u0446\u0438\u044F = merc\r\n";
  zu_pj4_params* const params = read_definition("+proj=merc");
  layer_set_language(1);
  CHECK(zu_pj4_params_get_text(params, layer_adapter()) == 1 && layer_received_wide(line));
  CHECK(zu_pj4_get_text("+proj=merc +no_defs", layer_adapter()) == 1 && layer_received_wide(line));
  CHECK(zu_pj4_get_short_text("+proj=merc +lon_0=39", layer_adapter()) == 1);
  CHECK(layer_received("Mercator; 39; "));
  CHECK(zu_pj4_find_losses("+pm=paris +k", NULL, NULL) == 2);
  zu_pj4_params_destroy(params);
}

static void test_missing_params(void) {
  zu_pj4_params* const params = read_definition(sample);
  double real = 1;
  double shift[7] = {0};
  char const* text = sample;
  int number = 7;
  CHECK(!(
      zu_pj4_params_set(NULL, sample) || zu_pj4_params_get(NULL) || zu_pj4_params_decompose(NULL) ||
      zu_pj4_params_compose(NULL) || zu_pj4_params_compose_for_proj4(NULL) ||
      zu_pj4_params_set_all_undefined(NULL) || zu_pj4_params_set_is_long_lat(NULL) ||
      zu_pj4_params_set_is_lon_wrap(NULL, 1) || zu_pj4_params_is_valid(NULL) ||
      zu_pj4_params_is_sphere(NULL) || zu_pj4_params_equal(NULL, params) ||
      zu_pj4_params_equal(params, NULL) || zu_pj4_params_get_is_long_lat(NULL) ||
      zu_pj4_params_get_is_lon_wrap(NULL) || zu_pj4_params_get_text(NULL, layer_adapter()) ||
      zu_pj4_params_get_text(params, NULL) || zu_pj4_params_get_name(NULL, 0) ||
      zu_pj4_params_get_towgs84(params, NULL) || zu_pj4_params_set_towgs84(params, NULL) ||
      zu_pj4_params_get_towgs84(NULL, shift) || zu_pj4_params_set_towgs84(NULL, shift) ||
      zu_pj4_params_get_str(params, "proj", NULL) || zu_pj4_params_set_str(params, "proj", NULL) ||
      zu_pj4_params_val_from_str(params, "proj", NULL) ||
      zu_pj4_params_get_dbl(params, "lon_0", NULL) || zu_pj4_params_get_int(params, "zone", NULL) ||
      zu_pj4_params_get_bool(params, "south", NULL) ||
      zu_pj4_get_short_text("+lon_0=39", layer_adapter()) ||
      zu_pj4_get_short_text(NULL, layer_adapter()) || zu_pj4_get_short_text("+proj=merc", NULL) ||
      zu_pj4_get_text(NULL, layer_adapter()) || zu_pj4_get_text("+proj=merc", NULL) ||
      zu_pj4_find_losses(NULL, NULL, NULL) || layer_received_count()));
  for (int i = 0; i < 3; ++i) {
    zu_pj4_params* const handle = i == 0 ? NULL : params;
    char const* const name = i == 0 ? "proj" : i == 1 ? NULL : "no_defs";
    CHECK(!(
        zu_pj4_params_get_def(handle, name) || zu_pj4_params_set_def(handle, name, 0) ||
        zu_pj4_params_get_out_str(handle, name) || zu_pj4_params_val_from_str(handle, name, "1") ||
        zu_pj4_params_get_str(handle, name, &text) || zu_pj4_params_set_str(handle, name, "x") ||
        zu_pj4_params_get_dbl(handle, name, &real) || zu_pj4_params_set_dbl(handle, name, 1) ||
        zu_pj4_params_get_int(handle, name, &number) || zu_pj4_params_set_int(handle, name, 1) ||
        zu_pj4_params_get_bool(handle, name, &number) || zu_pj4_params_set_bool(handle, name, 1)));
  }
  CHECK(text == sample && number == 7 && fabs(real - 1) < 1e-12);
  CHECK(zu_pj4_params_compose(params) == 1 && layer_same(zu_pj4_params_get(params), sample));
  zu_pj4_params_destroy(params);
  zu_pj4_params_destroy(NULL);
}

/* ---- conversions */

/* The ESRI WKT of a known system does not depend on the version of GDAL. */
static wchar_t const zone[] =
    L"+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    L"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m";
static wchar_t const nonsense[] = L"+proj=nonsense";
static char const zone_name[] = "PROJCS[\"Pulkovo_1942_GK_Zone_7\",";
static wchar_t const wkt[] =
    L"GEOGCS[\"GCS_Pulkovo_1942\",DATUM[\"D_Pulkovo_1942\",SPHEROID[\"Krasovsky_1940\",6378245.0,"
    L"298.3]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
static char const pulkovo[] =
    "+proj=longlat +ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +no_defs";

static char const code[] =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs";

static int is_zone(char const* text) {
  return text != NULL && strncmp(text, zone_name, sizeof zone_name - 1) == 0;
}

typedef int (*conversion)(wchar_t const*, Izu_string_adp*);

/* A conversion that fails feeds nothing. */
static void check_fails(conversion convert, wchar_t const* text) {
  CHECK(convert(text, layer_adapter()) == 0);
  CHECK(convert(NULL, layer_adapter()) == 0);
  CHECK(convert(L"", layer_adapter()) == 0);
  CHECK(layer_received_count() == 0);
}

static void test_conversions(void) {
  CHECK(zu_pj4_export_esri(zone, layer_adapter()) == 1 && is_zone(layer_received_narrow()));
  CHECK(zu_pj4_import_esri_prj(wkt, layer_adapter()) == 1 && layer_received(pulkovo));
  CHECK(zu_pj4_import_crs(L"EPSG:28407", layer_adapter()) == 1 && layer_received(code));
  check_fails(&zu_pj4_export_esri, nonsense);
  check_fails(&zu_pj4_import_esri_prj, L"GEOGCS[\"x\"");
  check_fails(&zu_pj4_import_crs, L"EPSG:1");
  CHECK(!zu_pj4_export_esri(zone, NULL) && !zu_pj4_import_esri_prj(wkt, NULL));
  CHECK(zu_pj4_import_crs(L"EPSG:28407", NULL) == 0);
}

static void test_esri_files(void) {
  wchar_t const* const name = layer_file(L"zone.prj");
  CHECK(zu_pj4_export_esri_prj(nonsense, name) == 0 && layer_content(name) == NULL);
  CHECK(zu_pj4_export_esri_prj(zone, name) == 1);
  CHECK(zu_pj4_export_esri_prj(nonsense, name) == 0 && zu_pj4_export_esri_prj(NULL, name) == 0);
  CHECK(zu_pj4_export_esri_prj(zone, NULL) == 0 && zu_pj4_export_esri_prj(zone, L"") == 0);
  CHECK(is_zone(layer_content(name)));
  CHECK(zu_pj4_import_esri(name, layer_adapter()) == 1 && layer_received_count() == 1);
  CHECK(layer_received_narrow() != NULL && strstr(layer_received_narrow(), "+x_0=7500000 "));
  CHECK(zu_pj4_import_esri(name, NULL) == 0);
  check_fails(&zu_pj4_import_esri, layer_file(L"none.prj"));
}

static void test_parameter_files(void) {
  wchar_t const* const name = layer_file(L"zone.pj4");
  zu_pj4_save_simple_w(name, zone);
  zu_pj4_save_simple_w(name, NULL);
  zu_pj4_save_simple_w(NULL, zone);
  zu_pj4_load_simple_w(name, layer_adapter());
  CHECK(layer_received_wide(zone));
  zu_pj4_save_simple_w(name, L"+init=epsg:28407");
  zu_pj4_load_simple_w(name, layer_adapter());
  CHECK(layer_received(code));
  zu_pj4_load_simple_w(name, NULL);
  zu_pj4_load_simple_w(NULL, layer_adapter());
  zu_pj4_load_simple_w(layer_file(L"none.pj4"), layer_adapter());
  CHECK(layer_received_count() == 0);
}

static void count_text(char const* text, void* context) {
  CHECK(text != NULL);
  ++*(int*)context;
}

static void test_adapters(void) {
  int count = 0;
  Izu_string_adp* const narrow = zu_string_adp_create(&count_text, NULL, &count);
  CHECK(zu_pj4_import_crs(L"EPSG:28407", narrow) == 1 && count == 1);
  CHECK(zu_pj4_get_text("+proj=merc", narrow) == 1 && count == 1);
  zu_string_adp_destroy(narrow);
  zu_string_adp_feed_c(NULL, "");
  zu_string_adp_destroy(NULL);
}

/* ---- reprojection */

static int is_near(double left, double right) { return fabs(left - right) < 1e-5; }

/* The origin of a zone is the same point in every transformation. */
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

/* One point in every kind of geometry. Sequences have it twice, sets have one sequence. */
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

/* There is one such geometry at a time: some of its parts are static. */
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

/* Returns how many functions succeed. */
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

static void test_missing_geometry(void) {
  Tzu_matrix3x3 const matrix = shift_by(0);
  geometry const points = create_geometry(500000, 0);
  geometry const none = {NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL};
  size_t const too_many = (size_t)-1;
  zu_rpj_d2* const reproj = zu_rpj_d2_create();
  zu_rpj_fb_d2* const both = zu_rpj_fb_d2_create();
  CHECK(zu_rpj_d2_init_ex(reproj, utm, geographic) == 1);
  CHECK(zu_rpj_fb_d2_init_ex(both, utm, geographic) == 1);
  CHECK(
      !(apply_all(NULL, &points) || apply_all(reproj, &none) || zu_rpj_d2_clear_buffer(NULL) ||
        zu_rpj_d2_init_ex(NULL, utm, geographic) || zu_rpj_d2_set_use_reproj(NULL, 1) ||
        zu_rpj_d2_init_crs(NULL, wide_utm, wide_geographic) ||
        zu_rpj_d2_set_use_affine_before(NULL, 1) || zu_rpj_d2_set_use_affine_after(NULL, 1) ||
        zu_rpj_d2_set_affine_before(NULL, &matrix) || zu_rpj_d2_set_affine_after(NULL, &matrix) ||
        zu_rpj_d2_set_affine_before(reproj, NULL) || zu_rpj_d2_set_affine_after(reproj, NULL) ||
        apply_all_fb(NULL, &points, 0) || apply_all_fb(NULL, &points, 1) ||
        apply_all_fb(both, &none, 0) || apply_all_fb(both, &none, 1) ||
        zu_rpj_fb_d2_apply_xy(both, 1, NULL, points.y, 0) ||
        zu_rpj_fb_d2_apply_xy(both, 1, points.x, NULL, 1) || zu_rpj_fb_d2_clear_buffer(NULL) ||
        zu_rpj_fb_d2_init_ex(NULL, utm, geographic) || zu_rpj_fb_d2_set_use_reproj(NULL, 1) ||
        zu_rpj_fb_d2_init_crs(NULL, wide_utm, wide_geographic) ||
        zu_rpj_fb_d2_set_use_affine_before(NULL, 1) || zu_rpj_fb_d2_set_use_affine_after(NULL, 1) ||
        zu_rpj_fb_d2_set_affine_before(NULL, &matrix) ||
        zu_rpj_fb_d2_set_affine_after(NULL, &matrix) ||
        zu_rpj_fb_d2_set_affine_before(both, NULL) || zu_rpj_fb_d2_set_affine_after(both, NULL) ||
        zu_matrix3x3_invert(NULL) || zu_pv_d2_get_size(NULL) || zu_pv_d3_get_size(NULL) ||
        zu_ov_d2_get_size(NULL) || zu_ov_d3_get_size(NULL) || zu_pv_d2_set_size(NULL, 1) ||
        zu_pv_d3_set_size(NULL, 1) || zu_pv_d2_set_size(points.pv, too_many) ||
        zu_pv_d3_set_size(points.pv3d, too_many) || zu_pv_d2_create(too_many) ||
        zu_pv_d3_create(too_many) || zu_ov_d2_create(too_many) || zu_ov_d3_create(too_many) ||
        zu_pv_d2_get_vtx(points.pv, 2, points.vertex) || zu_pv_d2_get_vtx(points.pv, 0, NULL) ||
        zu_pv_d2_get_vtx(NULL, 0, points.vertex) || zu_pv_d2_set_vtx(points.pv, 2, points.vertex) ||
        zu_pv_d2_set_vtx(points.pv, 0, NULL) || zu_pv_d2_set_vtx(NULL, 0, points.vertex) ||
        zu_pv_d3_get_vtx(points.pv3d, 2, points.vertex3d) ||
        zu_pv_d3_set_vtx(points.pv3d, 2, points.vertex3d) || zu_ov_d2_get_pv_ptr(points.ov, 1) ||
        zu_ov_d2_get_pv_ptr(NULL, 0) || zu_ov_d3_get_pv_ptr(points.ov3d, 1) ||
        zu_ov_d3_get_pv_ptr(NULL, 0)));
  zu_vtx_d2_init_xy(NULL, 1, 2);
  zu_vtx_d3_init_xyz(NULL, 1, 2, 3);
  zu_box_d2_init_xy(NULL, 1, 2, 3, 4);
  zu_matrix3x3_init_single(NULL);
  check_all_at(&points, 500000, 0);
  CHECK(points.x[0] == 500000 && points.y[0] == 0);
  zu_rpj_d2_destroy(NULL);
  zu_rpj_fb_d2_destroy(NULL);
  destroy_geometry(&none);
  destroy_geometry(&points);
  zu_rpj_d2_destroy(reproj);
  zu_rpj_fb_d2_destroy(both);
}

void test_layer(void) {
  test_params();
  test_values();
  test_towgs84();
  test_texts();
  test_missing_params();
  test_conversions();
  test_esri_files();
  test_parameter_files();
  test_adapters();
  test_one_way();
  test_both_ways();
  test_missing_geometry();
}
