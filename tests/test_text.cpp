#include <gtest/gtest.h>

#include <algorithm>
#include <random>
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
using core_test::recorded;
using core_test::Tc_locale;
using core_test::Tsystem_page;
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
  EXPECT_EQ(to_multi_byte(1251, L"\u0416\u4E2D\u0416"), "\xC6?\xC6");
  EXPECT_EQ(to_wide(99999, "a"), L"");
  EXPECT_EQ(to_multi_byte(99999, L"a"), "");
  EXPECT_EQ(to_wide(1251, ""), L"");
}

TEST(Code_page, gaps_of_a_page_are_control_characters) {
  using zu::code_page::to_multi_byte;
  using zu::code_page::to_wide;
  struct Tcase {
    unsigned page;
    char const* bytes;
    wchar_t const* text;
  };
  std::vector<Tcase> const cases{{1251, "\xC6\x98\xC6", L"\u0416\u0098\u0416"},
                                 {1252, "\x81\xFC\x9D", L"\u0081\u00FC\u009D"},
                                 {1255, "\xE9\x81\xE0", L"\u05D9\u0081\u05D0"}};
  for (auto const& c : cases) {
    EXPECT_EQ(to_wide(c.page, c.bytes), c.text) << c.page;
    EXPECT_EQ(to_multi_byte(c.page, c.text), c.bytes) << c.page;
  }
  // A letter is there.
  EXPECT_EQ(to_multi_byte(1251, L"\u0088"), "?");
  EXPECT_EQ(to_multi_byte(866, L"\u0098"), "?");
}

// By the standard's rule of the longest part that could have become a letter;
// Windows goes one byte further where the second byte spoils it.
TEST(Code_page, broken_utf8_is_marked_once_for_what_belongs_together) {
  struct Tcase {
    char const* bytes;
    wchar_t const* text;
  };
  std::vector<Tcase> const cases{{"\xE2\x82", L"\uFFFD"},
                                 {"\xE2\x82z", L"\uFFFDz"},
                                 {"\xF0\x9F\x98z", L"\uFFFDz"},
                                 {"\xE4\xB8\xE4\xB8", L"\uFFFD\uFFFD"},
                                 {"\xC0\x80", L"\uFFFD\uFFFD"},
                                 {"\xED\xA0\x80", L"\uFFFD\uFFFD"},
                                 {"\xE0\x80\x80", L"\uFFFD\uFFFD"},
                                 {"\xF0\x80\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
                                 {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
                                 {"\xF5\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
                                 {"\xC6\xE2\xE0zz", L"\uFFFD\uFFFD\uFFFDzz"}};
  for (auto const& c : cases) EXPECT_EQ(zu::strconv::from_utf8(c.bytes), c.text) << c.bytes;
}

// The same on every platform: the record is compared.
TEST(Code_page, all_bytes_and_random_ones) {
  for (unsigned const page : {1250U, 1251U, 1252U, 1254U, 1256U, 866U}) {
    std::string bytes;
    for (unsigned byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    std::wstring const text = zu::code_page::to_wide(page, bytes);
    EXPECT_EQ(recorded(text).size(), bytes.size()) << page;
    EXPECT_EQ(recorded(zu::code_page::to_multi_byte(page, text)), bytes) << page;
  }
  std::mt19937 random(5);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
  constexpr std::string_view parts = "az\x80\x8F\x90\xA0\xBF\xC2\xD0\xE0\xE2\xED\xF0\xF4\xFF";
  for (int i = 0; i < 2000; ++i) {
    std::string bytes;
    for (auto length = random() % 12; length > 0; --length) bytes += parts[random() % parts.size()];
    // A text that breaks off in a letter ends early in some versions of Wine.
    bytes += "zzz";
    std::wstring const text = recorded(zu::strconv::from_utf8(bytes));
    EXPECT_EQ(zu::strconv::from_utf8(zu::strconv::to_utf8(text)), text) << bytes;
  }
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

TEST(Code_page, the_systems_page_whatever_the_hosts_own_locale) {
  for (auto const& page : core_test::system_pages()) {
    Tsystem_page const system(page);
    EXPECT_EQ(recorded(zu::strconv::to_system(page.letters)), page.bytes);
    for (char const* name : core_test::comma_locales()) {
      Tc_locale const locale(name);
      ASSERT_TRUE(locale.is_set()) << "there is no " << name;
      EXPECT_EQ(zu::strconv::to_system(page.letters), page.bytes) << name;
      EXPECT_EQ(zu::strconv::from_system(page.bytes), page.letters) << name;
      // Interface texts have their own page.
      EXPECT_EQ(zu::strconv::from_interface("\xC6"), L"\u0416") << name;
    }
    EXPECT_TRUE(zu::strconv::has_system_spelling(page.letters)) << page.encoding;
    for (wchar_t const* letter : page.foreign)
      EXPECT_FALSE(zu::strconv::has_system_spelling(letter)) << page.encoding;
  }
}

TEST(Text_file, reading) {
  Ttemp_folder const folder;
  struct Tcase {
    std::string content;
    encodings encoding;
    wchar_t const* text;
  };
  std::vector<Tcase> const cases{{std::string("\xC6\0\xC6", 3), encodings::cp1251, L"\u0416"},
                                 {"\xEF\xBB\xBF+", encodings::cp1251, L"\u043F\u00BB\u0457+"},
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

TEST(Text_file, in_the_systems_page_by_a_name_in_its_letters) {
  for (auto const& page : core_test::system_pages()) {
    Ttemp_folder const folder;
    Tsystem_page const system(page);
    std::wstring const name = folder.wide(page.letters);
    EXPECT_TRUE(zu::fileio::writeall(name, encodings::system, page.letters));
    EXPECT_EQ(get_file(folder.file(page.bytes)), page.bytes);
    std::wstring text;
    EXPECT_TRUE(zu::fileio::readall(name, encodings::system, text));
    EXPECT_EQ(recorded(text), page.letters);
    // A byte-order mark is text like any other.
    put_file(folder.file(page.bytes), std::string("\xEF\xBB\xBF+"));
    EXPECT_TRUE(zu::fileio::readall(name, encodings::system, text));
    EXPECT_EQ(text, zu::strconv::from_system("\xEF\xBB\xBF+"));
    EXPECT_EQ(text.size(), 4U);
  }
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
  for (auto const& page : core_test::system_pages()) {
    Tsystem_page const system(page);
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
    feed(page.bytes, zu_string_adp_feed_c);
    EXPECT_EQ(narrow, page.bytes);
    EXPECT_EQ(wide, page.letters);
    // UTF-8 is read in the system's page too.
    feed("\xD0\x96", zu_string_adp_feed_c);
    EXPECT_EQ(narrow, "\xD0\x96");
    EXPECT_EQ(recorded(wide).size(), 2U);
    feed(page.letters, zu_string_adp_feed);
    EXPECT_EQ(recorded(narrow), page.bytes);
    EXPECT_EQ(wide, page.letters);
    feed(static_cast<char const*>(nullptr), zu_string_adp_feed_c);
    EXPECT_EQ(narrow, "");
    EXPECT_EQ(wide, L"");
    feed(L"x", zu_string_adp_feed);
    feed(static_cast<wchar_t const*>(nullptr), zu_string_adp_feed);
    EXPECT_EQ(narrow, "");
    EXPECT_EQ(wide, L"");
  }
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
  return zu::strconv::from_interface(recorded(std::string(Tzu_rc::get_str(group, index))));
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

}  // namespace
