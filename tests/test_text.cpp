#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include "basic/code_page.h"
#include "core_support.h"
#include "proj4/proj4_str.h"
#include "text/rc.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "text/type_ahead.h"

namespace {

using core_test::recorded;
using core_test::Tc_locale;
using core_test::Tsystem_page;
using zu::strconv::encodings;

// The same on every platform: the record is compared.
TEST(Code_page, all_bytes) {
  for (unsigned const page : {1250U, 1251U, 1252U, 1254U, 1256U, 866U}) {
    std::string bytes;
    for (unsigned byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    std::wstring const text = zu::code_page::to_wide(page, bytes);
    EXPECT_EQ(recorded(text).size(), bytes.size()) << page;
    EXPECT_EQ(recorded(zu::code_page::to_multi_byte(page, text)), bytes) << page;
  }
}

TEST(Code_page, long_texts_and_zero_bytes_stay_whole) {
  std::wstring text(5001, L'\u20AC');
  text[4096] = L'\0';
  std::string const bytes = zu::strconv::to_utf8(text);
  EXPECT_EQ(bytes.size(), 3 * 5000U + 1);
  EXPECT_EQ(zu::strconv::from_utf8(bytes), text);
}

TEST(Code_page, names_of_rows) {
  // Hosts know these two rows by each other's name.
  EXPECT_STREQ(zu::strconv::get_encoding(encodings::utf_32le).synonym, "UTF-32BE");
  EXPECT_STREQ(zu::strconv::get_encoding(encodings::utf_32be).synonym, "UTF-32LE");
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

TEST(Proj4_str, is_described_in_the_page_of_the_captions) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(1);
  for (auto const& page : core_test::system_pages()) {
    Tsystem_page const system(page);
    if (!zu::strconv::has_system_spelling(L"\u20AC")) continue;
    Tzu_proj4_str set;
    set.set(("+datum=" + zu::strconv::to_system(L"\u20AC")).c_str());
    set.decompose();
    EXPECT_TRUE(recorded(std::string(set.get_text())).ends_with(" = \x88\r\n")) << page.encoding;
  }
}

// The C-style layer's test tests single parameters.
TEST(Proj4_str, undefined_parameters_keep_their_value) {
  Tzu_proj4_str set;
  for (char const* text : {"+proj=utm +zone=37 +lon_0=39 +towgs84=1,2,3", "+lon_0=abc"}) {
    set.set(text);
    set.decompose();
  }
  set.get_zone().set_def(true);
  set.get_lon_0().set_def(true);
  set.get_towgs84().set_def(true);
  set.compose();
  EXPECT_STREQ(set.get(), "+zone=37 +lon_0=39 +towgs84=1,2,3,0,0,0,0 +lon_wrap=45 +no_defs");
}

}  // namespace
