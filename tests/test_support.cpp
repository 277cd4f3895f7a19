// Paths, files and folders as a whole, properties, and what a program tells its
// user.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tuple>

#include "basic/env.h"
#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/prp_val.h"
#include "core_support.h"

namespace {

namespace fs = std::filesystem;
namespace files = zu::file_system;
using core_test::put_file;
using core_test::read_file;
using core_test::recorded;
using core_test::Ttemp_folder;
using names = std::vector<std::wstring>;

TEST(Path, joined_and_full_lead_to_the_same_file) {
  Ttemp_folder const folder;
  put_file(folder.file("f"), "x");
  EXPECT_EQ(zu::path::join(L"", L"f"), L"f");
  EXPECT_EQ(zu::path::join(L"/a", folder.wide(L"f")), folder.wide(L"f")) << "an absolute name";
  fs::path const before = fs::current_path();
  fs::current_path(folder.file(""));
  std::wstring const full = zu::path::make_full(L"f");
  fs::current_path(before);
  EXPECT_TRUE(fs::equivalent(full, folder.wide(L"f")));
  EXPECT_TRUE(zu::path::is_absolute(full) && !zu::path::is_absolute(L"in/f"));
  EXPECT_EQ(zu::path::make_full(L""), L"");
  EXPECT_TRUE(zu::path::to_native(std::wstring(L"f\0g", 3)).empty()) << "another file";
}

TEST(File_system, attributes_are_what_the_standard_library_says) {
  Ttemp_folder const folder;
  std::wstring const name = folder.wide(L"f");
  put_file(folder.file("f"), "12345");
  using namespace std::chrono_literals;
  // Whole seconds, which every file system keeps: before and after 32 bits end.
  for (auto const time : {std::chrono::sys_seconds(1s), std::chrono::sys_seconds(4200000000s)}) {
    fs::last_write_time(folder.file("f"), std::chrono::file_clock::from_sys(time));
    auto const found = files::get_attributes(name);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->modified, time);
    EXPECT_EQ(found->size, 5U);
    EXPECT_FALSE(found->is_folder || found->is_read_only || found->is_hidden);
  }
  for (bool const read_only : {true, false}) {
    ASSERT_TRUE(files::set_read_only(name, read_only));
    EXPECT_EQ(files::get_attributes(name)->is_read_only, read_only);
    auto const writing = fs::status(folder.file("f")).permissions() & fs::perms::owner_write;
    EXPECT_EQ(writing == fs::perms::none, read_only);
  }
  EXPECT_TRUE(files::is_folder(folder.wide(L"")) && !files::is_folder(name));
  EXPECT_EQ(files::get_attributes(folder.wide(L""))->size, 0U);
  EXPECT_FALSE(files::get_attributes(L""));
  EXPECT_FALSE(files::set_read_only(folder.wide(L"missing"), true));
}

TEST(File_system, copies_and_moves) {
  Ttemp_folder const folder;
  std::string const content("a\0\r\n\x1A\xFF", 6);
  put_file(folder.file("from"), content);
  put_file(folder.file("old"), std::string(70000, 'x'));
  EXPECT_TRUE(files::copy_file(folder.wide(L"from"), folder.wide(L"old")));
  EXPECT_TRUE(files::copy_file(folder.wide(L"old"), folder.wide(L"old"))) << "onto itself";
  EXPECT_EQ(read_file(folder.file("old")), content);
  EXPECT_TRUE(files::set_read_only(folder.wide(L"from"), true));
  EXPECT_TRUE(files::copy_file(folder.wide(L"from"), folder.wide(L"read only")));
  EXPECT_TRUE(files::move(folder.wide(L"read only"), folder.wide(L"new")));
  EXPECT_EQ(read_file(folder.file("new")), content);
  EXPECT_TRUE(files::get_attributes(folder.wide(L"new"))->is_read_only);
  EXPECT_FALSE(zu::file::exists(folder.wide(L"read only")));

  fs::create_directory(folder.file("sub"));
  EXPECT_TRUE(files::move(folder.wide(L"sub"), folder.wide(L"dir"))) << "a folder";
  fs::create_directory(folder.file("empty"));
  // What fails leaves everything as it was, and nothing half-made.
  auto const count = folder.count();
  using names_of = std::pair<wchar_t const*, wchar_t const*>;
  for (auto const& [from, to] :
       {names_of(L"missing", L"old"), names_of(L"old", L"new"), names_of(L"missing", L"made"),
        names_of(L"from", L"dir"), names_of(L"from", L"no/f"), names_of(L"dir", L"empty"),
        names_of(L"dir", L"old")}) {
    EXPECT_FALSE(files::copy_file(folder.wide(from), folder.wide(to))) << from << to;
    EXPECT_FALSE(files::move(folder.wide(from), folder.wide(to))) << from << to;
  }
  EXPECT_FALSE(files::copy_file(folder.wide(L"dir"), folder.wide(L"made"))) << "a folder";
  EXPECT_EQ(folder.count(), count);
  EXPECT_EQ(read_file(folder.file("old")), content);
  for (auto const* name : {L"from", L"new"})
    EXPECT_TRUE(files::set_read_only(folder.wide(name), false));
}

