/* The parameter functions of the C-style layer, as a host in C calls them. */
#include <math.h>
#include <stddef.h>

#include "layer_support.h"

static char const sample[] =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

static zu_pj4_params* read_definition(char const* text) {
  zu_pj4_params* const params = zu_pj4_params_create();
  CHECK(zu_pj4_params_set(params, text) == 1);
  CHECK(zu_pj4_params_decompose(params) == 1);
  return params;
}

static void test_definition(void) {
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

/* The functions by kind; each must take the names of its kind and no other. */
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
  CHECK(!zu_pj4_params_get_towgs84(params, NULL) && !zu_pj4_params_set_towgs84(params, NULL));
  CHECK(!zu_pj4_params_get_towgs84(NULL, values) && !zu_pj4_params_set_towgs84(NULL, values));
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
  CHECK(zu_pj4_get_short_text("+lon_0=39", layer_adapter()) == 0);
  CHECK(zu_pj4_get_short_text(NULL, layer_adapter()) == 0);
  CHECK(zu_pj4_get_text(NULL, layer_adapter()) == 0 && layer_received_count() == 0);
  CHECK(zu_pj4_params_get_text(params, NULL) == 0 && zu_pj4_get_text("+proj=merc", NULL) == 0);
  CHECK(zu_pj4_get_short_text("+proj=merc", NULL) == 0);
  CHECK(zu_pj4_find_losses("+pm=paris +k", NULL, NULL) == 2);
  CHECK(zu_pj4_find_losses(NULL, NULL, NULL) == 0);
  zu_pj4_params_destroy(params);
}

/* Every function that takes a handle, without one; every one that takes a name,
   without one and with one that there is not; and places for results. */
static void test_nothing_given(void) {
  zu_pj4_params* const params = read_definition(sample);
  double real = 1;
  char const* text = sample;
  int number = 7;
  CHECK(zu_pj4_params_set(NULL, sample) == 0 && zu_pj4_params_get(NULL) == NULL);
  CHECK(zu_pj4_params_decompose(NULL) == 0 && zu_pj4_params_compose(NULL) == 0);
  CHECK(zu_pj4_params_compose_for_proj4(NULL) == 0 && zu_pj4_params_set_all_undefined(NULL) == 0);
  CHECK(zu_pj4_params_set_is_long_lat(NULL) == 0 && zu_pj4_params_set_is_lon_wrap(NULL, 1) == 0);
  CHECK(!zu_pj4_params_is_valid(NULL) && !zu_pj4_params_is_sphere(NULL));
  CHECK(!zu_pj4_params_equal(NULL, params) && !zu_pj4_params_equal(params, NULL));
  CHECK(!zu_pj4_params_get_is_long_lat(NULL) && !zu_pj4_params_get_is_lon_wrap(NULL));
  CHECK(zu_pj4_params_get_text(NULL, layer_adapter()) == 0 && layer_received_count() == 0);
  CHECK(zu_pj4_params_get_name(NULL, 0) == NULL);
  for (int i = 0; i < 3; ++i) {
    zu_pj4_params* const handle = i == 0 ? NULL : params;
    char const* const name = i == 0 ? "proj" : i == 1 ? NULL : "no_defs";
    CHECK(!zu_pj4_params_get_def(handle, name) && zu_pj4_params_set_def(handle, name, 0) == 0);
    CHECK(zu_pj4_params_get_out_str(handle, name) == NULL);
    CHECK(zu_pj4_params_val_from_str(handle, name, "1") == 0);
    CHECK(!zu_pj4_params_get_str(handle, name, &text) && !zu_pj4_params_set_str(handle, name, "x"));
    CHECK(!zu_pj4_params_get_dbl(handle, name, &real) && !zu_pj4_params_set_dbl(handle, name, 1));
    CHECK(!zu_pj4_params_get_int(handle, name, &number) && !zu_pj4_params_set_int(handle, name, 1));
    CHECK(!zu_pj4_params_get_bool(handle, name, &number) &&
          !zu_pj4_params_set_bool(handle, name, 1));
  }
  CHECK(!zu_pj4_params_get_str(params, "proj", NULL) &&
        !zu_pj4_params_set_str(params, "proj", NULL));
  CHECK(zu_pj4_params_val_from_str(params, "proj", NULL) == 0);
  CHECK(!zu_pj4_params_get_dbl(params, "lon_0", NULL) &&
        !zu_pj4_params_get_int(params, "zone", NULL));
  CHECK(zu_pj4_params_get_bool(params, "south", NULL) == 0);
  CHECK(text == sample && number == 7 && fabs(real - 1) < 1e-12);
  CHECK(zu_pj4_params_compose(params) == 1 && layer_same(zu_pj4_params_get(params), sample));
  zu_pj4_params_destroy(params);
  zu_pj4_params_destroy(NULL);
}

int main(void) {
  test_definition();
  test_values();
  test_towgs84();
  test_texts();
  test_nothing_given();
  return layer_result();
}
