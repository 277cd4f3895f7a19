// Paths, files and folders as Windows has them.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <tuple>

#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/session.h"
#include "core_support.h"

namespace {

namespace files = zu::file_system;
using core_test::Ttemp_folder;

TEST(Path_win32, has_drives_and_two_separators) {
  EXPECT_EQ(zu::path::folder_of(LR"(C:\suite.d\bin\suite.exe)"), LR"(C:\suite.d\bin\)");
  EXPECT_EQ(zu::path::folder_of(L"C:suite.exe"), L"C:");
  EXPECT_EQ(zu::path::replace_extension(LR"(C:\a.b\c)", L".prj"), LR"(C:\a.b\c.prj)");
  using row = std::tuple<wchar_t const*, wchar_t const*, wchar_t const*, bool>;
  for (auto const& [folder, name, joined, is_absolute] :
       {row(LR"(C:\a)", L"f", LR"(C:\a\f)", true), row(LR"(C:\a\)", L"f", LR"(C:\a\f)", true),
        row(LR"(C:\a)", LR"(\f)", LR"(\f)", false), row(LR"(C:\a)", LR"(D:\f)", LR"(D:\f)", true),
        row(L"C:", L"f", L"C:f", false), row(LR"(\\host\share)", L"f", LR"(\\host\share\f)", true),
        row(L"", LR"(\f)", LR"(\f)", false)}) {
    EXPECT_EQ(zu::path::join(folder, name), joined);
    EXPECT_EQ(zu::path::is_absolute(joined), is_absolute) << joined;
  }
  EXPECT_EQ(zu::path::make_full(LR"(C:\a\..\b)"), LR"(C:\b)");
}

TEST(Session_win32, knows_user_and_computer_as_the_environment_does) {
  ASSERT_NE(_wgetenv(L"USERNAME"), nullptr);
  ASSERT_NE(_wgetenv(L"COMPUTERNAME"), nullptr);
  EXPECT_EQ(zu::session::user_name(), _wgetenv(L"USERNAME"));
  EXPECT_EQ(zu::session::computer_name(), _wgetenv(L"COMPUTERNAME"));
  zu::file::stream const null(std::fopen("NUL", "w"));
  EXPECT_FALSE(zu::session::is_terminal(null.get()));
}

TEST(Session_win32, takes_the_pipes_of_posix_shells_for_terminals) {
  using row = std::tuple<wchar_t const*, bool>;
  for (auto const& [name, is_terminal] :
       {row(LR"(\\.\pipe\msys-1888ae32e00d56aa-pty0-to-master)", true),
        row(LR"(\\.\pipe\cygwin-e022582115c10879-pty4-from-master)", true),
        row(LR"(\\.\pipe\msys-1888ae32e00d56aa-517-pipe-0x1)", false),
        row(LR"(\\.\pipe\other-1888ae32e00d56aa-pty0-to-master)", false)}) {
    HANDLE const server = CreateNamedPipeW(name, PIPE_ACCESS_DUPLEX, 0, 1, 512, 512, 0, nullptr);
    ASSERT_NE(server, INVALID_HANDLE_VALUE);
    zu::file::stream const stream(_wfopen(name, L"r+b"));
    ASSERT_TRUE(stream);
    EXPECT_EQ(zu::session::is_terminal(stream.get()), is_terminal) << name;
    CloseHandle(server);
  }
}

TEST(File_system_win32, case_does_not_count_and_attributes_do) {
  Ttemp_folder const folder;
  std::wstring const name = folder.wide(L"\u0416\u4E2D.PJ4");
  ASSERT_TRUE(zu::file::write_whole(name, "x"));
  EXPECT_EQ(files::find(folder.wide(L""), L"\u0436*.pj4"),
            std::vector<std::wstring>{L"\u0416\u4E2D.PJ4"});
  EXPECT_FALSE(files::get_attributes(name)->is_hidden);
  ASSERT_NE(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  EXPECT_TRUE(files::get_attributes(name)->is_hidden);
  ASSERT_TRUE(files::set_read_only(name, true));
  EXPECT_TRUE(files::get_attributes(name)->is_hidden) << "the others stay";
  EXPECT_FALSE(files::remove_file(name));
  EXPECT_TRUE(files::set_read_only(name, false));
  EXPECT_TRUE(files::make_folders(folder.wide(LR"(a\b\)")));
  EXPECT_TRUE(files::is_folder(folder.wide(LR"(a\b)")));
}

}  // namespace
