// Compares reading and writing a definition with PROJ making an object of the same text.

#include <benchmark/benchmark.h>
#include <proj.h>

#include <memory>

#include "proj4/proj4_str.h"
#include "ratio.h"

namespace {

constexpr char const* definition =
    "+proj=tmerc +lon_0=78.05 +lat_0=0 +x_0=4500000 +y_0=-5811057.628 +k_0=1 "
    "+towgs84=24.82,-131.21,-82.66,0,0,0.16,-0.12 +ellps=krass +units=m +lon_wrap=45 +no_defs";

void decompose_and_compose(benchmark::State& state) {
  Tzu_proj4_str set;
  for ([[maybe_unused]] auto _ : state) {
    set.set(definition);
    set.decompose();
    set.compose();
    benchmark::DoNotOptimize(set.get());
  }
  if (std::string_view(set.get()) != definition) state.SkipWithError("the text has changed");
}

void create_and_destroy(benchmark::State& state) {
  std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> const context(proj_context_create(),
                                                                             &proj_context_destroy);
  for ([[maybe_unused]] auto _ : state) {
    PJ* const object = proj_create(context.get(), definition);
    if (object == nullptr) {
      state.SkipWithError("PROJ does not take the definition");
      break;
    }
    proj_destroy(object);
  }
}

constexpr int repetitions = 9;
BENCHMARK(decompose_and_compose)->Repetitions(repetitions);
BENCHMARK(create_and_destroy)->Repetitions(repetitions);

}  // namespace

int main(int argc, char** argv) {
  return bench::run(argc, argv, "create_and_destroy", {{"decompose_and_compose", "at least 37"}});
}
