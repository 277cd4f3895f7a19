#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "basic/code_page.h"
#include "core_support.h"
#include "text/fileio.h"
#include "text/rc.h"
#include "text/strconv.h"
#include "text/string_adapter.h"

namespace {

using core_test::get_file;
using core_test::put_file;
using core_test::Tc_locale;
using core_test::Tenvironment;
using core_test::Tsystem_encoding;
using core_test::Ttemp_folder;
using zu::strconv::encodings;

TEST(Code_page, letters_of_every_page) {
  // Bytes as the published tables of the code pages have them. The letters at
  // the ends are those that the combining pages hold back.
  struct Tcase {
    encodings encoding;
    char const* bytes;
    wchar_t const* text;
  };
  std::vector<Tcase> const cases{
      {encodings::utf_8, "a\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80", L"a\u0416\u20AC\U0001F600"},
      {encodings::cp1250, "Ko\x9A", L"Ko\u0161"},
      {encodings::cp1251, "\xC6\xB8\x88 a", L"\u0416\u0451\u20AC a"},
      {encodings::cp1252, "\x80\xFC", L"\u20AC\u00FC"},
      {encodings::cp1253, "\xE1\xD9", L"\u03B1\u03A9"},
      {encodings::cp1254, "\xFD\xDE", L"\u0131\u015E"},
      {encodings::cp1255, "\xE0\xE9", L"\u05D0\u05D9"},
      {encodings::cp1256, "\xC8\x81", L"\u0628\u067E"},
      {encodings::cp1257, "\xC0\xFE", L"\u0104\u017E"},
      {encodings::cp1258,
       "\xFE"
       "Anna",
       L"\u20ABAnna"},
      {encodings::cp866, "\x8F\xE0\xF1", L"\u041F\u0440\u0451"},
      {encodings::ascii, "~+proj", L"~+proj"}};
  for (auto const& c : cases) {
    auto const* const name = zu::strconv::get_encoding(c.encoding).name;
    EXPECT_EQ(zu::strconv::decode(c.encoding, c.bytes), c.text) << name;
    EXPECT_EQ(zu::strconv::encode(c.encoding, c.text), c.bytes) << name;
  }
}

TEST(Code_page, what_cannot_be_converted_is_marked) {
  using zu::code_page::to_multi_byte;
  using zu::code_page::to_wide;
  EXPECT_EQ(to_wide(65001,
                    "a\xFF"
                    "b"),
            L"a\uFFFDb");
  EXPECT_EQ(to_wide(65001, "a\xD0"), L"a\uFFFD") << "cut in the middle of a letter";
  EXPECT_EQ(to_wide(1251, "\xC6\x98\xC6"), L"\u0416\uFFFD\u0416");
  EXPECT_EQ(to_wide(1255, "\xE9\xD9\xE0"), L"\u05D9\uFFFD\u05D0") << "a held letter comes first";
  EXPECT_EQ(to_multi_byte(1251, L"\u0416\u00FC\u0416"), "\xC6?\xC6");
  EXPECT_EQ(to_wide(99999, "a"), L"");
  EXPECT_EQ(to_multi_byte(99999, L"a"), "");
  EXPECT_EQ(to_wide(1251, ""), L"");
}

TEST(Code_page, long_texts_and_zero_bytes_stay_whole) {
  std::wstring text(5001, L'\u20AC');
  text[4096] = L'\0';
  std::string const bytes = zu::strconv::to_utf8(text);
  EXPECT_EQ(bytes.size(), 3 * 5000U + 1);
  EXPECT_EQ(zu::strconv::from_utf8(bytes), text);
}

TEST(Code_page, rows_without_a_page_are_names_only) {
  for (auto const encoding : {encodings::utf_16, encodings::utf_16le, encodings::utf_32be}) {
    EXPECT_FALSE(zu::strconv::has_code_page(encoding));
    EXPECT_EQ(zu::strconv::decode(encoding, "a"), L"");
    EXPECT_EQ(zu::strconv::encode(encoding, L"a"), "");
  }
  // Hosts know these two rows by each other's name.
  EXPECT_STREQ(zu::strconv::get_encoding(encodings::utf_32le).synonym, "UTF-32BE");
  EXPECT_STREQ(zu::strconv::get_encoding(encodings::utf_32be).synonym, "UTF-32LE");
  EXPECT_STREQ(zu::strconv::get_encoding(static_cast<encodings>(19)).name, "SYSTEM");
}

TEST(Code_page, the_systems_page_is_the_users_locales) {
  struct Tcase {
    char const* all;
    char const* ctype;
    char const* lang;
    char const* bytes;
  };
  std::vector<Tcase> const cases{{"ru_RU.CP1251", "", "", "\xC6"},
                                 {"", "ru_RU.KOI8-R", "ru_RU.CP1251", "\xF6"},
                                 {"", "", "xx_YY.CP866@euro", "\x86"},
                                 {"", "", "ru_RU.UTF-8", "\xD0\x96"},
                                 {"C", "ru_RU.CP1251", "ru_RU.CP1251", "\xD0\x96"},
                                 {"xx_YY", "", "", "\xD0\x96"},
                                 {"", "", "", "\xD0\x96"}};
  for (auto const& c : cases) {
    Tenvironment const environment{{"LC_ALL", c.all}, {"LC_CTYPE", c.ctype}, {"LANG", c.lang}};
    EXPECT_EQ(zu::strconv::to_system(L"\u0416"), c.bytes)
        << c.all << " " << c.ctype << " " << c.lang;
    EXPECT_EQ(zu::strconv::from_system(c.bytes), L"\u0416");
    EXPECT_EQ(zu::strconv::from_interface("\xC6"), L"\u0416")
        << "interface texts have their own page";
  }
}

TEST(Code_page, the_hosts_own_locale_does_not_count) {
  Tsystem_encoding const system("UTF-8");
  Tc_locale const locale("ru_RU.CP1251");
  ASSERT_TRUE(locale.is_set()) << "LOCPATH names no folder with ru_RU.CP1251";
  EXPECT_EQ(zu::strconv::to_system(L"\u0416"), "\xD0\x96");
}

TEST(Text_file, reading) {
  Ttemp_folder const folder;
  Tsystem_encoding const system("CP1251");
  struct Tcase {
    std::string content;
    encodings encoding;
    wchar_t const* text;
  };
  std::vector<Tcase> const cases{{std::string("\xC6\0\xC6", 3), encodings::cp1251, L"\u0416"},
                                 {"\xEF\xBB\xBF+", encodings::system, L"\u043F\u00BB\u0457+"},
                                 {"\xEF\xBB\xBF+", encodings::utf_8, L"\uFEFF+"},
                                 {"\r\n\xD0\x96", encodings::utf_8, L"\r\n\u0416"},
                                 {"", encodings::utf_8, L""}};
  for (auto const& c : cases) {
    put_file(folder.file("f"), c.content);
    std::wstring text = L"before";
    EXPECT_TRUE(zu::fileio::readall(folder.wide(L"f"), c.encoding, text));
    EXPECT_EQ(text, c.text);
  }
  std::wstring text = L"before";
  EXPECT_FALSE(zu::fileio::readall(folder.wide(L"missing"), encodings::utf_8, text));
  EXPECT_FALSE(zu::fileio::readall(folder.wide(L"f"), encodings::utf_16, text));
  EXPECT_EQ(text, L"before");
}

TEST(Text_file, writing) {
  Ttemp_folder const folder;
  put_file(folder.file("f"), "longer than what comes");
  EXPECT_FALSE(zu::fileio::writeall(folder.wide(L"f"), encodings::utf_16, L"a"));
  EXPECT_EQ(get_file(folder.file("f")), "longer than what comes") << "a failure leaves the file";
  EXPECT_TRUE(zu::fileio::writeall(folder.wide(L"f"), encodings::utf_8, L"\u0416\n"));
  EXPECT_EQ(get_file(folder.file("f")), "\xD0\x96\n");
  EXPECT_TRUE(zu::fileio::writeall(folder.wide(L"f"), encodings::cp866, L""));
  EXPECT_EQ(get_file(folder.file("f")), "");
  EXPECT_FALSE(zu::fileio::writeall(folder.wide(L"no/f"), encodings::utf_8, L"a"));
}

TEST(Text, trimming) {
  std::wstring text = L"\v\f \r\n\ta\tb \f";
  zu::strutil::trim_inplace(text);
  EXPECT_EQ(text, L"a\tb");
  text = L" \v";
  zu::strutil::trim_inplace(text);
  EXPECT_EQ(text, L"");
  EXPECT_EQ(zu::strutil::trim("\v x \f"), "x");
  EXPECT_EQ(zu::strutil::trim("..x.", "."), "x");
}

TEST(String_adapter, last_feed_wins_in_the_systems_page) {
  Tsystem_encoding const system("CP1251");
  std::string narrow = "before";
  std::wstring wide = L"before";
  Tzu_std_string_adapter narrow_target(&narrow);
  Tzu_std_wstring_adapter wide_target(&wide);
  zu::string_adp const to_narrow(narrow_target);
  zu::string_adp const to_wide(wide_target);
  auto const feed = [&](auto const* text, auto function) {
    function(to_narrow.get(), text);
    function(to_wide.get(), text);
  };
  feed("first", zu_string_adp_feed_c);
  // UTF-8 is read in the system's page too.
  feed("\xD0\x96", zu_string_adp_feed_c);
  EXPECT_EQ(narrow, "\xD0\x96");
  EXPECT_EQ(wide, L"\u0420\u2013");
  feed(L"\u0416", zu_string_adp_feed);
  EXPECT_EQ(narrow, "\xC6");
  EXPECT_EQ(wide, L"\u0416");
  feed(static_cast<char const*>(nullptr), zu_string_adp_feed_c);
  EXPECT_EQ(narrow, "");
  EXPECT_EQ(wide, L"");
  feed(L"x", zu_string_adp_feed);
  feed(static_cast<wchar_t const*>(nullptr), zu_string_adp_feed);
  EXPECT_EQ(narrow, "");
  EXPECT_EQ(wide, L"");
}

TEST(String_adapter, hosts_may_take_one_kind_of_text_only) {
  std::string narrow;
  Tzu_std_string_adapter target(&narrow);
  auto* const adapter =
      zu_string_adp_create(&Tzu_string_adapter_base::zu_ansi_string_callback, nullptr, &target);
  zu_string_adp_feed_c(adapter, "a");
  zu_string_adp_feed(adapter, L"b");
  EXPECT_EQ(narrow, "a");
  zu_string_adp_destroy(adapter);
  zu_string_adp_feed_c(nullptr, "a");
  zu_string_adp_destroy(nullptr);
}

// A text of the interface in a language; the host's own is taken over first.
std::wstring interface_text(int lang, int group, int index) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(lang);
  return zu::strconv::from_interface(Tzu_rc::get_str(group, index));
}

