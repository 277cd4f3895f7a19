// Paths, files and folders as a whole, properties, and what a program tells its
// user.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "basic/env.h"
#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/prp_val.h"
#include "basic/session.h"
#include "core_support.h"

namespace {

namespace fs = std::filesystem;
namespace files = zu::file_system;
using core_test::put_file;
using core_test::read_file;
using core_test::recorded;
using core_test::Ttemp_folder;
using names = std::vector<std::wstring>;

TEST(Path, parts) {
  struct Tcase {
    wchar_t const* path;
    wchar_t const* folder;
    wchar_t const* stem;
    wchar_t const* extension;
  };
  std::vector<Tcase> const cases{{L"/a.b/c.txt", L"/a.b/", L"c", L".txt"},
                                 {L"/a.b/c", L"/a.b/", L"c", L""},
                                 {L"c.pj4.bak", L"", L"c.pj4", L".bak"},
                                 {L"/c.", L"/", L"c", L"."},
                                 {L"", L"", L"", L""},
                                 {L"/a/", L"/a/", L"", L""}};
  for (auto const& c : cases) {
    std::wstring const name = std::wstring(c.stem) + c.extension;
    EXPECT_EQ(zu::path::folder_of(c.path), c.folder) << c.path;
    EXPECT_EQ(zu::path::file_name_of(c.path), name) << c.path;
    EXPECT_EQ(zu::path::stem_of(c.path), c.stem) << c.path;
    EXPECT_EQ(zu::path::extension_of(c.path), c.extension) << c.path;
    EXPECT_EQ(recorded(zu::path::replace_extension(c.path, L".prj")),
              std::wstring(c.folder) + c.stem + L".prj");
  }
}

TEST(Path, joined_and_full_lead_to_the_same_file) {
  Ttemp_folder const folder;
  ASSERT_TRUE(files::make_folders(folder.wide(L"in")));
  put_file(folder.file("in/f"), "x");
  std::wstring const file = folder.wide(L"in/f");
  EXPECT_EQ(zu::path::join(L"", L"f"), L"f");
  EXPECT_EQ(zu::path::join(L"/a", file), file) << "an absolute name";
  EXPECT_EQ(zu::path::join(L"a/", L"f"), L"a/f");
  fs::path const before = fs::current_path();
  fs::current_path(folder.file("in"));
  std::wstring const full = zu::path::make_full(L"f");
  std::wstring const current = fs::current_path().wstring();
  fs::current_path(before);
  EXPECT_EQ(full, zu::path::join(current, L"f"));
  EXPECT_TRUE(fs::equivalent(full, file));
  EXPECT_TRUE(fs::equivalent(zu::path::join(folder.wide(L"in"), L"f"), file));
  EXPECT_TRUE(zu::path::is_absolute(full));
  EXPECT_FALSE(zu::path::is_absolute(L"in/f"));
  EXPECT_EQ(zu::path::make_full(L""), L"");
  EXPECT_TRUE(zu::path::to_native(std::wstring(L"f\0g", 3)).empty()) << "another file";
}

TEST(File_system, attributes_are_what_the_standard_library_says) {
  Ttemp_folder const folder;
  std::wstring const name = folder.wide(L"f");
  put_file(folder.file("f"), "12345");
  using namespace std::chrono_literals;
  // Whole seconds, which every file system keeps: before, at and after 1970's
  // end of 32 bits.
  for (auto const time : {std::chrono::sys_seconds(1s), std::chrono::sys_seconds(1700000000s),
                          std::chrono::sys_seconds(4200000000s)}) {
    fs::last_write_time(folder.file("f"), std::chrono::file_clock::from_sys(time));
    auto const found = files::get_attributes(name);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->modified, time);
    EXPECT_EQ(found->size, 5U);
    EXPECT_FALSE(found->is_folder || found->is_read_only || found->is_hidden);
  }
  auto const is_writable = [&] {
    return (fs::status(folder.file("f")).permissions() & fs::perms::owner_write) != fs::perms::none;
  };
  for (bool const read_only : {true, true, false}) {
    ASSERT_TRUE(files::set_read_only(name, read_only));
    EXPECT_EQ(files::get_attributes(name)->is_read_only, read_only);
    EXPECT_EQ(is_writable(), !read_only);
  }
  EXPECT_TRUE(files::is_folder(folder.wide(L"")));
  EXPECT_EQ(files::get_attributes(folder.wide(L""))->size, 0U);
  EXPECT_FALSE(files::is_folder(name));
  EXPECT_FALSE(files::get_attributes(folder.wide(L"missing")));
  EXPECT_FALSE(files::get_attributes(L""));
  EXPECT_FALSE(files::set_read_only(folder.wide(L"missing"), true));
}

