// What of definitions is no text that goes in and comes out: see cases/test_cases.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "core_support.h"
#include "proj4/proj4_str.h"
#include "text/rc.h"
#include "text/strconv.h"

namespace {

void read(Tzu_proj4_str& set, std::string const& text) {
  set.set(text.c_str());
  set.decompose();
}

std::string composed(std::string const& text) {
  Tzu_proj4_str set;
  read(set, text);
  set.compose();
  return core_test::recorded(std::string(set.get()));
}

TEST(Proj4_str, any_text_normalises_once) {
  std::mt19937 random(11);  // NOLINT(cert-msc51-cpp): repeatable
  constexpr std::array<char const*, 24> parts{
      "+",      "+",    "+proj=",  "+lon_0=", "+k=", "+R=",    "+towgs84=", "+south",
      "+zone=", "+a=",  "+ellps=", "+Units=", "=",   ",",      " ",         "\t",
      "\r\n",   "12.5", "-0.125",  "7",       "abc", "sphere", "\xFF",      "."};
  for (int i = 0; i < 5000; ++i) {
    std::string text;
    for (auto count = random() % 20; count > 0; --count) text += parts[random() % parts.size()];
    std::string const once = composed(text);
    ASSERT_EQ(composed(once), once) << text;
  }
}

TEST(Proj4_str, undefined_parameters_keep_their_value) {
  Tzu_proj4_str set;
  set.set(nullptr);
  read(set, "+proj=utm +zone=37 +lon_0=39 +towgs84=1,2,3");
  read(set, "+lon_0=abc");
  set.get_zone().set_def(true);
  set.get_lon_0().set_def(true);
  set.get_towgs84().set_def(true);
  set.get_south().set_def(true);
  set.compose();
  EXPECT_STREQ(set.get(), "+zone=37 +lon_0=39 +south +towgs84=1,2,3,0,0,0,0 +lon_wrap=45 +no_defs");
  EXPECT_TRUE(set.get_towgs84().val_from_str("1,x,3"));
  EXPECT_FALSE(set.get_towgs84().val_from_str("1,2,x")) << "the last one tried";
}

TEST(Proj4_str, is_described_in_the_page_of_the_captions) {
  Tzu_rc::get_auto_lang();
  Tzu_rc::set_lang(1);
  for (auto const& page : core_test::system_pages()) {
    core_test::Tsystem_page const now(page);
    if (!zu::strconv::has_system_spelling(L"\u20AC")) continue;
    Tzu_proj4_str set;
    read(set, "+datum=" + zu::strconv::to_system(L"\u20AC"));
    EXPECT_TRUE(core_test::recorded(std::string(set.get_text())).ends_with(" = \x88\r\n"))
        << page.encoding;
  }
}

}  // namespace
