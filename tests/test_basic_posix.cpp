// Files and folders as POSIX has them.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <thread>

#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/path.h"
#include "basic/session.h"
#include "core_support.h"

namespace {

namespace fs = std::filesystem;
namespace files = zu::file_system;
using core_test::put_file;
using core_test::read_file;
using core_test::Tenvironment;
using core_test::Ttemp_folder;

// Runs the act in another process and gives its result.
template <class Act>
int apart(Act act) {
  pid_t const child = fork();
  if (child == 0) _exit(act());
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

constexpr std::size_t long_size = 200000;

// Another process, which saves the two contents in turn for ever.
pid_t start_saving(std::wstring const& name) {
  pid_t const saver = fork();
  if (saver != 0) return saver;
  for (;;) {
    for (char const content : {'a', 'b'})
      if (!zu::file::write_whole(name, std::string(long_size, content))) _exit(1);
  }
}

bool is_whole(std::string const& content) {
  return content == std::string(long_size, 'a') || content == std::string(long_size, 'b');
}

// The savers die at random moments; the file must be whole each time.
TEST(File_posix, savers_that_die_and_savers_at_once_leave_one_content_whole) {
  Ttemp_folder const folder;
  std::mt19937 random(5);  // NOLINT(cert-msc51-cpp): repeatable
  put_file(folder.file("f"), std::string(long_size, 'a'));
  for (int i = 0; i < 100; ++i) {
    std::array<pid_t, 2> const savers{start_saving(folder.wide(L"f")),
                                      start_saving(folder.wide(L"f"))};
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 10000));
    EXPECT_TRUE(is_whole(read_file(folder.file("f")))) << "to who reads meanwhile";
    for (pid_t const saver : savers) {
      int status = 0;
      ASSERT_EQ(kill(saver, SIGKILL), 0);
      ASSERT_EQ(waitpid(saver, &status, 0), saver);
      EXPECT_TRUE(WIFSIGNALED(status)) << "a save failed";
    }
    ASSERT_TRUE(is_whole(read_file(folder.file("f")))) << i;
  }
}

TEST(File_posix, a_save_without_room_leaves_the_old_file_and_no_other) {
  Ttemp_folder const folder;
  put_file(folder.file("old"), "old");
  std::string const content(long_size, 'a');
  EXPECT_FALSE(apart([&] {
    // As on a full disk: nothing is written beyond the limit.
    rlimit const limit{1000, 1000};
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    setrlimit(RLIMIT_FSIZE, &limit);
    return zu::file::write_whole(folder.wide(L"old"), content) ||
           zu::file::write_whole(folder.wide(L"new"), content);
  }));
  EXPECT_EQ(read_file(folder.file("old")), "old");
  EXPECT_EQ(folder.count(), 1U);
  // The device takes no byte. No user may make a file among a process's own files, or read its
  // memory.
  for (wchar_t const* name : {L"/dev/full", L"/proc/self/f"})
    EXPECT_FALSE(zu::file::write_whole(name, "x")) << name;
  EXPECT_FALSE(zu::file::read_whole(L"/proc/self/mem"));
}

// Links, permissions and names stay what they were.
TEST(File_posix, saving_changes_the_content_alone) {
  Ttemp_folder const folder;
  for (char const* name : {"plain", "first name"}) put_file(folder.file(name), "old");
  fs::permissions(folder.file("plain"), static_cast<fs::perms>(0640));
  fs::create_symlink("plain", folder.file("link"));
  fs::create_symlink("late", folder.file("to nothing"));
  fs::create_hard_link(folder.file("first name"), folder.file("second name"));
  mode_t const mask = umask(027);
  for (wchar_t const* name : {L"plain", L"link", L"to nothing", L"second name", L"fresh"})
    EXPECT_TRUE(zu::file::write_whole(folder.wide(name), "new")) << name;
  umask(mask);
  EXPECT_EQ(fs::read_symlink(folder.file("link")), "plain");
  EXPECT_EQ(fs::read_symlink(folder.file("to nothing")), "late");
  for (char const* name : {"plain", "late", "first name", "fresh"})
    EXPECT_EQ(read_file(folder.file(name)), "new") << name;
  for (char const* name : {"plain", "fresh"})
    EXPECT_EQ(fs::status(folder.file(name)).permissions(), static_cast<fs::perms>(0640)) << name;
  EXPECT_EQ(folder.count(), 7U) << "and nothing beside them";
}

// As an ordinary user: permissions do not stop the superuser.
TEST(File_posix, what_may_not_be_written_is_not_and_a_closed_folder_is_no_hindrance) {
  Ttemp_folder const folder;
  for (char const* name : {"read only", "open"}) put_file(folder.file(name), "old");
  fs::permissions(folder.file("read only"), static_cast<fs::perms>(0444));
  fs::permissions(folder.file("open"), static_cast<fs::perms>(0666));
  fs::create_directory(folder.file("gone"));
  fs::permissions(folder.file(""), static_cast<fs::perms>(0555));
  int const written = apart([&] {
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && setuid(nobody) != 0) return 64;
    int result = 0;
    int bit = 1;
    for (auto const& name : {folder.wide(L"read only"), folder.wide(L"new"), folder.wide(L"gone/f"),
                             folder.wide(std::wstring(300, L'x')), folder.wide(L"open")}) {
      if (zu::file::write_whole(name, "new")) result |= bit;
      bit *= 2;
    }
    return result;
  });
  EXPECT_EQ(written, 16) << "the last alone";
  fs::permissions(folder.file(""), static_cast<fs::perms>(0755));
  EXPECT_EQ(read_file(folder.file("read only")), "old");
  EXPECT_EQ(read_file(folder.file("open")), "new");
  EXPECT_EQ(folder.count(), 3U);
}

TEST(Session_posix, knows_user_and_computer_as_the_systems_programs_do) {
  auto const told = [](char const* program, char const* option) {
    std::string const text = core_test::run({program, {option}, "", false}).out;
    return text.substr(0, text.find_first_of(".\n"));
  };
  auto const user = zu::session::user_name();
  EXPECT_EQ(zu::path::to_native(user), told("/usr/bin/id", "-un"));
  EXPECT_EQ(zu::path::to_native(zu::session::computer_name()), told("/usr/bin/uname", "-n"));
}

TEST(File_system_posix, names_are_spelled_in_the_systems_encoding_or_not_at_all) {
  Ttemp_folder const folder;
  Tenvironment const system{{"LC_ALL", "ru_RU.CP1251"}};
  put_file(folder.file("f"), "x");
  std::wstring const foreign = folder.wide(L"\u00FC");
  EXPECT_FALSE(zu::file::write_whole(foreign, "x"));
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
