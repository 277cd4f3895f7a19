#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>
#include <vector>

#include "basic/code_page.h"
#include "core_support.h"
#include "text/fileio.h"
#include "text/own_texts.h"
#include "text/rc.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "text/type_ahead.h"

namespace {

using core_test::get_file;
using core_test::recorded;
using core_test::Tc_locale;
using core_test::Tsystem_page;
using core_test::Ttemp_folder;
using zu::strconv::encodings;

TEST(Code_page, letters_of_every_page) {
  // Bytes as the published tables of the code pages have them. The letters at
  // the ends are those that the combining pages hold back.
  std::vector<std::tuple<encodings, char const*, wchar_t const*>> const cases{
      {encodings::utf_8, "a\xD0\x96\xE2\x82\xAC\xF0\x9F\x98\x80", L"a\u0416\u20AC\U0001F600"},
      {encodings::cp1250, "Ko\x9A", L"Ko\u0161"},
      {encodings::cp1251, "\xC6\xB8\x88 a", L"\u0416\u0451\u20AC a"},
      {encodings::cp1252, "\x80\xFC", L"\u20AC\u00FC"},
      {encodings::cp1253, "\xE1\xD9", L"\u03B1\u03A9"},
      {encodings::cp1254, "\xFD\xDE", L"\u0131\u015E"},
      {encodings::cp1255, "\xE0\xE9", L"\u05D0\u05D9"},
      {encodings::cp1256, "\xC8\x81", L"\u0628\u067E"},
      {encodings::cp1257, "\xC0\xFE", L"\u0104\u017E"},
      {encodings::cp1258, "\xFEn", L"\u20ABn"},
      {encodings::cp866, "\x8F\xE0\xF1", L"\u041F\u0440\u0451"},
      {encodings::ascii, "~+proj", L"~+proj"},
      // Gaps are control characters.
      {encodings::cp1251, "\xC6\x98\xC6", L"\u0416\u0098\u0416"},
      {encodings::cp1252, "\x81\xFC\x9D", L"\u0081\u00FC\u009D"},
      {encodings::cp1255, "\xE9\x81\xE0", L"\u05D9\u0081\u05D0"}};
  for (auto const& [encoding, bytes, text] : cases) {
    auto const* const name = zu::strconv::get_encoding(encoding).name;
    EXPECT_EQ(zu::strconv::decode(encoding, bytes), text) << name;
    EXPECT_EQ(zu::strconv::encode(encoding, text), bytes) << name;
  }
}

TEST(Code_page, what_cannot_be_converted_is_marked) {
  using zu::code_page::to_multi_byte;
  using zu::code_page::to_wide;
  EXPECT_EQ(to_multi_byte(1251, L"\u0416\u4E2D\u0416"), "\xC6?\xC6");
  EXPECT_EQ(to_multi_byte(1251, L"\u0088"), "?") << "there a letter stands";
  EXPECT_EQ(to_multi_byte(866, L"\u0098"), "?");
  EXPECT_EQ(to_wide(99999, "a"), L"");
  EXPECT_EQ(to_multi_byte(99999, L"a"), "");
  EXPECT_EQ(to_wide(1251, ""), L"");
}

// By the standard's rule of the longest part that could have become a letter;
// Windows goes one byte further where the second byte spoils it.
TEST(Code_page, broken_utf8_is_marked_once_for_what_belongs_together) {
  std::vector<std::pair<char const*, wchar_t const*>> const cases{
      {"a\xFFz", L"a\uFFFDz"},
      {"\xE2\x82", L"\uFFFD"},
      {"\xF0\x9F\x98z", L"\uFFFDz"},
      {"\xE4\xB8\xE4\xB8", L"\uFFFD\uFFFD"},
      {"\xC0\x80", L"\uFFFD\uFFFD"},
      {"\xED\xA0\x80", L"\uFFFD\uFFFD"},
      {"\xF0\x80\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD"},
      {"\xC6\xE2\xE0zz", L"\uFFFD\uFFFD\uFFFDzz"}};
  for (auto const& [bytes, text] : cases) EXPECT_EQ(zu::strconv::from_utf8(bytes), text) << bytes;
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
  for (auto const encoding : {encodings::utf_16, encodings::utf_32be}) {
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
    for (char const* name : core_test::comma_locales()) {
      Tc_locale const locale(name);
      EXPECT_EQ(recorded(zu::strconv::to_system(page.letters)), page.bytes) << name;
      EXPECT_EQ(zu::strconv::from_system(page.bytes), page.letters) << name;
      // Interface texts have their own page.
      EXPECT_EQ(zu::strconv::from_interface("\xC6"), L"\u0416") << name;
    }
    EXPECT_TRUE(zu::strconv::has_system_spelling(page.letters)) << page.encoding;
    for (wchar_t const* letter : page.foreign)
      EXPECT_FALSE(zu::strconv::has_system_spelling(letter)) << page.encoding;
  }
}

// In the system's page they are what definition files are read and written by.
TEST(Text_file, has_no_encoding_without_a_page) {
  Ttemp_folder const folder;
  std::wstring const name = folder.wide(L"f");
  EXPECT_TRUE(zu::fileio::writeall(name, encodings::utf_8, L"\uFEFF\u0416\n"));
  EXPECT_FALSE(zu::fileio::writeall(name, encodings::utf_16, L"a"));
  EXPECT_EQ(get_file(folder.file("f")), "\xEF\xBB\xBF\xD0\x96\n") << "a failure leaves the file";
  std::wstring text = L"before";
  EXPECT_FALSE(zu::fileio::readall(name, encodings::utf_16, text));
  EXPECT_EQ(text, L"before");
}

TEST(Text, trimming) {
  for (std::wstring text : {L"\v\f \r\n\ta \f", L"a"}) {
    zu::strutil::trim_inplace(text);
    EXPECT_EQ(text, L"a");
  }
  std::wstring blank = L" \v";
  zu::strutil::trim_inplace(blank);
  EXPECT_EQ(blank + L"|", L"|");
  EXPECT_EQ(zu::strutil::trim("..x.", "."), "x");
}

TEST(String_adapter, last_feed_wins_in_the_systems_page) {
  for (auto const& page : core_test::system_pages()) {
    Tsystem_page const system(page);
    std::string narrow;
    std::wstring wide;
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
    EXPECT_TRUE(narrow == page.bytes && wide == page.letters) << page.encoding;
    feed(page.letters, zu_string_adp_feed);
    EXPECT_TRUE(recorded(narrow) == page.bytes && wide == page.letters) << page.encoding;
    feed(static_cast<char const*>(nullptr), zu_string_adp_feed_c);
    EXPECT_TRUE(narrow.empty() && wide.empty());
    feed(L"x", zu_string_adp_feed);
    feed(static_cast<wchar_t const*>(nullptr), zu_string_adp_feed);
    EXPECT_TRUE(narrow.empty() && wide.empty());
  }
}

TEST(Type_ahead, finds_captions_and_then_words_by_their_first_letters) {
  std::vector<std::wstring> const captions{L"_custom",      L"wgs 84",     L"wgs 72",
                                           L"pz-90 (gost)", L"gost\x2011", L"pulkovo_1942"};
  for (auto const& [start, typed, found] :
       std::initializer_list<std::tuple<int, wchar_t const*, std::vector<int>>>{
           {0, L"wg", {1, 1}},
           {0, L"www", {1, 2, 1}},          // round
           {0, L"wgs 7", {1, 1, 1, 1, 2}},  // a blank is a letter, too
           {1, L"g", {4}},                  // begins one caption, and a word of one before
           {3, L"cu", {0, 0}},
           {5, L"19", {5, 5}},
           {0, L"90 (", {3, 3, 3, 3}},
           {0, L"ost", {-1, -1, -1}},
           {-1, L"_", {0}},
           {0, L"p|p", {3, 5}},  // after a pause
           {0, L"w|zg", {1, -1, -1}}}) {
    zu::Tzu_type_ahead keys;
    zu::Tzu_type_ahead::clock::time_point now;
    std::optional<std::size_t> current;
    if (start >= 0) current = start;
    std::vector<int> got;
    for (wchar_t const letter : std::wstring_view(typed)) {
      now += std::chrono::milliseconds(letter == L'|' ? 501 : 500);
      if (letter == L'|') continue;
      auto const position = keys.type(letter, now, captions, current);
      EXPECT_TRUE(keys.is_typing(now + keys.pause) && !keys.is_typing(now + keys.pause * 2));
      got.push_back(position ? static_cast<int>(*position) : -1);
      if (position) current = position;
    }
    EXPECT_EQ(got, found) << start << zu::strconv::to_utf8(typed);
  }
}

// A text of the interface in a language; the host's own is taken over first.
std::wstring interface_text(int lang, int group, int index) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(lang);
  return zu::strconv::from_interface(recorded(std::string(Tzu_rc::get_str(group, index))));
}

