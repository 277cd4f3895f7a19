/* The conversion functions of the C-style layer, as a host in C calls them. */
#include <stddef.h>
#include <string.h>

#include "layer_support.h"

/* A known system, so that its ESRI WKT does not depend on GDAL's version. */
static wchar_t const zone[] =
    L"+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    L"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m";
static wchar_t const nonsense[] = L"+proj=nonsense";
static char const zone_name[] = "PROJCS[\"Pulkovo_1942_GK_Zone_7\",";
static wchar_t const wkt[] =
    L"GEOGCS[\"GCS_Pulkovo_1942\",DATUM[\"D_Pulkovo_1942\",SPHEROID[\"Krasovsky_1940\",6378245.0,"
    L"298.3]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
static char const geographic[] =
    "+proj=longlat +ellps=krass +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +no_defs";

static char const code[] =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs";

static int is_zone(char const* text) {
  return text != NULL && strncmp(text, zone_name, sizeof zone_name - 1) == 0;
}

typedef int (*conversion)(wchar_t const*, Izu_string_adp*);

/* Of what cannot be converted, and of nothing, nothing is fed. */
static void check_fails(conversion convert, wchar_t const* text) {
  CHECK(convert(text, layer_adapter()) == 0);
  CHECK(convert(NULL, layer_adapter()) == 0);
  CHECK(convert(L"", layer_adapter()) == 0);
  CHECK(layer_received_count() == 0);
}

static void test_texts(void) {
  CHECK(zu_pj4_export_esri(zone, layer_adapter()) == 1 && is_zone(layer_received_narrow()));
  CHECK(zu_pj4_import_esri_prj(wkt, layer_adapter()) == 1 && layer_received(geographic));
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

int main(void) {
  test_texts();
  test_esri_files();
  test_parameter_files();
  test_adapters();
  return layer_result();
}
