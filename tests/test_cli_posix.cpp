// The command-line program where the environment gives the locale.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli_support.h"

namespace {

using cli_test::local_system;

class Cli_posix : public cli_test::Cli {};

TEST_F(Cli_posix, TakesFileNamesInTheCharactersOfTheLocale) {
  for (auto const& [locale, name] :
       {std::pair{"ru_RU.UTF-8", "\xD1\x84.pj4"}, std::pair{"ru_RU.CP1251", "\xF4.pj4"}}) {
    core_test::Tenvironment const environment{{"LC_ALL", locale}};
    std::string const file = path(name);
    cli_test::expect_lines(run({"save", local_system, file}), "");
    EXPECT_TRUE(std::filesystem::exists(file)) << locale;
    cli_test::expect_lines(run({"load", file}), std::string(local_system) + "\n");
  }
}

TEST_F(Cli_posix, NoticesAFullDiskAndTheLackOfADisplay) {
  EXPECT_EQ(run({"save", local_system, "/dev/full"}).status, 2);
  auto const edited = run({"edit", local_system});
  EXPECT_EQ(edited.status, 2);
  EXPECT_NE(edited.err.find("display"), std::string::npos);
  EXPECT_EQ(edited.err.find('\n'), edited.err.size() - 1);
}

TEST_F(Cli_posix, GivesTheSameInEveryLocale) {
  for (auto const& command :
       std::vector<std::vector<std::string>>{{"normalize", local_system},
                                             {"apply", local_system},
                                             {"apply", "+proj=utm +zone=37 +south +ellps=intl"},
                                             {"catalogue", "ellipsoids"},
                                             {"catalogue", "datums", "--json"},
                                             {"catalogue", "zonal", "--json"},
                                             {"load", path("missing.pj4")}}) {
    auto const expected = run(command);
    for (char const* locale : {"ru_RU.UTF-8", "de_DE.UTF-8", "ru_RU.CP1251"}) {
      core_test::Tenvironment const environment{{"LC_ALL", locale}};
      auto const result = run(command);
      EXPECT_EQ(result.status, expected.status) << locale;
      EXPECT_EQ(result.out, expected.out) << locale;
      EXPECT_EQ(result.err, expected.err) << locale;
    }
  }
}

}  // namespace