TEST(Interface_text, captions_of_the_dialog) {
  std::vector<std::tuple<int, int, wchar_t const*, wchar_t const*>> const cases{
      {0, 2, L"error", L"ошибка"},
      {6, 1, L"Spheroid", L"Название"},
      {6, 35, L"Projection parameters file *.pj4|*.pj4|ESRI projection  file *.prj|*.prj",
       L"Файл параметров проекции *.pj4|*.pj4|Файл проекции ESRI *.prj|*.prj"},
      {10, 1, L"Can't open file: \"%s\"", L"Не могу открыть файл: \"%s\""},
      {10, 2, L"Error reading file: \"%s\"", L"Ошибка записи в файл: \"%s\""},
      {10, 3, L"Error writing file: \"%s\"", L"Ошибка чтения из файла: \"%s\""},
      {7, 5, L"Shape files *.shp|*.shp|", L"Векторные файлы *.shp|*.shp|"},
      {8, 5, L"Image files *.tif|*.tif;*.tiff|", L"Файлы изображений *.tif|*.tif;*.tiff|"}};
  for (auto const& [group, index, english, russian] : cases) {
    EXPECT_EQ(interface_text(0, group, index), english) << group << ", " << index;
    EXPECT_EQ(interface_text(1, group, index), russian) << group << ", " << index;
  }
}

