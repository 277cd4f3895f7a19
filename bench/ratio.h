// Runs benchmarks and compares one of them with another one of the same run, its yardstick.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace bench {

// Shows the usual table and stores the median time of each benchmark. This is processor time,
// which other work on the machine changes less, unless the benchmark measures time itself.
class Treporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(std::vector<Run> const& runs) override {
    for (Run const& run : runs) {
      if (run.error_occurred) failed_ = true;
      if (run.aggregate_name == "median")
        medians_[run.run_name.function_name] = run.run_name.time_type == "manual_time"
                                                   ? run.GetAdjustedRealTime()
                                                   : run.GetAdjustedCPUTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }
  bool has_failed() const noexcept { return failed_; }
  // 0 when the benchmark was not chosen.
  double median(std::string const& name) const {
    auto const found = medians_.find(name);
    return found == medians_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> medians_;
  bool failed_ = false;
};

struct comparison {
  char const* name;
  char const* yardstick;
  char const* goal;
};

// Runs all. At the end prints for each `name` the ratio to its yardstick.
inline int run(int argc, char** argv, std::vector<comparison> const& comparisons) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  Treporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  if (reporter.has_failed()) return 1;
  for (comparison const& pair : comparisons) {
    double const own = reporter.median(pair.name);
    double const theirs = reporter.median(pair.yardstick);
    if (own > 0 && theirs > 0)
      std::printf("ratio of %s to %s: %.3g (goal: %s)\n", pair.name, pair.yardstick, own / theirs,
                  pair.goal);
  }
  return 0;
}

struct yardstick {
  char const* name;
  char const* goal;
};

// The same for one name and several yardsticks.
inline int run(int argc, char** argv, char const* name,
               std::initializer_list<yardstick> yardsticks) {
  std::vector<comparison> comparisons;
  for (yardstick const& other : yardsticks) comparisons.push_back({name, other.name, other.goal});
  return run(argc, argv, comparisons);
}

}  // namespace bench
