// Code page and language, which the environment gives here.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core_support.h"
#include "text/rc.h"
#include "text/strconv.h"

namespace {

using core_test::Tenvironment;

TEST(Code_page_posix, the_systems_page_is_the_users_locales) {
  using texts = std::array<char const*, 4>;
  for (auto const& [all, ctype, lang, bytes] :
       {texts{"ru_RU.CP1251", "", "", "\xC6"}, texts{"", "ru_RU.KOI8-R", "ru_RU.CP1251", "\xF6"},
        texts{"", "", "xx_YY.CP866@euro", "\x86"}, texts{"", "", "ru_RU.UTF-8", "\xD0\x96"},
        texts{"C", "ru_RU.CP1251", "ru_RU.CP1251", "\xD0\x96"}, texts{"xx_YY", "", "", "\xD0\x96"},
        texts{"", "", "", "\xD0\x96"}}) {
    Tenvironment const environment{{"LC_ALL", all}, {"LC_CTYPE", ctype}, {"LANG", lang}};
    EXPECT_EQ(zu::strconv::to_system(L"\u0416"), bytes) << all << " " << ctype << " " << lang;
    EXPECT_EQ(zu::strconv::from_system(bytes), L"\u0416");
    EXPECT_EQ(zu::strconv::from_interface("\xC6"), L"\u0416")
        << "interface texts have their own page";
  }
}

// The language is taken once in a process, so each case needs its own.
void exit_with_texts(std::initializer_list<std::pair<char const*, char const*>> environment,
                     int set_first) {
  Tenvironment const variables(environment);
  if (set_first >= 0) Tzu_rc::set_lang(set_first);
  std::string text = Tzu_rc::get_str(5, 0);
  core_test::set_variable("LC_ALL", "de_DE.UTF-8");
  Tzu_rc::get_auto_lang();
  char const* const shown = Tzu_rc::get_str(5, 0);
  if (text != shown) text += " has changed";
  // The buffer is one: a pointer to it shows the newest text, however long.
  if (Tzu_rc::get_str(6, 35) != shown) text += " has moved";
  std::exit(text == "Apply" ? 0 : text == "\xCF\xF0\xE8\xEC\xE5\xED\xE8\xF2\xFC" ? 1 : 2);
}

TEST(Interface_text_posix_death, language_is_the_users_at_the_first_text) {
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
