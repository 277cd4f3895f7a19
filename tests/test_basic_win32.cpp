// Paths, files and folders as Windows has them; a program can keep others from a file.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <tuple>
#include <vector>

#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/session.h"
#include "core_support.h"
#include "file_holder_win32.h"

namespace {

namespace files = zu::file_system;
using core_test::get_file;
using core_test::pauses_of;
using core_test::put_file;
using core_test::Tfile_holder;
using core_test::Ttemp_folder;

// 20 attempts in all.
std::vector<unsigned> const all_pauses(19, 1);

// The tests of definition files have files that become free in time.
TEST(Held_file_win32, is_given_up_after_20_attempts) {
  Ttemp_folder const folder;
  put_file(folder.file("f"), "held");
  for (auto const sharing : {Tfile_holder::alone, Tfile_holder::writing}) {
    Tfile_holder holder(folder.file("f"), sharing);
    EXPECT_EQ(pauses_of([&] { EXPECT_FALSE(zu::file::read_whole(folder.wide(L"f"))); }),
              all_pauses);
    EXPECT_EQ(pauses_of([&] { EXPECT_FALSE(zu::file::write_whole(folder.wide(L"f"), "new")); }),
              all_pauses);
    holder.let_go();
    EXPECT_EQ(pauses_of([&] { EXPECT_EQ(zu::file::read_whole(folder.wide(L"f")), "held"); }),
              std::vector<unsigned>());
  }
  // A program that reads and lets others read only prevents writing.
  Tfile_holder holder(folder.file("f"), Tfile_holder::reading);
  EXPECT_EQ(zu::file::read_whole(folder.wide(L"f")), "held");
  EXPECT_FALSE(zu::file::write_whole(folder.wide(L"f"), "new"));
  holder.let_go();
  EXPECT_TRUE(zu::file::write_whole(folder.wide(L"f"), "new"));
  EXPECT_EQ(get_file(folder.file("f")), "new");
}

TEST(Held_file_win32, other_errors_are_final) {
  Ttemp_folder const folder;
  EXPECT_EQ(pauses_of([&] {
              EXPECT_FALSE(zu::file::read_whole(folder.wide(L"missing")));
              EXPECT_FALSE(zu::file::read_whole(folder.wide(L"")));
              EXPECT_FALSE(zu::file::write_whole(folder.wide(L"no/f"), "x"));
              EXPECT_FALSE(zu::file::write_whole(folder.wide(L"a<b"), "x"));
            }),
            std::vector<unsigned>());
  EXPECT_EQ(folder.count(), 0U);
}

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

TEST(File_win32, name_may_have_letters_of_any_script) {
  Ttemp_folder const folder;
  std::size_t count = 0;
  for (wchar_t const* letters : {L"\u0416", L"\u00FC", L"\u0101", L"\u4E2D\u6587", L"\U0001F600"}) {
    std::wstring const name = folder.wide(letters);
    ASSERT_TRUE(zu::file::write_whole(name, "whole"));
    EXPECT_EQ(folder.count(), ++count) << "not under the name of another";
    EXPECT_TRUE(std::filesystem::exists(name) && zu::file::exists(name));
    EXPECT_EQ(zu::file::read_whole(name), "whole");
    EXPECT_TRUE(zu::file::open(name, "rb+"));
  }
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
