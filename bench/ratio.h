// Runs benchmarks and compares one of them with its yardstick of the same run.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <initializer_list>
#include <map>
#include <string>

namespace bench {

// Shows the usual table and keeps the median time of each benchmark, that of the
// processor unless it measures itself: other work on the machine counts less.
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
  // 0 when the benchmark was not among those chosen.
  double median(std::string const& name) const {
    auto const found = medians_.find(name);
    return found == medians_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> medians_;
  bool failed_ = false;
};

struct yardstick {
  char const* name;
  char const* goal;
};

// Runs all and prints, last, how often `name` takes the time of each yardstick.
inline int run(int argc, char** argv, char const* name,
               std::initializer_list<yardstick> yardsticks) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  Treporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  if (reporter.has_failed()) return 1;
  double const own = reporter.median(name);
  for (yardstick const& other : yardsticks) {
    double const theirs = reporter.median(other.name);
    if (own > 0 && theirs > 0)
      std::printf("ratio to %s: %.3g (goal: %s)\n", other.name, own / theirs, other.goal);
  }
  return 0;
}

}  // namespace bench