TEST(File_system, copies_and_moves) {
  Ttemp_folder const folder;
  std::string const content("a\0\r\n\x1A\xFF", 6);
  put_file(folder.file("from"), content);
  put_file(folder.file("old"), std::string(70000, 'x'));
  EXPECT_TRUE(files::copy_file(folder.wide(L"from"), folder.wide(L"new")));
  EXPECT_TRUE(files::copy_file(folder.wide(L"from"), folder.wide(L"old")));
  EXPECT_TRUE(files::copy_file(folder.wide(L"old"), folder.wide(L"old"))) << "onto itself";
  EXPECT_EQ(read_file(folder.file("new")), content);
  EXPECT_EQ(read_file(folder.file("old")), content);
  EXPECT_TRUE(files::set_read_only(folder.wide(L"from"), true));
  EXPECT_TRUE(files::copy_file(folder.wide(L"from"), folder.wide(L"read only")));
  EXPECT_TRUE(files::get_attributes(folder.wide(L"read only"))->is_read_only);
  EXPECT_TRUE(files::move(folder.wide(L"read only"), folder.wide(L"new")));
  EXPECT_TRUE(files::get_attributes(folder.wide(L"new"))->is_read_only);
  EXPECT_FALSE(zu::file::exists(folder.wide(L"read only")));

  fs::create_directory(folder.file("sub"));
  EXPECT_TRUE(files::move(folder.wide(L"sub"), folder.wide(L"dir"))) << "a folder";
  fs::create_directory(folder.file("empty"));
  struct Tcase {
    wchar_t const* from;
    wchar_t const* to;
  };
  // What fails leaves everything as it was, and nothing half-made.
  auto const count = folder.count();
  for (auto const& c : std::vector<Tcase>{{L"missing", L"old"},
                                          {L"old", L"new"},
                                          {L"missing", L"made"},
                                          {L"from", L"dir"},
                                          {L"from", L"no/f"},
                                          {L"dir", L"empty"},
                                          {L"dir", L"old"}}) {
    EXPECT_FALSE(files::copy_file(folder.wide(c.from), folder.wide(c.to))) << c.from << c.to;
    EXPECT_FALSE(files::move(folder.wide(c.from), folder.wide(c.to))) << c.from << c.to;
  }
  EXPECT_FALSE(files::copy_file(folder.wide(L"dir"), folder.wide(L"made"))) << "a folder";
  EXPECT_FALSE(files::copy_file(folder.wide(L"from"), L""));
  EXPECT_EQ(folder.count(), count);
  EXPECT_EQ(read_file(folder.file("old")), content);
  for (auto const* name : {L"from", L"new"})
    EXPECT_TRUE(files::set_read_only(folder.wide(name), false));
}

