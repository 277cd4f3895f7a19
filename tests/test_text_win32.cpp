// The interface's language, which the system gives here.

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstdlib>
#include <string_view>

#include "text/rc.h"

namespace {

bool is_users_language_russian() {
  ULONG count = 0;
  std::array<wchar_t, 256> names{};
  auto size = static_cast<ULONG>(names.size());
  return GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, names.data(), &size) != 0 &&
         std::wstring_view(names.data()).starts_with(L"ru");
}

// The language is taken once in a process, so each case needs its own.
void exit_with_language(int set_first) {
  if (set_first >= 0) Tzu_rc::set_lang(set_first);
  std::string_view const text = Tzu_rc::get_str(5, 0);
  std::exit(text == "Apply" ? 0 : text == "\xCF\xF0\xE8\xEC\xE5\xED\xE8\xF2\xFC" ? 1 : 2);
}

TEST(Interface_text_win32_death, language_is_the_users_at_the_first_text) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  int const expected = is_users_language_russian() ? 1 : 0;
  for (int const set_first : {-1, 0, 1})
    EXPECT_EXIT(exit_with_language(set_first), testing::ExitedWithCode(expected), "");
}

}  // namespace
