#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <sstream>
#include <vector>

#include "basic/env.h"
#include "basic/file.h"
#include "basic/file_system.h"
#include "basic/ini.h"
#include "basic/number.h"
#include "basic/path.h"
#include "basic/prp_val.h"
#include "basic/str.h"
#include "core_support.h"

namespace {

namespace fs = std::filesystem;
namespace files = zu::file_system;
using core_test::get_file;
using core_test::put_file;
using core_test::read_file;
using core_test::recorded;
using core_test::Ttemp_folder;
using std::string_view;

// What the C library reads; infinities and NaNs count as nothing.
std::optional<double> c_scan_double(std::string const& text) {
  char* end = nullptr;
  double const value = std::strtod(text.c_str(), &end);
  return end != text.c_str() && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// Texts that are a decimal number and nothing else.
std::optional<double> c_read_double(std::string const& text) {
  char* end = nullptr;
  static_cast<void>(std::strtod(text.c_str(), &end));
  bool const whole = !text.empty() && end == text.c_str() + text.size();
  bool const is_plain = text.find_first_of("inxX \t\n\v\f\r") == std::string::npos;
  return whole && is_plain ? c_scan_double(text) : std::nullopt;
}

std::string c_format(char const* format, double value, int digits) {
  std::array<char, 400> text{};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the yardstick
  int const length = std::snprintf(text.data(), text.size(), format, digits, value);
  return {text.data(), static_cast<std::size_t>(length)};
}

void expect_read_like_c(std::string const& text) {
  EXPECT_EQ(zu::number::scan_double(text), c_scan_double(text)) << "\"" << text << "\"";
  EXPECT_EQ(zu::number::read_double(text), c_read_double(text)) << "\"" << text << "\"";
}

// The tests of the editing rules and of the dialog have hosts with a decimal comma.
TEST(Number, reads_doubles_like_the_c_library) {
  std::istringstream texts(
      "| |-0|0.9996|+1.5|-.5|5.|.|-|+-1|- 1|1e|1e+|1e5x|1E-5|e5|1.5.2|1,5|\t\n "
      "7|\v\f\r8|12abc|abc12|"
      "nan|-inf|infinity|1e999|-1e999|1e308|1e-308|0x1F|-0X1.8p1|0x.8|0x|0x-1|0xg|0.1e-0002|\xA0 "
      "1");
  for (std::string text; std::getline(texts, text, '|');) expect_read_like_c(text);
  std::mt19937 random(20240501);  // NOLINT(cert-msc51-cpp): repeatable
  constexpr string_view alphabet = "00123456789..+--eE x,";
  for (int i = 0; i < 20000 && !HasFailure(); ++i) {
    std::string text;
    for (auto length = random() % 9; length > 0; --length)
      text += alphabet[random() % alphabet.size()];
    // Too small for a double.
    if (c_scan_double(text) == 0 && text.find_first_of("123456789") < text.find_first_of("eE"))
      continue;
    expect_read_like_c(text);
  }
}

TEST(Number, writes_like_the_c_library) {
  // Ties and numbers near them, carries, and numbers that need the long way.
  std::vector<double> values{0,       -0.0,     0.5,      1.5,    -2.5,         0.125,
                             0.0625,  0.99995,  -9.99996, 1e15,   999999999.5,  -1e300,
                             -1e-300, 0.000435, 1e14 / 3, 5e-324, 123456.00005, 0.9999999995,
                             1e-5,    1e12,     1e16,     0.0001, 500000,       999999999999.9};
  std::mt19937_64 random(11);  // NOLINT(cert-msc51-cpp): repeatable
  std::uniform_real_distribution<double> coordinate(-2e7, 2e7);
  for (int i = 0; i < 20000; ++i) {
    values.push_back(coordinate(random));
    values.push_back(coordinate(random) / 1e5);
    values.push_back(static_cast<double>(random() % 4000001) / 2048);
    values.push_back(std::nextafter(values.back(), 1e9));
    // Of any size, and with a few digits behind the point.
    if (auto const any = std::bit_cast<double>(random()); std::isfinite(any)) values.push_back(any);
    values.push_back(static_cast<double>(random() % 10000000000000U) / 1e6);
  }
  std::string written;
  for (double const value : values) {
    for (int const digits : {6, 12, 15}) {
      std::string const text = zu::number::format_double(value, digits);
      ASSERT_EQ(text, c_format("%.*lg", value, digits));
      written.append(text).append("\n");
    }
    for (int const digits : {0, 3, 4, 9, 12}) {
      std::string text;
      zu::number::append_fixed(text, value, digits);
      ASSERT_EQ(text, c_format("%.*f", value, digits));
    }
  }
  recorded(written);
}

// Trimming and equality are tested where keys and columns are read.
TEST(Str, compares_letters_of_ascii_only) {
  EXPECT_GT(zu::str::trim_stricmp("prj_name", "prj_nam"), 0);
  EXPECT_LT(zu::str::trim_stricmp("A", " b"), 0);
  EXPECT_FALSE(zu::str::equal_no_case("[@", "{`")) << "neighbours of the letters are no letters";
  EXPECT_FALSE(zu::str::equal_no_case("\xC6", "\xE6")) << "letters of one code page only";
}

// Files of one section are tested where definition files are loaded and saved.
TEST(Ini, is_written_and_read) {
  Ttemp_folder const folder;
  Tzu_ini made;
  made.set_as_str("a", "k", "1");
  made.set_as_str("b", "x", "\xC6");
  made.set_as_str("A", "K", "2");
  made.set_as_str("a", "l", "");
  ASSERT_TRUE(made.save_to_file(folder.wide(L"f.ini")));
  EXPECT_EQ(get_file(folder.file("f.ini")), "[a]\n\nk=2\nl=\n[b]\n\nx=\xC6\n");
  EXPECT_FALSE(made.load_from_file(folder.wide(L"missing.ini")));
  EXPECT_EQ(made.get_as_str("b", "X", ""), "\xC6") << "nothing changes";
  Tzu_ini read;
  ASSERT_TRUE(read.load_from_file(folder.wide(L"f.ini")));
  EXPECT_EQ(read.get_as_str("A", "K", "") + read.get_as_str("b", "x", ""), "2\xC6");
}

TEST(File, content_survives_whole) {
  Ttemp_folder const folder;
  for (std::string const& content :
       {std::string(), std::string(65535, 'x') + std::string("\0\r\n\x1A\xFF", 5)}) {
    ASSERT_TRUE(zu::file::write_whole(folder.wide(L"f"), content));
    EXPECT_EQ(get_file(folder.file("f")), content);
    EXPECT_EQ(zu::file::read_whole(folder.wide(L"f")), content);
  }
  EXPECT_FALSE(zu::file::read_whole(folder.wide(L"missing")));
  EXPECT_FALSE(zu::file::write_whole(folder.wide(L""), "x")) << "a folder is no file";
  EXPECT_FALSE(zu::file::write_whole(folder.wide(std::wstring(300, L'x')), "x"));
  EXPECT_FALSE(zu::file::write_whole(L"", "x"));
  EXPECT_EQ(folder.count(), 1U) << "nothing half-made";
  EXPECT_FALSE(zu::file::exists(L""));
  EXPECT_TRUE(zu::file::exists(folder.wide(L"f")));
}

TEST(File, positions_beyond_4_gib) {
  Ttemp_folder const folder;
  constexpr std::uint64_t size = 5ULL << 30U;
  put_file(folder.file("f"), "start");
  std::error_code error;
  std::filesystem::resize_file(folder.file("f"), size, error);
  if (error) GTEST_SKIP() << "no sparse files here";
  auto const file = zu::file::open(folder.wide(L"f"), "rb+");
  ASSERT_TRUE(file);
  EXPECT_EQ(zu::file::size(file.get()), size);
  ASSERT_TRUE(zu::file::seek(file.get(), size));
  EXPECT_GE(std::fputs("end", file.get()), 0);
  ASSERT_EQ(std::fflush(file.get()), 0);
  EXPECT_EQ(zu::file::size(file.get()), size + 3);
}

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
  // A failure changes no file and leaves no new one.
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
  auto const temporary = files::make_temporary_file(folder.wide(L"a"));
  auto const other = files::make_temporary_file(folder.wide(L"a"));
  ASSERT_TRUE(temporary && other);
  EXPECT_NE(*temporary, *other);
  EXPECT_EQ(zu::file::read_whole(*temporary), "");
  EXPECT_FALSE(files::make_temporary_file(folder.wide(L"missing")));
  EXPECT_FALSE(files::make_folders(*temporary + L"/g") || files::make_folders(L""));
  EXPECT_FALSE(files::remove_file(folder.wide(L"a/b")));
  EXPECT_TRUE(files::remove_file(*temporary));
  EXPECT_FALSE(files::remove_file(*temporary)) << "not there";
  EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder.file("a")), {}), 3);
}

TEST(Prp_val, is_written_as_it_is_read) {
  Tzu_prp_val property("a", "b=c");
  EXPECT_EQ(property.get_text(), "a=b=c");
  property.set_as_dbl(-5811057.628);
  EXPECT_EQ(recorded(property.get_text(':')), "a:-5811057.628");
  property.set_as_int(-37);
  EXPECT_EQ(property.get_as_str(), "-37");
  property.set_as_bool(true);
  EXPECT_TRUE(property.get_as_bool());
}

// The tests of the command-line program test it on terminals and in files.
TEST(Env, writes_lines_and_does_not_flood) {
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
  out.str("");
  for (std::uint64_t done = 0; done < 1000; ++done) env.wait(done, 0, "unknown");
  constexpr std::uint64_t huge = UINT64_MAX;
  for (std::uint64_t part = 0; part < 1000; ++part) env.wait(huge / 1000 * part, huge, "x");
  env.wait(huge, 1, "x");
  EXPECT_EQ(std::ranges::count(out.str(), '\n'), 102);
  EXPECT_TRUE(out.str().ends_with("Wait: 99% x\nWait: 100% x\n"));
}

}  // namespace
