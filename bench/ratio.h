// Runs benchmarks and compares one of them with its yardstick of the same run.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
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

// Prints numerator / denominator beside the goal as the last line.
inline int run(int argc, char** argv, char const* numerator, char const* denominator,
               char const* goal) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  Treporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  if (reporter.has_failed()) return 1;
  double const above = reporter.median(numerator);
  double const below = reporter.median(denominator);
  if (above > 0 && below > 0) std::printf("ratio: %.3g (goal %s)\n", above / below, goal);
  return 0;
}

}  // namespace bench
