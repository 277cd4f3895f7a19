// The known systems by the command-line program; cases has its other conversions.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "basic/str.h"
#include "cli_support.h"

namespace {

constexpr char const* zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";
class Cli_conversions : public cli_test::Cli {};

// The dialog writes seven numbers beside a datum's key, which two of them have not.
TEST_F(Cli_conversions, KnowsSystemsByDefinitionAlsoAfterTheDialog) {
  auto const lines_of = [](std::string const& text) { return zu::str::split(text, "\n"); };
  auto const list = run({"known", "--list"}).out;
  EXPECT_EQ(std::ranges::count(list, '\n'), 442);
  EXPECT_NE(list.find(std::string("\n73\tPulkovo_1942_GK_Zone_7\tconfirmed\t") + zone_7),
            std::string::npos);
  std::string definitions;
  for (auto const row : lines_of(list)) {
    // Placeholders are not for use.
    if (row.empty() || row.ends_with("\tunconfirmed\t")) continue;
    EXPECT_NE(row.find("\tconfirmed\t+proj="), std::string_view::npos) << row;
    definitions.append(row.substr(row.rfind('\t') + 1)).append("\n");
  }
  EXPECT_EQ(std::ranges::count(definitions, '\n'), 381);
  auto const direct = run({"to-esri", "-"}, definitions).out;
  auto const edited = run({"to-esri", "-"}, run({"apply", "-"}, definitions).out).out;
  auto const before = lines_of(direct);
  auto const after = lines_of(edited);
  ASSERT_EQ(before.size(), after.size());
  std::vector<std::string> changed;
  for (std::size_t i = 0; i < before.size(); ++i)
    for (auto const text : {before[i], after[i]})
      if (before[i] != after[i]) changed.emplace_back(text.substr(0, text.find(',')));
  EXPECT_EQ(changed, (std::vector<std::string>{"GEOGCS[\"GCS_WGS_1984\"", "GEOGCS[\"GCS_unknown\"",
                                               "PROJCS[\"Russia_Cadastre_77_1\"", ""}));
}

}  // namespace
