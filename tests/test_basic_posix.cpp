// Files where names are bytes.

#include <gtest/gtest.h>

#include "basic/file.h"
#include "core_support.h"

namespace {

using core_test::get_file;
using core_test::Tenvironment;
using core_test::Ttemp_folder;

TEST(File_posix, full_disk_is_a_failure) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP();
  EXPECT_FALSE(zu::file::write_whole(L"/dev/full", "x"));
}

TEST(File_posix, name_is_spelled_in_the_systems_encoding_or_not_at_all) {
  Ttemp_folder const folder;
  {
    Tenvironment const system{{"LC_ALL", "ru_RU.CP1251"}};
    ASSERT_TRUE(zu::file::write_whole(folder.wide(L"\u0416.pj4"), "1251"));
    EXPECT_FALSE(zu::file::write_whole(folder.wide(L"\u00FC.pj4"), "x"));
    EXPECT_FALSE(zu::file::exists(folder.wide(L"\u00FC.pj4")));
  }
  {
    Tenvironment const system{{"LC_ALL", "ru_RU.UTF-8"}};
    ASSERT_TRUE(zu::file::write_whole(folder.wide(L"\u0416.pj4"), "utf"));
  }
  EXPECT_EQ(get_file(folder.file("\xC6.pj4")), "1251");
  EXPECT_EQ(get_file(folder.file("\xD0\x96.pj4")), "utf");
  EXPECT_EQ(folder.count(), 2U) << "no file under a made-up name";
}

}  // namespace
