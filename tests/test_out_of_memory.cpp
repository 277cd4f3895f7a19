// Memory that runs out, at each place in turn: the caller gets a failure or
// std::bad_alloc, nothing is lost or left half done, and the next call is right.

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "catalogue/catalogue.h"
#include "core_support.h"
#include "failing_allocator.h"
#include "pj_edit/edit_rules.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

using failing_allocator::deny_each;
using failing_allocator::made_by;

constexpr char const* zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";

TEST(OutOfMemory, a_definition_keeps_its_text_until_it_has_a_new_one) {
  Tzu_proj4_str set;
  std::string const longer = std::string("+a=1 ").append(zone_7);
  auto const road = [&] {
    set.set(longer.c_str());
    set.decompose();
    set.get_a().set_def(false);
    set.compose();
    return std::string(set.get());
  };
  auto const check = [&] {
    std::string const now = set.get();
    EXPECT_TRUE(now.empty() || now == zone_7 || now == longer) << now;
  };
  // The parameters keep their memory.
  deny_each(road, zone_7, {.gives_back = false, .check = check});
}

TEST(OutOfMemory, descriptions_and_parameters_of_the_layer) {
  // The C library loads a converter for these letters.
  char const* const foreign = "+proj=merc +datum=\xD0\x96 +ellps=krass";
  auto const text = [foreign] {
    return made_by([foreign](auto* to) { return zu_pj4_get_text(foreign, to); });
  };
  deny_each(text, text());
  deny_each([] { return made_by([](auto* to) { return zu_pj4_get_short_text(zone_7, to); }); },
            "Transverse Mercator; 39; 0; 7500000; 0; 1; (23.57,-140.95,-79.8,0,0.35,0.79,-0.22); "
            "krass; ");
  auto const params = [] {
    std::unique_ptr<zu_pj4_params, decltype(&zu_pj4_params_destroy)> const handle(
        zu_pj4_params_create(), &zu_pj4_params_destroy);
    zu_pj4_params_set(handle.get(), "+proj=utm +zone=37");
    zu_pj4_params_decompose(handle.get());
    zu_pj4_params_set_str(handle.get(), "datum", "a datum with a name of some length");
    zu_pj4_params_set_def(handle.get(), "datum", 1);
    return std::string(zu_pj4_params_get_out_str(handle.get(), "datum"));
  };
  deny_each(params, "+datum=a datum with a name of some length ");
}

TEST(OutOfMemory, the_catalogue_is_loaded_whole_or_stays_and_the_rules_work_on_it) {
  auto const edit = [] {
    zu::Tzu_pj_editor editor(zu::catalogue_lists::shipped());
    editor.set_proj4_string("+proj=longlat +ellps=krass");
    editor.set_proj4_string(zone_7);
    return std::string(editor.get_proj4_string());
  };
  deny_each(edit, zone_7);
  auto& projections = Tzu_pj_def_dbf::instance();
  auto& datums = Tzu_datum_def_dbf::instance();
  auto const sizes = [&] {
    std::string text;
    for (std::size_t const size :
         {projections.get_proj_defs().get_size(), projections.get_zone_defs().get_size(),
          datums.get_datum_defs().get_size(), datums.get_ellipse_defs().get_size()})
      text.append(std::to_string(size)).append(" ");
    return text;
  };
  std::string const all = sizes();
  auto const reload = [&] {
    projections.load();
    datums.load();
    return sizes();
  };
  deny_each(reload, all, {.check = [&] { EXPECT_EQ(sizes(), all); }});
}

TEST(OutOfMemory, files_and_known_systems) {
  core_test::Ttemp_folder const folder;
  std::wstring const pj4 = folder.wide(L"zone.pj4");
  std::wstring const prj = folder.wide(L"zone.prj");
  std::wstring const definition(zone_7, zone_7 + std::strlen(zone_7));
  std::string const other = "[projection]\n\npj4=+proj=merc\n";
  std::string const own = std::string("[projection]\n\npj4=").append(zone_7).append("\n");
  auto const save = [&] {
    core_test::put_file(folder.file("zone.pj4"), other);
    zu_pj4_save_simple_w(pj4.c_str(), definition.c_str());
    std::string content = core_test::read_file(folder.file("zone.pj4"));
    return content == other ? "failed" : content;
  };
  auto const nothing_else = [&] { EXPECT_LE(folder.count(), 2U); };
  deny_each(save, own, {.check = nothing_else});
  // When the search of the table fails, GDAL must not answer in its place.
  auto const export_known = [&] {
    return made_by([&](auto* to) { return zu_pj4_export_esri(definition.c_str(), to); });
  };
  // Starts GDAL and PROJ, too, which do not survive a failure when they start.
  std::string const wkt = export_known();
  EXPECT_TRUE(wkt.starts_with("PROJCS[\"Pulkovo_1942_GK_Zone_7\"")) << wkt;
  deny_each(export_known, wkt, {.gives_back = false});
  auto const load = [&] {
    return made_by([&](auto* to) {
      zu_pj4_load_simple_w(pj4.c_str(), to);
      return 1;
    });
  };
  deny_each(load, zone_7, {.gives_back = false});
  auto const save_prj = [&] {
    bool const done = zu_pj4_export_esri_prj(definition.c_str(), prj.c_str()) != 0;
    return done ? core_test::read_file(folder.file("zone.prj")) : "failed";
  };
  deny_each(save_prj, wkt, {.gives_back = false, .check = nothing_else});
}

}  // namespace
