// Files, folders and terminals as POSIX has them.

#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): POSIX's own

#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/session.h"
#include "core_support.h"

namespace {

namespace fs = std::filesystem;
namespace files = zu::file_system;
using core_test::put_file;
using core_test::Tenvironment;
using core_test::Ttemp_folder;

TEST(Session_posix, knows_user_and_computer_as_the_systems_programs_do) {
  auto const told = [](char const* program, char const* option) {
    std::string const text = core_test::run({program, {option}, "", false}).out;
    return text.substr(0, text.find_first_of(".\n"));
  };
  auto const user = zu::session::user_name();
  EXPECT_EQ(zu::path::to_native(user), told("/usr/bin/id", "-un"));
  EXPECT_EQ(zu::path::to_native(zu::session::computer_name()), told("/usr/bin/uname", "-n"));
}

TEST(Session_posix, knows_a_terminal) {
  auto const is_terminal = [](char const* name) {
    zu::file::stream const stream(std::fopen(name, "r+"));
    return stream && zu::session::is_terminal(stream.get());
  };
  zu::file::stream const master(std::fopen("/dev/ptmx", "r+"));
  if (!master) GTEST_SKIP() << "no terminals here";
  ASSERT_EQ(grantpt(fileno(master.get())), 0);
  ASSERT_EQ(unlockpt(fileno(master.get())), 0);
  EXPECT_TRUE(is_terminal(ptsname(fileno(master.get()))));
  EXPECT_FALSE(is_terminal("/dev/null"));
}

TEST(File_system_posix, names_are_spelled_in_the_systems_encoding_or_not_at_all) {
  Ttemp_folder const folder;
  Tenvironment const system{{"LC_ALL", "ru_RU.CP1251"}};
  put_file(folder.file("f"), "x");
  std::wstring const foreign = folder.wide(L"\u00FC");
  EXPECT_FALSE(files::copy_file(folder.wide(L"f"), foreign));
  EXPECT_FALSE(files::move(folder.wide(L"f"), foreign));
  EXPECT_FALSE(files::make_folders(foreign));
  EXPECT_FALSE(files::make_temporary_file(foreign));
  EXPECT_EQ(folder.count(), 1U);
  // A byte that is no character of the encoding.
  Tenvironment const utf8{{"LC_ALL", "C.UTF-8"}};
  put_file(folder.file("\xC6"), "");
  EXPECT_EQ(files::find(folder.wide(L""), L"*"), std::vector<std::wstring>{L"f"});
}

TEST(File_system_posix, case_point_and_permissions_count) {
  Ttemp_folder const folder;
  put_file(folder.file(".F"), "x");
  EXPECT_TRUE(files::get_attributes(folder.wide(L".F"))->is_hidden);
  EXPECT_EQ(files::find(folder.wide(L""), L".f"), std::vector<std::wstring>());
  fs::permissions(folder.file(".F"), static_cast<fs::perms>(0640));
  ASSERT_TRUE(files::copy_file(folder.wide(L".F"), folder.wide(L"g")));
  EXPECT_EQ(fs::status(folder.file("g")).permissions(), static_cast<fs::perms>(0640));
}

TEST(File_system_posix, moves_a_file_to_another_volume) {
  Ttemp_folder const folder;
  std::string const other = "/dev/shm";
  if (!fs::exists(other)) GTEST_SKIP();
  Tenvironment const volume{{"TMPDIR", other.c_str()}};
  Ttemp_folder const away;
  put_file(folder.file("f"), "new");
  put_file(away.file("f"), "old");
  EXPECT_TRUE(files::move(folder.wide(L"f"), away.wide(L"f")));
  EXPECT_EQ(core_test::read_file(away.file("f")), "new");
  EXPECT_EQ(folder.count() + away.count(), 1U);
}

}  // namespace
