// Definition files by names that the system's code page cannot spell: the plain
// form is opened by its wide name, the INI form by the narrow one. And files that
// another program holds.

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "core_support.h"
#include "fed_by.h"
#include "file_holder_win32.h"
#include "interchange/add_file.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

std::wstring loaded(std::wstring const& name) {
  return core_test::fed_by(
      [&](Izu_string_adp* adapter) { zu_pj4_load_simple_w(name.c_str(), adapter); });
}

std::wstring loaded_esri(std::wstring const& name) {
  return core_test::fed_by(
      [&](Izu_string_adp* adapter) { zu_pj4_import_esri(name.c_str(), adapter); });
}

TEST(Definition_file_win32, plain_form_has_any_name) {
  core_test::Ttemp_folder const folder;
  core_test::put_file(folder.file("ini"), "[projection]\npj4=+proj=utm\n");
  std::size_t count = 1;
  for (auto const& page : core_test::system_pages()) {
    for (wchar_t const* letter : page.foreign) {
      std::wstring const name = folder.wide(letter);
      EXPECT_TRUE(Tzu_add_file::save_pj4_mgs(name, L"+proj=merc +lon_0=1"));
      EXPECT_TRUE(std::filesystem::exists(name));
      EXPECT_EQ(loaded(name), L"+proj=merc +lon_0=1");
      EXPECT_EQ(folder.count(), ++count);
      std::filesystem::remove(name);
      std::filesystem::copy_file(folder.file("ini"), name);
      EXPECT_EQ(loaded(name), L"unfed");
    }
  }
}

TEST(Definition_file_win32, esri_form_waits_for_who_holds_it_for_a_moment) {
  core_test::Ttemp_folder const folder;
  std::string const narrow = folder.file("f.prj");
  std::wstring const name = folder.wide(L"f.prj");
  constexpr wchar_t const* before = L"+proj=longlat +datum=WGS84 +no_defs";
  constexpr wchar_t const* after = L"+proj=merc +lon_0=37 +datum=WGS84 +units=m +no_defs";
  constexpr std::size_t never = 0;
  for (std::size_t const let_go : {std::size_t{1}, std::size_t{19}, never}) {
    ASSERT_TRUE(zu_pj4_export_esri_prj(before, name.c_str()));
    std::string const held = core_test::read_file(narrow);
    bool const in_time = let_go != never;
    std::vector<unsigned> const expected(in_time ? let_go : 19, 1);
    auto const pauses = [&](std::function<void()> const& act) {
      core_test::Tfile_holder holder(narrow, core_test::Tfile_holder::alone);
      return core_test::pauses_of(act, [&](std::size_t number) {
        if (number == let_go) holder.let_go();
      });
    };
    EXPECT_EQ(pauses([&] { EXPECT_EQ(loaded_esri(name), in_time ? before : L"unfed"); }), expected);
    EXPECT_EQ(pauses([&] { EXPECT_EQ(zu_pj4_export_esri_prj(after, name.c_str()) != 0, in_time); }),
              expected);
    EXPECT_EQ(core_test::read_file(narrow) == held, !in_time);
    EXPECT_EQ(folder.count(), 1U);
  }
}

}  // namespace