TEST(File_system, makes_and_removes) {
  Ttemp_folder const folder;
  EXPECT_TRUE(files::make_folders(folder.wide(L"a/b/c")));
  EXPECT_TRUE(files::make_folders(folder.wide(L"a/b/c/"))) << "there already";
  EXPECT_TRUE(fs::is_directory(folder.file("a/b/c")));
  put_file(folder.file("a/f"), "");
  EXPECT_FALSE(files::make_folders(folder.wide(L"a/f")));
  EXPECT_FALSE(files::make_folders(folder.wide(L"a/f/g")));
  EXPECT_FALSE(files::make_folders(L""));
  EXPECT_FALSE(files::remove_folder(folder.wide(L"a"))) << "not empty";
  EXPECT_FALSE(files::remove_folder(folder.wide(L"a/f")));
  EXPECT_FALSE(files::remove_file(folder.wide(L"a/b")));
  EXPECT_TRUE(files::remove_file(folder.wide(L"a/f")));
  EXPECT_FALSE(files::remove_file(folder.wide(L"a/f"))) << "is gone";
  EXPECT_TRUE(files::remove_folder(folder.wide(L"a/b/c")));
  EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder.file("a")), {}), 1);
}

TEST(File_system, finds_files_by_pattern) {
  Ttemp_folder const folder;
  for (char const* name : {"b.pj4", "a.pj4", "a.pj4.bak", "ab.prj", "[a]", ".pj4"})
    put_file(folder.file(name), "");
  fs::create_directory(folder.file("z.pj4"));
  struct Tcase {
    wchar_t const* pattern;
    names found;
  };
  std::vector<Tcase> const cases{
      {L"*", {L".pj4", L"[a]", L"a.pj4", L"a.pj4.bak", L"ab.prj", L"b.pj4"}},
      {L"*.pj4", {L".pj4", L"a.pj4", L"b.pj4"}},
      {L"?.pj4", {L"a.pj4", L"b.pj4"}},
      {L"*p*4*", {L".pj4", L"a.pj4", L"a.pj4.bak", L"b.pj4"}},
      {L"a?.p**", {L"ab.prj"}},
      {L"a*a?", {L"a.pj4.bak"}},
      {L"[a]", {L"[a]"}},
      {L"*.*.*.*", {}},
      {L"", {}}};
  for (auto const& c : cases) EXPECT_EQ(files::find(folder.wide(L""), c.pattern), c.found);
  EXPECT_FALSE(files::find(folder.wide(L"missing"), L"*"));
  EXPECT_FALSE(files::find(folder.wide(L"a.pj4"), L"*"));

  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const system(page);
    put_file(folder.file(page.bytes), "");
    std::wstring const letters = page.letters;
    EXPECT_EQ(files::find(folder.wide(L""), L"*" + letters.substr(1)), names{letters});
    EXPECT_TRUE(files::remove_file(folder.wide(letters)));
  }
}

TEST(File_system, temporary_files_are_new) {
  Ttemp_folder const folder;
  auto const first = files::make_temporary_file(folder.wide(L""));
  auto const second = files::make_temporary_file(folder.wide(L""));
  ASSERT_TRUE(first && second);
  EXPECT_NE(*first, *second);
  EXPECT_EQ(folder.count(), 2U);
  EXPECT_EQ(zu::file::read_whole(*first), "");
  EXPECT_FALSE(files::make_temporary_file(folder.wide(L"missing")));
  // Under a name that every standard library knows: without a separator behind it.
  EXPECT_TRUE(fs::equivalent(zu::path::join(files::temporary_folder(), L"."),
                             fs::temp_directory_path() / "."));
}

TEST(Session, file_is_no_terminal) {
  Ttemp_folder const folder;
  EXPECT_FALSE(zu::session::is_terminal(zu::file::open(folder.wide(L"f"), "wb").get()));
}

TEST(Prp_val, says_what_its_text_says) {
  struct Tcase {
    char const* text = "";
    int as_int = 0;
    double as_dbl = 0;
    std::optional<bool> as_bool;
  };
  std::vector<Tcase> const cases{{" a = 1 ", 1, 1, true},
                                 {"a=0", 0, 0, false},
                                 {"a=-7.5e1x", -7, -75, {}},
                                 {"a=Yes", 42, 42, true},
                                 {"a=OFF", 42, 42, false},
                                 {"a=", 42, 42, {}},
                                 {"a=nonsense", 42, 42, {}},
                                 {"a", 42, 42, {}},
                                 {"a=99999999999", 42, 99999999999.0, {}}};
  for (auto const& c : cases) {
    auto const property = Tzu_prp_val::parse(c.text);
    EXPECT_EQ(property.get_name(), "a") << c.text;
    EXPECT_EQ(property.get_as_int(42), c.as_int) << c.text;
    EXPECT_EQ(property.get_as_dbl(42), c.as_dbl) << c.text;
    for (bool const other : {false, true})
      EXPECT_EQ(property.get_as_bool(other), c.as_bool.value_or(other)) << c.text;
  }
}

