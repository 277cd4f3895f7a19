// Random use of all that is exported, for as long as one likes, in one process:
// nothing may pile up, and nothing may depend on what was done before. The number
// of acts is ZU_SOAK_ACTS, or a few.

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <random>

#include "core_support.h"
#include "soak_acts.h"
#include "vcl/toolkit.h"

namespace {

// Numbers of acts that are there; each comes up again and again.
constexpr std::size_t different_acts = 200;

struct usage {
  std::size_t bytes;    // in use, of the C library's memory
  std::size_t files;    // open
  std::size_t threads;  // running
};

std::size_t count_entries(char const* folder) {
  std::filesystem::directory_iterator const entries(folder);
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

usage now() {
  return {mallinfo2().uordblks, count_entries("/proc/self/fd"), count_entries("/proc/self/task")};
}

TEST(Soak, nothing_piles_up_and_nothing_is_remembered) {
  char const* const wanted = std::getenv("ZU_SOAK_ACTS");
  std::size_t const acts = wanted == nullptr ? 600 : std::strtoull(wanted, nullptr, 10);
  std::mt19937 random(5);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
  std::vector<std::optional<std::size_t>> outcomes(different_acts);
  std::vector<usage> usages;
  // All once, which fills what is kept for good; then by chance.
  for (std::size_t i = 0; i < different_acts + acts; ++i) {
    std::size_t const number = i < different_acts ? i : random() % different_acts;
    std::size_t const outcome = std::hash<std::string>()(soak::act(number));
    ASSERT_EQ(outcomes[number].value_or(outcome), outcome) << "act " << number;
    outcomes[number] = outcome;
    if (i + 1 >= different_acts &&
        (i + 1 - different_acts) % std::max<std::size_t>(acts / 4, 1) == 0)
      usages.push_back(now());
  }
  for (usage const& each : usages)
    std::printf("%zu bytes, %zu files, %zu threads\n", each.bytes, each.files, each.threads);
  // The toolkit's own come and go.
  EXPECT_LE(usages.back().files, usages[1].files + 2);
  EXPECT_LE(usages.back().threads, usages[1].threads + 2);
  EXPECT_LT(usages.back().bytes, usages[1].bytes + 65536 + 20 * acts);
  // A process that does nothing else does the same.
  for (std::size_t number = 0; number < different_acts; number += wanted == nullptr ? 20 : 1) {
    auto const alone =
        core_test::run({core_test::program_path().string(), {"--act", std::to_string(number)}, ""});
    EXPECT_EQ(alone.out, std::to_string(outcomes[number].value())) << "act " << number << alone.err;
  }
}

}  // namespace

int main(int argc, char** argv) {
  // For what waits for the forms; the library would start it with the first one.
  zu::vcl::start();
  if (argc == 3 && std::string_view(argv[1]) == "--act") {
    std::printf("%zu", std::hash<std::string>()(soak::act(std::strtoull(argv[2], nullptr, 10))));
    return 0;
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
