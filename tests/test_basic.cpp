#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <sstream>
#include <vector>

#include "basic/file.h"
#include "basic/ini.h"
#include "basic/number.h"
#include "basic/str.h"
#include "core_support.h"

namespace {

using core_test::get_file;
using core_test::put_file;
using core_test::recorded;
using core_test::Tc_locale;
using core_test::Tsystem_page;
using core_test::Ttemp_folder;
using std::string_view;

// What the C library reads; infinities and NaNs count as nothing.
std::optional<double> c_scan_double(std::string const& text) {
  char* end = nullptr;
  double const value = std::strtod(text.c_str(), &end);
  return end != text.c_str() && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// The texts that are a number and nothing else; "i", "n" and "x" begin other ones.
std::optional<double> c_read_double(std::string const& text) {
  char* end = nullptr;
  static_cast<void>(std::strtod(text.c_str(), &end));
  bool const whole = !text.empty() && end == text.c_str() + text.size();
  bool const is_plain = text.find_first_of("inxX \t\n\v\f\r") == std::string::npos;
  return whole && is_plain ? c_scan_double(text) : std::nullopt;
}

std::string c_format(double value, int digits) {
  std::array<char, 400> text{};
  int const length = std::snprintf(text.data(), text.size(), "%.*lg", digits, value);
  return {text.data(), static_cast<std::size_t>(length)};
}

TEST(Number, reads_doubles_like_the_c_library) {
  std::istringstream texts(
      "| |0|-0|0.9996|+1.5|-.5|5.|.|-|+|+-1|--1|- 1|1e|1e+|1e5x|1E-5|e5|1.5.2|1,5|\t\n 7|\v\f\r8|"
      "12abc|abc12|nan|-inf|inf|infinity|1e999|-1e999|1e308|1e-308|1e400|0x1F|-0X1.8p1|0x.8|0x|0x-"
      "1|0xg|"
      "00012.500|1 2|1e5.5|0.1e-0002|\xA0 1");
  for (std::string text; std::getline(texts, text, '|');) {
    EXPECT_EQ(zu::number::scan_double(text), c_scan_double(text)) << "\"" << text << "\"";
    EXPECT_EQ(zu::number::read_double(text), c_read_double(text)) << "\"" << text << "\"";
  }
}

TEST(Number, reads_random_texts_like_the_c_library) {
  std::mt19937 random(20240501);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
  constexpr string_view alphabet = "00123456789..+--eE x,";
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (auto length = random() % 9; length > 0; --length)
      text += alphabet[random() % alphabet.size()];
    double const value = c_scan_double(text).value_or(0.5);
    // Too small for a double: nobody's coordinate.
    if (value == 0 && text.find_first_of("123456789") < text.find_first_of("eE")) continue;
    ASSERT_EQ(zu::number::scan_double(text), c_scan_double(text)) << "\"" << text << "\"";
    ASSERT_EQ(zu::number::read_double(text), c_read_double(text)) << "\"" << text << "\"";
  }
}

TEST(Number, reads_integers_that_fit) {
  struct Tcase {
    char const* text = "";
    std::optional<int> value;
  };
  std::vector<Tcase> const cases{{"37", 37},
                                 {" +37", 37},
                                 {"\t-5zone", -5},
                                 {"1.9", 1},
                                 {"007", 7},
                                 {"2147483647", 2147483647},
                                 {"-2147483648", std::numeric_limits<int>::min()},
                                 {"2147483648", std::nullopt},
                                 {"-2147483649", std::nullopt},
                                 {"99999999999999999999", std::nullopt},
                                 {"0x10", 0},
                                 {"", std::nullopt},
                                 {"- 1", std::nullopt},
                                 {"+-1", std::nullopt},
                                 {"a1", std::nullopt}};
  for (auto const& c : cases) EXPECT_EQ(zu::number::scan_int(c.text), c.value) << c.text;
}

TEST(Number, writes_like_the_c_library) {
  std::vector<double> values{
      0,    -0.0, 1,    0.1,    0.9996,          1e-5,     500000, 123456789012.0,
      1e12, 1e15, 1e16, -1e300, 6378137.0 / 3.0, 4.9e-324, 0.0001, 999999999999.9};
  std::mt19937_64 random(7);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
  while (values.size() < 5000)
    if (auto const value = std::bit_cast<double>(random()); std::isfinite(value))
      values.push_back(value);
  // As coordinates are: a few digits before the point and a few behind it.
  std::array<double, 5> const scales{1, 10, 1e3, 1e6, 1e9};
  for (int i = 0; i < 20000; ++i) {
    double const whole = static_cast<double>(random() % 10000000000000U) / scales[random() % 5];
    values.push_back((i % 2 == 0 ? whole : -whole) / scales[random() % 5]);
  }
  std::string written;
  for (double const value : values)
    for (int const digits : {6, 12, 15}) {
      std::string const text = zu::number::format_double(value, digits);
      ASSERT_EQ(text, c_format(value, digits)) << value;
      written.append(text).append("\n");
    }
  recorded(written);
}

TEST(Number, writes_columns_like_the_c_library) {
  // Ties and what lies beside them, carries, and what is beyond the short way.
  std::vector<double> values{0,       -0.0,     0.5,      1.5,    -2.5,         0.125,
                             0.0625,  0.99995,  -9.99996, 1e15,   999999999.5,  1e300,
                             -1e-300, 0.000435, 1e14 / 3, 5e-324, 123456.00005, 0.9999999995};
  std::mt19937_64 random(11);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
  std::uniform_real_distribution<double> coordinate(-2e7, 2e7);
  for (int i = 0; i < 20000; ++i) {
    values.push_back(coordinate(random));
    values.push_back(coordinate(random) / 1e5);
    values.push_back(static_cast<double>(random() % 4000001) / 2048);
    values.push_back(std::nextafter(values.back(), 1e9));
  }
  for (double const value : values)
    for (int const digits : {0, 3, 4, 9, 12}) {
      std::array<char, 400> expected{};
      static_cast<void>(
          // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the yardstick
          std::snprintf(expected.data(), expected.size(), "%.*f", digits, value));
      std::string text;
      zu::number::append_fixed(text, value, digits);
      ASSERT_EQ(text, expected.data());
    }
}

TEST(Number, takes_no_notice_of_a_decimal_comma) {
  Tc_locale const locale(core_test::comma_locales().front());
  ASSERT_TRUE(locale.is_set()) << "there is no " << core_test::comma_locales().front();
  ASSERT_EQ(c_format(0.5, 3), "0,5");
  EXPECT_EQ(zu::number::scan_double("0.9996"), 0.9996);
  EXPECT_EQ(zu::number::scan_double("0,9996"), 0);
  EXPECT_EQ(zu::number::format_double(-1234567.5), "-1234567.5");
  EXPECT_EQ(zu::number::format_int(-1234567), "-1234567");
}

TEST(Str, trims_and_compares) {
  EXPECT_EQ(zu::str::trim(" \r\n\ta b\t "), "a b");
  EXPECT_EQ(zu::str::trim("\v a"), "\v a");
  EXPECT_EQ(zu::str::trim(" \t "), "");
  EXPECT_TRUE(zu::str::trim_stricmp_equal(" Prj_NAME\t", "pRJ_name"));
  EXPECT_FALSE(zu::str::trim_stricmp_equal("prj_name", "prj_nam"));
  EXPECT_TRUE(zu::str::equal_no_case("[@`{", "[@`{"));
  EXPECT_FALSE(zu::str::equal_no_case("[@", "{`")) << "neighbours of the letters are no letters";
  EXPECT_FALSE(zu::str::equal_no_case("\xC6", "\xE6")) << "letters of one code page only";
}

TEST(Str, splits_and_divides) {
  using pieces = std::vector<string_view>;
  EXPECT_EQ(zu::str::split("+a,b+", "+,"), (pieces{"", "a", "b", ""}));
  EXPECT_EQ(zu::str::split("", "+"), pieces{""});
  struct Tcase {
    char const* piece = "";
    char const* name = "";
    char const* value = "";
  };
  std::vector<Tcase> const cases{
      {" a = b=c \n", "a", "b=c"}, {" a b ", "a b", ""}, {"=x", "", "x"}, {"a=", "a", ""}};
  for (auto const& c : cases) {
    auto const [name, value] = zu::str::divide_str(c.piece, '=');
    EXPECT_EQ(name, c.name) << c.piece;
    EXPECT_EQ(value, c.value) << c.piece;
  }
}

TEST(Ini, reads_what_editors_leave_in_a_file) {
  Tzu_ini ini;
  ini.load_from_text(
      "stray=0\n; [projection]\n[ Projection ] note\r\n#pj4=comment\r\n\r\n"
      " PJ4 = +proj=utm +zone=5 \r\npj4=second\nno value\nempty=\n=nameless\n"
      "[other]\npj4=other\n[projection]\nlate=x\n[open\nk=v");
  struct Tcase {
    char const* section = "";
    char const* key = "";
    char const* value = "";
  };
  std::vector<Tcase> const cases{{"projection", "pj4", "+proj=utm +zone=5"},
                                 {"PROJECTION", "Empty", ""},
                                 {"projection", "late", "x"},
                                 {"other", "PJ4", "other"},
                                 {"projection", "no value", "missing"},
                                 {"projection", "stray", "missing"},
                                 {"", "stray", "missing"},
                                 {"nowhere", "pj4", "missing"},
                                 {"open", "k", "v"}};
  for (auto const& c : cases)
    EXPECT_EQ(ini.get_as_str(c.section, c.key, "missing"), c.value) << c.section << " " << c.key;
}

TEST(Ini, writes_sections_and_keys) {
  Ttemp_folder const folder;
  Tzu_ini ini;
  ini.set_as_str("a", "k", "1");
  ini.set_as_str("b", "x", "\xC6");
  ini.set_as_str("A", "K", "2");
  ini.set_as_str("a", "l", "");
  ASSERT_TRUE(ini.save_to_file(folder.wide(L"f.ini")));
  EXPECT_EQ(get_file(folder.file("f.ini")), "[a]\n\nk=2\nl=\n[b]\n\nx=\xC6\n");

  EXPECT_FALSE(ini.load_from_file(folder.wide(L"missing.ini")));
  EXPECT_EQ(ini.get_as_str("a", "k"), "2") << "a failed load changes nothing";
  put_file(folder.file("f.ini"), "[c]\nk=3\n");
  EXPECT_TRUE(ini.load_from_file(folder.wide(L"f.ini")));
  EXPECT_EQ(ini.get_as_str("a", "k", "gone"), "gone");
  EXPECT_EQ(ini.get_as_str("c", "k"), "3");
  EXPECT_FALSE(ini.save_to_file(folder.wide(L"no/folder.ini")));
}

TEST(File, content_survives_whole) {
  Ttemp_folder const folder;
  std::string big(70000, 'x');
  big[65535] = '\0';
  big[65536] = '\n';
  for (std::string const& content : {std::string(), std::string("a\0\r\n\x1A\xFF", 6), big}) {
    ASSERT_TRUE(zu::file::write_whole(folder.wide(L"f"), content));
    EXPECT_EQ(get_file(folder.file("f")), content);
    EXPECT_EQ(zu::file::read_whole(folder.wide(L"f")), content);
  }
  EXPECT_FALSE(zu::file::read_whole(folder.wide(L"missing")));
  EXPECT_FALSE(zu::file::read_whole(folder.wide(L"")));
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

TEST(File, name_may_have_the_letters_of_the_systems_page) {
  for (auto const& page : core_test::system_pages()) {
    Ttemp_folder const folder;
    Tsystem_page const system(page);
    std::wstring const name = folder.wide(page.letters);
    ASSERT_TRUE(zu::file::write_whole(name, "content")) << page.encoding;
    // As the C library spells it.
    EXPECT_EQ(get_file(folder.file(page.bytes)), "content") << page.encoding;
    EXPECT_EQ(zu::file::read_whole(name), "content") << page.encoding;
    EXPECT_TRUE(zu::file::exists(name)) << page.encoding;
    EXPECT_TRUE(zu::file::open(name, "rb")) << page.encoding;
    EXPECT_EQ(folder.count(), 1U) << page.encoding;
  }
}

}  // namespace
