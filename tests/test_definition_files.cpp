// Names, encodings and sizes of definition files. cases/test_cases has their contents.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core_support.h"
#include "esri_text.h"
#include "fed_by.h"
#include "interchange/add_file.h"
#include "text/strconv.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

using core_test::get_file;
using core_test::load_esri;
using core_test::load_simple;
using core_test::put_file;
using core_test::Tsystem_page;
using core_test::Ttemp_folder;
using core_test::zone_7_wkt;

constexpr wchar_t const* zone_7_definition =
    L"+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    L"+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs";

TEST(Definition_file, every_form_is_written_and_read) {
  for (auto const& page : core_test::system_pages()) {
    SCOPED_TRACE(page.encoding);
    Ttemp_folder const folder;
    Tsystem_page const system(page);
    std::wstring const name = folder.wide(page.letters);
    std::string const narrow = folder.file(page.bytes);
    std::wstring const grid = std::wstring(L"+nadgrids=") + page.letters;
    std::string const grid_bytes = std::string("+nadgrids=") + page.bytes;
    put_file(narrow, std::string(5000, 'x'));
    zu_pj4_save_simple_w(name.c_str(), L"+proj=utm +zone=37 +no_defs");
    EXPECT_EQ(get_file(narrow), "[projection]\n\npj4=+proj=utm +zone=37 +no_defs\n");
    EXPECT_EQ(load_simple(name), L"+proj=utm +zone=37 +no_defs");
    zu_pj4_save_simple_w(name.c_str(), L"");
    EXPECT_EQ(load_simple(name), L"");
    // Written in the system's page, read as UTF-8.
    EXPECT_TRUE(Tzu_add_file::save_pj4_ini(name, grid));
    EXPECT_EQ(get_file(narrow), "[projection]\n\npj4=" + grid_bytes + "\n");
    EXPECT_EQ(load_simple(name), zu::strconv::from_utf8(grid_bytes));
    EXPECT_TRUE(Tzu_add_file::save_pj4_mgs(name, grid));
    EXPECT_EQ(get_file(narrow), grid_bytes);
    EXPECT_EQ(load_simple(name), grid);
    put_file(narrow, std::string(5000, 'x'));
    EXPECT_TRUE(zu_pj4_export_esri_prj(zone_7_definition, name.c_str()));
    EXPECT_EQ(get_file(narrow), zone_7_wkt);
    EXPECT_EQ(load_esri(name), zone_7_definition);
    EXPECT_EQ(folder.count(), 1U);
  }
}

// INI files are opened by their name in the system's page.
TEST(Definition_file, saves_nothing_under_another_name) {
  for (auto const& page : core_test::system_pages()) {
    Ttemp_folder const folder;
    Tsystem_page const system(page);
    for (std::string const close_one : {page.like, "?", "??"})
      put_file(folder.file(close_one + ".pj4"), "[projection]\npj4=+proj=utm\n");
    std::size_t const before = folder.count();
    for (std::wstring const letter : page.foreign) {
      std::wstring const name = folder.wide(letter + L".pj4");
      EXPECT_FALSE(Tzu_add_file::save_pj4_ini(name, L"+proj=merc")) << page.encoding;
      EXPECT_EQ(load_simple(name), L"unfed") << page.encoding;
    }
    EXPECT_EQ(folder.count(), before);
    EXPECT_EQ(get_file(folder.file(std::string(page.like) + ".pj4")),
              "[projection]\npj4=+proj=utm\n");
  }
}

// A file that is too long for a definition is not read into memory.
TEST(Definition_file, huge_files_end_at_a_zero_or_are_refused) {
  Ttemp_folder const folder;
  std::filesystem::path const file = folder.file("f.prj");
  std::wstring const name = folder.wide(L"f.prj");
  constexpr std::uintmax_t gigabyte = 1U << 30U;
  put_file(file.string(), zone_7_wkt);
  std::filesystem::resize_file(file, gigabyte);
  EXPECT_EQ(load_esri(name), zone_7_definition);
  put_file(file.string(), "[projection]\npj4=+proj=merc\n");
  std::filesystem::resize_file(file, gigabyte);
  EXPECT_EQ(load_simple(name), L"+proj=merc");
  put_file(file.string(), zone_7_wkt + std::string(std::size_t{40} << 20U, ' '));
  EXPECT_EQ(load_esri(name), L"unfed");
  EXPECT_EQ(load_simple(name), L"unfed");
}

}  // namespace
