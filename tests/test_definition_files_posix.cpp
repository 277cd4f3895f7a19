// Definition files where names are bytes of the system's code page.

#include <gtest/gtest.h>

#include "core_support.h"
#include "interchange/add_file.h"

namespace {

TEST(Definition_file_posix, plain_form_has_no_other_names_either) {
  for (auto const& page : core_test::system_pages()) {
    core_test::Ttemp_folder const folder;
    core_test::Tsystem_page const system(page);
    for (wchar_t const* letter : page.foreign)
      EXPECT_FALSE(Tzu_add_file::save_pj4_mgs(folder.wide(letter), L"+proj=merc")) << page.encoding;
    EXPECT_EQ(folder.count(), 0U);
  }
}

}  // namespace