TEST(Interface_text, captions_of_the_dialog) {
  struct Tcase {
    int group;
    int index;
    wchar_t const* english;
    wchar_t const* russian;
  };
  std::vector<Tcase> const cases{
      {0, 2, L"error", L"ошибка"},
      {5, 0, L"Apply", L"Применить"},
      {5, 1, L"Cancel", L"Отменить"},
      {5, 6, L"Load", L"Загрузить"},
      {6, 0, L"Spheroid", L"Эллипсоид"},
      {6, 1, L"Spheroid", L"Название"},
      {6, 4, L"Inverse flattering", L"Обратный коэфф. сжатия"},
      {6, 8, L"Axis X", L"Ось Х"},
      {6, 15, L"Projection", L"Название"},
      {6, 18, L"Central Meridian", L"Меридиан центра проекции"},
      {6, 22, L"1st Standart Parallel", L"1я стандартная параллель"},
      {6, 26, L"Scale Factor", L"Масштабный коэфф."},
      {6, 27, L"Alpha", L"Альфа"},
      {6, 29, L"Unknown", L"Не определена"},
      {6, 31, L"Zonal projections", L"Зональные проекции"},
      {6, 32, L"Zonal type", L"Проекция"},
      {6, 33, L"Zone", L"Номер зоны"},
      {6, 35, L"Projection parameters file *.pj4|*.pj4|ESRI projection  file *.prj|*.prj",
       L"Файл параметров проекции *.pj4|*.pj4|Файл проекции ESRI *.prj|*.prj"},
      {10, 1, L"Can't open file: \"%s\"", L"Не могу открыть файл: \"%s\""},
      {10, 2, L"Error reading file: \"%s\"", L"Ошибка записи в файл: \"%s\""},
      {10, 3, L"Error writing file: \"%s\"", L"Ошибка чтения из файла: \"%s\""},
      {0, 1, L"user stop", nullptr},
      {1, 22, L"Interpolate", nullptr},
      {2, 9, L"Window maximum", nullptr},
      {3, 5, L"Linear \"a1*x1 + a2*x2 + a3*x3 + b\"", nullptr},
      {4, 3, L"Point in polygons", nullptr},
      {7, 5, L"Shape files *.shp|*.shp|", nullptr},
      {8, 5, L"Image files *.tif|*.tif;*.tiff|", nullptr},
      {9, 12, L"Density", nullptr},
      {10, 0, L"Not enough memory. Size to alloc: %d", nullptr},
      {11, 0, L"K means", nullptr}};
  for (auto const& c : cases) {
    EXPECT_EQ(interface_text(0, c.group, c.index), c.english) << c.group << ", " << c.index;
    if (c.russian != nullptr) {
      EXPECT_EQ(interface_text(1, c.group, c.index), c.russian) << c.group << ", " << c.index;
    }
  }
}