TEST(Interface_text, table_is_full_in_both_languages_and_ends_where_it_should) {
  std::wstring const none = L"unknown str";
  auto const is_latin = [](wchar_t c) { return c >= L' ' && c <= L'~'; };
  for (int group = 0; int const size : {5, 23, 12, 14, 4, 7, 36, 6, 6, 13, 4, 1}) {
    for (int index = 0; index < size; ++index) {
      auto const english = interface_text(0, group, index);
      auto const russian = interface_text(1, group, index);
      EXPECT_TRUE(english != none && !english.empty()) << group << ", " << index;
      EXPECT_TRUE(std::ranges::all_of(english, is_latin)) << group << ", " << index;
      EXPECT_FALSE(std::ranges::all_of(russian, is_latin)) << group << ", " << index;
      EXPECT_EQ(russian.find(L'\uFFFD'), std::wstring::npos) << group << ", " << index;
    }
    for (int const lang : {0, 1}) EXPECT_EQ(interface_text(lang, group, size), none) << group;
    ++group;
  }
  for (auto const& [group, index] : {std::pair(12, 0), {-1, 0}, {0, -1}, {1 << 30, 1 << 30}})
    EXPECT_EQ(interface_text(0, group, index), none) << group << ", " << index;
  EXPECT_EQ(interface_text(2, 5, 0), L"Apply") << "1 alone is Russian";
  for (auto const which : {zu::own_text::no_catalogue, zu::own_text::type_a_point}) {
    for (int const lang : {0, 1}) {
      Tzu_rc::set_lang(lang);
      std::wstring_view const text = zu::get_own_text(which);
      EXPECT_EQ(text.find_first_of(L"АБВГДЕНабвгдеио") == std::wstring_view::npos, lang == 0);
    }
  }
}

}  // namespace
