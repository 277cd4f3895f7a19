// Files where names are wide, and where a program can keep others from a file.

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "basic/file.h"
#include "core_support.h"
#include "file_holder_win32.h"

namespace {

using core_test::get_file;
using core_test::pauses_of;
using core_test::put_file;
using core_test::Tfile_holder;
using core_test::Ttemp_folder;

// 20 attempts in all.
std::vector<unsigned> const all_pauses(19, 1);

// Files that are let go in time are tested where definition files are.
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
  // Who reads and lets others read is in the way of writing alone.
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

// Where on the volume it is, which tells a new file from an old one.
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
  // One with two names stays one, and so does one that is being read.
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

}  // namespace