TEST(Prp_val, is_written_as_it_is_read) {
  Tzu_prp_val property("a", "b=c");
  EXPECT_EQ(recorded(property.get_text()), "a=b=c");
  EXPECT_EQ(Tzu_prp_val::parse("x: y", ':').get_text(), "x=y");
  property.set_name("k");
  property.set_as_dbl(-5811057.628);
  EXPECT_EQ(recorded(property.get_text()), "k=-5811057.628");
  property.set_as_int(-37);
  EXPECT_EQ(property.get_text(':'), "k:-37");
  property.set_as_bool(true);
  EXPECT_TRUE(property.get_as_bool());
}

// Each of 12 parts of a work, told twice, with an error behind the sixth.
void work(Tzu_env& env) {
  env.message("starts");
  for (std::uint64_t done = 0; done <= 12; ++done) {
    env.wait(done, 12, "convert");
    env.wait(done, 12, "convert");
    if (done == 6) env.error("line 6");
  }
  env.finished("12 lines");
  env.debug("ends");
}

TEST(Env, writes_lines) {
  std::ostringstream out;
  Tzu_env_out env(out);
  work(env);
  EXPECT_EQ(recorded(out.str()),
            "Message: starts\nWait: 0% convert\nWait: 8% convert\nWait: 16% convert\n"
            "Wait: 25% convert\nWait: 33% convert\nWait: 41% convert\nWait: 50% convert\n"
            "Error: line 6\nWait: 58% convert\nWait: 66% convert\nWait: 75% convert\n"
            "Wait: 83% convert\nWait: 91% convert\nWait: 100% convert\n"
            "Finished: 12 lines\nDebug: ends\n");
}

TEST(Env, does_not_flood) {
  std::ostringstream out;
  Tzu_env_out env(out);
  for (std::uint64_t done = 0; done < 100000; ++done) env.wait(done, 0, "unknown");
  env.finished("");
  EXPECT_EQ(out.str(), "Wait: unknown\nFinished: \n");
  out.str("");
  constexpr std::uint64_t huge = UINT64_MAX;
  for (std::uint64_t part = 0; part < 1000; ++part) env.wait(huge / 1000 * part, huge, "x");
  env.wait(huge, 1, "x");
  std::string const text = out.str();
  EXPECT_EQ(std::ranges::count(text, '\n'), 101);
  EXPECT_TRUE(text.ends_with("Wait: 99% x\nWait: 100% x\n"));
}

TEST(Env, terminal_shows_a_bar_in_its_line) {
  std::ostringstream out;
  {
    Tzu_env_console env(out, true);
    env.wait(0, 2, "a");
    env.wait(1, 2, "a");
    env.error("e");
    env.wait(2, 2, "a");
    env.finished("a");
    env.finished("b");
    env.wait(1, 0, "c");
    env.wait(1, 3, "d");
  }
  EXPECT_EQ(recorded(out.str()),
            "\rWait: [....................]   0% a\rWait: [##########..........]  50% a\n"
            "Error: e\n\rWait: [####################] 100% a\nFinished: a\nFinished: b\n"
            "\rWait: [....................]      c\n\rWait: [######..............]  33% d\n");
}

TEST(Env, nobody_before_the_console_gets_no_progress) {
  std::ostringstream out;
  Tzu_env_console env(out, false);
  work(env);
  EXPECT_EQ(recorded(out.str()), "Message: starts\nError: line 6\nDebug: ends\n");
}

}  // namespace
