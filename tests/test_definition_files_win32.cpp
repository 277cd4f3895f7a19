// Definition files by names that the system's code page cannot spell: the plain
// form is opened by its wide name, the INI form by the narrow one.

#include <gtest/gtest.h>

#include <filesystem>

#include "core_support.h"
#include "interchange/add_file.h"
#include "interchange/zu_pj4.h"
#include "text/string_adapter.h"

namespace {

std::wstring loaded(std::wstring const& name) {
  std::wstring text = L"unfed";
  Tzu_std_wstring_adapter target(&text);
  zu::string_adp const adapter(target);
  zu_pj4_load_simple_w(name.c_str(), adapter.get());
  return text;
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

}  // namespace