TEST(Interface_text, table_is_full_in_both_languages_and_ends_where_it_should) {
  constexpr std::array<int, Tzu_rc::groups_count> sizes{5, 23, 12, 14, 4, 7, 36, 6, 6, 13, 4, 1};
  auto const is_latin = [](wchar_t c) { return c >= L' ' && c <= L'~'; };
  for (int group = 0; group < Tzu_rc::groups_count; ++group) {
    int const size = sizes[static_cast<std::size_t>(group)];
    for (int index = 0; index < size; ++index) {
      auto const english = interface_text(0, group, index);
      auto const russian = interface_text(1, group, index);
      EXPECT_TRUE(std::ranges::all_of(english, is_latin)) << group << ", " << index;
      EXPECT_FALSE(std::ranges::all_of(russian, is_latin)) << group << ", " << index;
      EXPECT_EQ(russian.find(L'\uFFFD'), std::wstring::npos) << group << ", " << index;
      EXPECT_NE(english, L"unknown str");
      EXPECT_NE(english, L"");
    }
    for (int const lang : {0, 1})
      EXPECT_EQ(interface_text(lang, group, size), L"unknown str") << group;
  }
  for (int const lang : {0, 1, 2})
    for (auto const& [group, index] : {std::pair(12, 0), {-1, 0}, {0, -1}, {1 << 30, 1 << 30}})
      EXPECT_EQ(interface_text(lang, group, index), L"unknown str") << group << ", " << index;
  EXPECT_EQ(interface_text(2, 5, 0), L"Apply") << "1 alone is Russian";
}

