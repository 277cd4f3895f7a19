#include <gtest/gtest.h>

#include <vector>

#include "core_support.h"
#include "interchange/add_file.h"
#include "interchange/zu_pj4.h"
#include "text/string_adapter.h"

namespace {

using core_test::get_file;
using core_test::put_file;
using core_test::recorded;
using core_test::Tsystem_page;
using core_test::Ttemp_folder;

// What a load feeds; "unfed" when nothing.
template <class Load>
std::wstring fed_by(Load load) {
  std::wstring text = L"unfed";
  Tzu_std_wstring_adapter target(&text);
  zu::string_adp const adapter(target);
  load(adapter.get());
  return recorded(text);
}

std::wstring load_simple(std::wstring const& name) {
  return fed_by([&](Izu_string_adp* adapter) { zu_pj4_load_simple_w(name.c_str(), adapter); });
}

std::wstring load_plain(std::wstring const& name) {
  return fed_by([&](Izu_string_adp* adapter) {
    bool const loaded = Tzu_add_file::load_pj4_mgs(name, adapter);
    if (!loaded) zu_string_adp_feed(adapter, L"failed");
  });
}

TEST(Definition_file, both_forms_load) {
  Ttemp_folder const folder;
  struct Tcase {
    std::string content;
    wchar_t const* text;
  };
  std::vector<Tcase> const cases{
      {"[projection]\npj4=+proj=utm +zone=37\n", L"+proj=utm +zone=37"},
      {"; note\r\n[Other]\r\nPJ4=x\r\n[PROJECTION]\r\n Pj4 = +proj=merc \r\n", L"+proj=merc"},
      {"[projection]\npj4=hand made\n", L"hand made"},
      {"[projection]\npj4=\n", L""},
      {"[projection]\nother=1\n", L""},
      {"[projection]\npj4=+nadgrids=\xD0\x96\n", L"+nadgrids=\u0416"},
      {"[projection]\npj4=+init=epsg:4326\n", L"unfed"},
      {" \t\v\f\r\n+proj=merc +k=1 \r\n", L"+proj=merc +k=1"},
      {"+proj=merc\n[projection]\npj4=+proj=utm\n", L"+proj=merc\n[projection]\npj4=+proj=utm"},
      {std::string("+proj=merc\0+k=1", 15), L"+proj=merc"},
      {"+init=epsg:4326 +no_defs", L"unfed"}};
  for (auto const& c : cases) {
    put_file(folder.file("f.pj4"), c.content);
    EXPECT_EQ(load_simple(folder.wide(L"f.pj4")), c.text) << c.content;
  }
}

TEST(Definition_file, plain_form_begins_with_a_plus) {
  Ttemp_folder const folder;
  for (char const* content :
       {"proj=merc", "[projection]\npj4=+proj=utm\n", "", " \n", "\xEF\xBB\xBF+proj=merc"}) {
    put_file(folder.file("f.pj4"), content);
    EXPECT_EQ(load_plain(folder.wide(L"f.pj4")), L"failed") << content;
  }
  EXPECT_EQ(load_plain(folder.wide(L"missing.pj4")), L"failed");
  EXPECT_EQ(load_simple(folder.wide(L"missing.pj4")), L"unfed");
  EXPECT_EQ(load_simple(folder.wide(L"")), L"unfed") << "a folder";
}

TEST(Definition_file, saves_the_ini_form) {
  for (auto const& page : core_test::system_pages()) {
    Ttemp_folder const folder;
    Tsystem_page const system(page);
    std::wstring const name = folder.wide(page.letters);
    std::string const narrow = folder.file(page.bytes);
    std::wstring const grid = std::wstring(L"+nadgrids=") + page.letters;
    std::string const grid_bytes = std::string("+nadgrids=") + page.bytes;
    put_file(narrow, "+proj=longer than what comes, and replaced as a whole");
    zu_pj4_save_simple_w(name.c_str(), L"+proj=utm +zone=37 +no_defs");
    EXPECT_EQ(get_file(narrow), "[projection]\n\npj4=+proj=utm +zone=37 +no_defs\n");
    EXPECT_EQ(load_simple(name), L"+proj=utm +zone=37 +no_defs");
    zu_pj4_save_simple_w(name.c_str(), L"");
    EXPECT_EQ(load_simple(name), L"");
    // Written in the system's page, read as UTF-8.
    EXPECT_TRUE(Tzu_add_file::save_pj4_ini(name, grid));
    EXPECT_EQ(get_file(narrow), "[projection]\n\npj4=" + grid_bytes + "\n");
    EXPECT_EQ(load_simple(name).substr(0, 11), L"+nadgrids=\uFFFD");
    EXPECT_TRUE(Tzu_add_file::save_pj4_mgs(name, grid));
    EXPECT_EQ(get_file(narrow), grid_bytes);
    EXPECT_EQ(load_simple(name), grid);
    EXPECT_EQ(folder.count(), 1U) << page.encoding;
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
  Ttemp_folder const folder;
  EXPECT_FALSE(Tzu_add_file::save_pj4_ini(folder.wide(L"no/f.pj4"), L"+proj=merc"));
}

TEST(Definition_file, esri_files_are_refused) {
  Ttemp_folder const folder;
  put_file(folder.file("f.prj"), "PROJCS[\"x\"]");
  EXPECT_EQ(fed_by([&](Izu_string_adp* adapter) {
              EXPECT_FALSE(zu_pj4_import_esri(folder.wide(L"f.prj").c_str(), adapter));
            }),
            L"unfed");
  EXPECT_FALSE(zu_pj4_export_esri_prj(L"+proj=merc +datum=WGS84", folder.wide(L"f.prj").c_str()));
  EXPECT_EQ(get_file(folder.file("f.prj")), "PROJCS[\"x\"]");
}

}  // namespace
