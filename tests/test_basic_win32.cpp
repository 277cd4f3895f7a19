// Paths, files and folders as Windows has them.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <tuple>
#include <vector>

#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/session.h"
#include "core_support.h"

namespace {

namespace files = zu::file_system;
using core_test::get_file;
using core_test::put_file;
using core_test::Ttemp_folder;

// The place of the file on the volume; a new file has another one.
std::uint64_t place_of(std::wstring const& name) {
  auto* const file = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  BY_HANDLE_FILE_INFORMATION status{};
  EXPECT_NE(GetFileInformationByHandle(file, &status), 0);
  CloseHandle(file);
  return (std::uint64_t{status.nFileIndexHigh} << 32U) | status.nFileIndexLow;
}

TEST(File_win32, saving_puts_a_new_file_in_the_place_of_one_with_nothing_special) {
  Ttemp_folder const folder;
  std::wstring const name = folder.wide(L"f");
  put_file(folder.file("f"), "old");
  auto const before = place_of(name);
  EXPECT_TRUE(zu::file::write_whole(name, "new"));
  EXPECT_EQ(get_file(folder.file("f")), "new");
  auto const after = place_of(name);
  EXPECT_NE(after, before);
  // A file with two names stays the same file; so does a file that is being read.
  ASSERT_NE(CreateHardLinkW(folder.wide(L"g").c_str(), name.c_str(), nullptr), 0);
  EXPECT_TRUE(zu::file::write_whole(name, "newer"));
  EXPECT_EQ(get_file(folder.file("g")), "newer");
  std::filesystem::remove(folder.file("g"));
  auto* const reader = CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(reader, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(zu::file::write_whole(name, "newest"));
  CloseHandle(reader);
  EXPECT_EQ(get_file(folder.file("f")), "newest");
  EXPECT_EQ(place_of(name), after);
  EXPECT_EQ(folder.count(), 1U);
}

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
  EXPECT_EQ(zu::session::user_name(), std::wstring(_wgetenv(L"USERNAME")));
  EXPECT_EQ(zu::session::computer_name(), std::wstring(_wgetenv(L"COMPUTERNAME")));
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