// The language is taken once in a process, so each case needs its own.
void exit_with_texts(std::initializer_list<std::pair<char const*, char const*>> environment,
                     int set_first) {
  Tenvironment const variables(environment);
  if (set_first >= 0) Tzu_rc::set_lang(set_first);
  std::string text = Tzu_rc::get_str(5, 0);
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  Tzu_rc::get_auto_lang();
  char const* const shown = Tzu_rc::get_str(5, 0);
  if (text != shown) text += " has changed";
  // The buffer is one: a pointer to it shows the newest text, however long.
  if (Tzu_rc::get_str(6, 35) != shown) text += " has moved";
  std::exit(text == "Apply" ? 0 : text == "\xCF\xF0\xE8\xEC\xE5\xED\xE8\xF2\xFC" ? 1 : 2);
}

TEST(Interface_text_death, language_is_the_users_at_the_first_text) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  using testing::ExitedWithCode;
  EXPECT_EXIT(exit_with_texts({{"LC_ALL", "ru_RU.UTF-8"}}, -1), ExitedWithCode(1), "");
  EXPECT_EXIT(exit_with_texts({{"LC_ALL", ""}, {"LC_MESSAGES", "ru"}, {"LANG", "de_DE"}}, -1),
              ExitedWithCode(1), "");
  EXPECT_EXIT(exit_with_texts({{"LC_ALL", "C"}, {"LANG", "ru_RU"}}, -1), ExitedWithCode(0), "");
  EXPECT_EXIT(exit_with_texts({{"LC_ALL", "run_ZZ"}}, -1), ExitedWithCode(0), "");
  EXPECT_EXIT(exit_with_texts({{"LC_ALL", "en_US.UTF-8"}}, 1), ExitedWithCode(0), "")
      << "a language set before the first text gives way to the user's";
}

}  // namespace
