#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core_support.h"

namespace {

// The program that starts it may have switched traps on.
TEST(Layer_linux, the_program_is_masked_as_a_whole) {
  for (std::vector<std::string> const& words : std::vector<std::vector<std::string>>{
           {"apply", "+proj=longlat +R=6371000"},
           {"normalize", "+proj=stere +lat_0=90 +lat_ts=70 +a=6378137 +b=6356752"},
           {"import", "EPSG:28407"},
           {"describe", "EPSG:3575"},
           {"catalogue", "ellipsoids"},
           {"transform", "--from", "EPSG:4326", "--to", "+proj=merc +R=6371000"}}) {
    core_test::command const wanted{ZU_PJ4, words, "37.5 55.5\n0 90\n1e300 nan\n"};
    auto const masked = core_test::run(wanted);
    // The address sanitizer wants to be loaded first.
    core_test::set_variable("ASAN_OPTIONS", "verify_asan_link_order=0");
    core_test::set_variable("LD_PRELOAD", ZU_FLOAT_TRAPS);
    auto const trapping = core_test::run(wanted);
    for (char const* const name : {"LD_PRELOAD", "ASAN_OPTIONS"})
      core_test::set_variable(name, nullptr);
    EXPECT_EQ(trapping.out, masked.out) << words.front();
    EXPECT_EQ(trapping.status, masked.status) << words.front() << trapping.err;
    EXPECT_FALSE(masked.out.empty()) << words.front() << masked.err;
  }
}

}  // namespace
