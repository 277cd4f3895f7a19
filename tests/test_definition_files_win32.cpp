// Definition files by names that the system's code page cannot spell: the plain
// form is opened by its wide name, the INI form by the narrow one. And files that
// another program holds.

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

#include "basic/file.h"
#include "core_support.h"
#include "fed_by.h"
#include "interchange/add_file.h"

namespace core_test {

// Called in place of a wait of so many milliseconds.
std::function<void(unsigned)>& in_sleep() {
  static std::function<void(unsigned)> instance;
  return instance;
}

// Stands for the system's function in this program, under both of its names.
void WINAPI watched_sleep(DWORD milliseconds) __asm__("Sleep");
void WINAPI watched_sleep(DWORD milliseconds) {
  if (in_sleep()) {
    in_sleep()(milliseconds);
  } else {
    SleepEx(milliseconds, FALSE);
  }
}

}  // namespace core_test

// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier): the linker's name
extern "C" decltype(&Sleep) __imp_Sleep;
decltype(&Sleep) __imp_Sleep = &core_test::watched_sleep;

namespace {

using core_test::load_esri;
using core_test::load_simple;

TEST(Definition_file_win32, plain_form_has_any_name) {
  core_test::Ttemp_folder const folder;
  core_test::put_file(folder.file("ini"), "[projection]\npj4=+proj=utm\n");
  std::size_t count = 1;
  for (auto const& page : core_test::system_pages()) {
    for (wchar_t const* letter : page.foreign) {
      std::wstring const name = folder.wide(letter);
      EXPECT_TRUE(Tzu_add_file::save_pj4_mgs(name, L"+proj=merc +lon_0=1"));
      EXPECT_TRUE(std::filesystem::exists(name) && zu::file::exists(name));
      EXPECT_TRUE(zu::file::open(name, "rb+"));
      EXPECT_EQ(load_simple(name), L"+proj=merc +lon_0=1");
      EXPECT_EQ(folder.count(), ++count);
      std::filesystem::remove(name);
      std::filesystem::copy_file(folder.file("ini"), name);
      EXPECT_EQ(load_simple(name), L"unfed");
    }
  }
}

// A program holds the file until that wait, from 1, and lets others read and write it, or not.
// For the system it is the same whether this program or another one has it. Waits take no time
// here; these are their milliseconds.
std::vector<unsigned> waits_for(std::wstring const& name, DWORD access, DWORD sharing,
                                std::size_t let_go, std::function<void()> const& act) {
  HANDLE file = CreateFileW(name.c_str(), access, sharing, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  EXPECT_NE(file, INVALID_HANDLE_VALUE);
  std::vector<unsigned> waits;
  core_test::in_sleep() = [&](unsigned milliseconds) {
    waits.push_back(milliseconds);
    if (waits.size() == let_go) CloseHandle(std::exchange(file, nullptr));
  };
  act();
  core_test::in_sleep() = nullptr;
  if (file != nullptr) CloseHandle(file);
  return waits;
}

TEST(Definition_file_win32, waits_for_who_holds_it_for_a_moment) {
  core_test::Ttemp_folder const folder;
  std::string const narrow = folder.file("f.prj");
  std::wstring const name = folder.wide(L"f.prj");
  constexpr wchar_t const* before = L"+proj=longlat +datum=WGS84 +no_defs";
  constexpr wchar_t const* after = L"+proj=merc +lon_0=37 +datum=WGS84 +units=m +no_defs";
  std::vector<unsigned> const none;
  constexpr std::size_t never = 0;
  constexpr DWORD both = GENERIC_READ | GENERIC_WRITE;
  // Who writes and who reads, and lets others do the same, prevents what that spoils.
  struct Tholder {
    DWORD access;
    DWORD sharing;
    bool prevents_reading;
  };
  for (Tholder const& holder : {Tholder{both, 0, true},
                                {both, FILE_SHARE_READ | FILE_SHARE_WRITE, true},
                                {GENERIC_READ, FILE_SHARE_READ, false}}) {
    for (std::size_t const let_go : {std::size_t{1}, std::size_t{19}, never}) {
      ASSERT_TRUE(zu_pj4_export_esri_prj(before, name.c_str()));
      std::string const held = core_test::read_file(narrow);
      bool const in_time = let_go != never;
      std::vector<unsigned> const expected(in_time ? let_go : 19, 1);
      auto const waits = [&](std::function<void()> const& act) {
        return waits_for(name, holder.access, holder.sharing, let_go, act);
      };
      bool const is_read = in_time || !holder.prevents_reading;
      EXPECT_EQ(waits([&] { EXPECT_EQ(load_esri(name), is_read ? before : L"unfed"); }),
                holder.prevents_reading ? expected : none);
      EXPECT_EQ(
          waits([&] { EXPECT_EQ(zu_pj4_export_esri_prj(after, name.c_str()) != 0, in_time); }),
          expected);
      EXPECT_EQ(core_test::read_file(narrow) == held, !in_time);
      EXPECT_EQ(folder.count(), 1U);
    }
  }
  // Other errors are final.
  EXPECT_EQ(
      waits_for(name, both, 0, never,
                [&] {
                  EXPECT_EQ(load_esri(folder.wide(L"missing")), L"unfed");
                  EXPECT_EQ(load_esri(folder.wide(L"")), L"unfed");
                  for (wchar_t const* impossible : {L"no/f", L"a<b"})
                    EXPECT_FALSE(zu_pj4_export_esri_prj(before, folder.wide(impossible).c_str()));
                }),
      none);
}

}  // namespace