TEST(File_system, makes_and_removes) {
  Ttemp_folder const folder;
  EXPECT_TRUE(files::make_folders(folder.wide(L"a/b/c")));
  EXPECT_TRUE(files::make_folders(folder.wide(L"a/b/c/"))) << "there already";
  put_file(folder.file("a/f"), "");
  EXPECT_FALSE(files::make_folders(folder.wide(L"a/f/g")));
  EXPECT_FALSE(files::make_folders(L""));
  EXPECT_FALSE(files::remove_file(folder.wide(L"a/b")));
  EXPECT_TRUE(files::remove_file(folder.wide(L"a/f")));
  EXPECT_FALSE(files::remove_file(folder.wide(L"a/f"))) << "not there";
  EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder.file("a")), {}), 2);
}

TEST(File_system, temporary_files_are_new) {
  Ttemp_folder const folder;
  auto const first = files::make_temporary_file(folder.wide(L""));
  auto const second = files::make_temporary_file(folder.wide(L""));
  ASSERT_TRUE(first && second);
  EXPECT_EQ(folder.count(), 2U);
  EXPECT_EQ(zu::file::read_whole(*first), "");
  EXPECT_FALSE(files::make_temporary_file(folder.wide(L"missing")));
}

TEST(Prp_val, is_written_as_it_is_read) {
  Tzu_prp_val property("a", "b=c");
  EXPECT_EQ(property.get_text(), "a=b=c");
  property.set_name("k");
  property.set_as_dbl(-5811057.628);
  EXPECT_EQ(recorded(property.get_text()), "k=-5811057.628");
  property.set_as_int(-37);
  EXPECT_EQ(property.get_text(':'), "k:-37");
  property.set_as_bool(true);
  EXPECT_TRUE(property.get_as_bool());
}

// What a terminal and a file get of it is tested by way of the command-line program.
TEST(Env, writes_lines) {
  std::ostringstream out;
  Tzu_env_out env(out);
  env.message("starts");
  for (std::uint64_t const done : {0U, 0U, 1U, 1U, 2U}) {
    env.wait(done, 2, "convert");
    if (done == 2) env.error("line 6");
  }
  env.finished("12 lines");
  env.debug("ends");
  EXPECT_EQ(recorded(out.str()),
            "Message: starts\nWait: 0% convert\nWait: 50% convert\nWait: 100% convert\n"
            "Error: line 6\nFinished: 12 lines\nDebug: ends\n");
}

TEST(Env, does_not_flood) {
  std::ostringstream out;
  Tzu_env_out env(out);
  for (std::uint64_t done = 0; done < 1000; ++done) env.wait(done, 0, "unknown");
  constexpr std::uint64_t huge = UINT64_MAX;
  for (std::uint64_t part = 0; part < 1000; ++part) env.wait(huge / 1000 * part, huge, "x");
  env.wait(huge, 1, "x");
  std::string const text = out.str();
  EXPECT_EQ(std::ranges::count(text, '\n'), 102);
  EXPECT_TRUE(text.ends_with("Wait: 99% x\nWait: 100% x\n"));
}

}  // namespace
