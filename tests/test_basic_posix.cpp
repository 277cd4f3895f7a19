// Files where names are bytes.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <thread>

#include "basic/file.h"
#include "core_support.h"

namespace {

namespace fs = std::filesystem;
using core_test::get_file;
using core_test::put_file;
using core_test::read_file;
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

constexpr std::size_t long_size = 200000;

// A process of its own that saves now one and now the other content for ever.
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

// When they die is left to chance; what they leave is not.
TEST(File_posix, savers_that_die_and_savers_at_once_leave_one_content_whole) {
  Ttemp_folder const folder;
  std::mt19937 random(5);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
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
  pid_t const saver = fork();
  if (saver == 0) {
    // As on a full disk: what is beyond the limit is not written.
    rlimit const limit{1000, 1000};
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    setrlimit(RLIMIT_FSIZE, &limit);
    bool const saved = zu::file::write_whole(folder.wide(L"old"), std::string(long_size, 'a')) ||
                       zu::file::write_whole(folder.wide(L"new"), std::string(long_size, 'a'));
    _exit(saved ? 1 : 0);
  }
  int status = -1;
  ASSERT_EQ(waitpid(saver, &status, 0), saver);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(read_file(folder.file("old")), "old");
  EXPECT_EQ(folder.count(), 1U);
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

// As a user to whom permissions apply, which the superuser is not.
TEST(File_posix, what_may_not_be_written_is_not_and_a_closed_folder_is_no_hindrance) {
  Ttemp_folder const folder;
  for (char const* name : {"read only", "open"}) put_file(folder.file(name), "old");
  fs::permissions(folder.file("read only"), static_cast<fs::perms>(0444));
  fs::permissions(folder.file("open"), static_cast<fs::perms>(0666));
  fs::create_directory(folder.file("gone"));
  fs::permissions(folder.file(""), static_cast<fs::perms>(0555));
  pid_t const saver = fork();
  if (saver == 0) {
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && setuid(nobody) != 0) _exit(64);
    int result = 0;
    int bit = 1;
    for (auto const& name : {folder.wide(L"read only"), folder.wide(L"new"), folder.wide(L"gone/f"),
                             folder.wide(std::wstring(300, L'x')), folder.wide(L"open")}) {
      if (zu::file::write_whole(name, "new")) result |= bit;
      bit *= 2;
    }
    _exit(result);
  }
  int status = -1;
  ASSERT_EQ(waitpid(saver, &status, 0), saver);
  fs::permissions(folder.file(""), static_cast<fs::perms>(0755));
  EXPECT_EQ(WEXITSTATUS(status), 16) << "the last alone";
  EXPECT_EQ(read_file(folder.file("read only")), "old");
  EXPECT_EQ(read_file(folder.file("open")), "new");
  EXPECT_EQ(folder.count(), 3U);
}

}  // namespace
