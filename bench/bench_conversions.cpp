// Compares conversions with the calls of GDAL that they need, and the search for a known
// system with comparing all of them.

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "epsg_survey.h"
#include "interchange/known_systems.h"
#include "interchange/proj4_conv.h"
#include "libproj.h"
#include "proj4/proj4_str.h"
#include "ratio.h"
#include "text/string_adapter.h"

namespace {

// The row in the middle, and a definition that differs from a row in one number.
constexpr std::size_t hit = 221;
constexpr char const* miss =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0.5 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";

void parse(Tzu_proj4_str& set, char const* definition) {
  set.set(definition);
  set.decompose();
}

void look_up(benchmark::State& state, char const* definition, bool expected) {
  std::string wkt;
  Tzu_std_string_adapter target(&wkt);
  zu::string_adp const adapter(target);
  for ([[maybe_unused]] auto _ : state)
    if (zu::proj4_conv::lookup_db(definition, adapter.get()) != expected)
      state.SkipWithError("not what was expected of the row");
}
void look_up_hit(benchmark::State& state) { look_up(state, zu::known_systems[hit].proj4, true); }
void look_up_miss(benchmark::State& state) { look_up(state, miss, false); }

void compare_all(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    Tzu_proj4_str wanted;
    parse(wanted, miss);
    for (zu::known_system const& row : zu::known_systems) {
      Tzu_proj4_str candidate;
      parse(candidate, row.proj4);
      if (candidate.equal(wanted)) state.SkipWithError("the row is none");
    }
  }
}

void export_esri(benchmark::State& state) {
  std::string wkt;
  Tzu_std_string_adapter target(&wkt);
  zu::string_adp const adapter(target);
  std::wstring const definition(miss, miss + std::char_traits<char>::length(miss));
  for ([[maybe_unused]] auto _ : state)
    if (!zu::proj4_conv().export_esri_pj(definition, adapter.get()))
      state.SkipWithError("not exported");
}

// Only the same calls of GDAL.
void export_by_gdal(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    zu::spatial_reference const system(OSRNewSpatialReference(nullptr));
    char* wkt = nullptr;
    std::array<double, 7> shift{};
    bool const imported = OSRImportFromProj4(system.get(), miss) == OGRERR_NONE;
    OSRGetTOWGS84(system.get(), shift.data(), static_cast<int>(shift.size()));
    benchmark::DoNotOptimize(OSRGetSemiMajor(system.get(), nullptr) +
                             OSRGetInvFlattening(system.get(), nullptr));
    if (!imported || OSRMorphToESRI(system.get()) != OGRERR_NONE ||
        OSRExportToWkt(system.get(), &wkt) != OGRERR_NONE)
      state.SkipWithError("not exported");
    zu::exported_text const owner(wkt);
  }
}

// A thousand codes from all parts of the EPSG data.
std::vector<std::string> const& thousand_codes() {
  static std::vector<std::string> const inputs = [] {
    libproj::Tcontext const context;
    auto const all = epsg_survey::codes(context, false);
    std::vector<std::string> chosen;
    for (std::size_t i = 0; i < 1000; ++i) chosen.push_back("EPSG:" + all[i * all.size() / 1000]);
    return chosen;
  }();
  return inputs;
}

void import_codes(benchmark::State& state) {
  std::string definition;
  Tzu_std_string_adapter target(&definition);
  zu::string_adp const adapter(target);
  std::vector<std::wstring> inputs;
  for (std::string const& input : thousand_codes()) inputs.emplace_back(input.begin(), input.end());
  for ([[maybe_unused]] auto _ : state)
    for (std::wstring const& input : inputs) zu::proj4_conv().import_crs(input, adapter.get());
}

void import_by_gdal(benchmark::State& state) {
  auto const& inputs = thousand_codes();
  CPLPushErrorHandler(&CPLQuietErrorHandler);
  for ([[maybe_unused]] auto _ : state)
    for (std::string const& input : inputs) {
      zu::spatial_reference const system(OSRNewSpatialReference(nullptr));
      char* text = nullptr;
      if (OSRSetFromUserInput(system.get(), input.c_str()) == OGRERR_NONE)
        OSRExportToProj4(system.get(), &text);
      zu::exported_text const owner(text);
    }
  CPLPopErrorHandler();
}

constexpr int repetitions = 9;
BENCHMARK(look_up_hit)->Repetitions(repetitions);
BENCHMARK(look_up_miss)->Repetitions(repetitions);
BENCHMARK(compare_all)->Repetitions(repetitions);
// The long benchmarks run in turn, so that other load on the machine slows down both.
BENCHMARK(export_esri)->Repetitions(repetitions);
BENCHMARK(export_by_gdal)->Repetitions(repetitions);
BENCHMARK(import_codes)->Iterations(1)->Repetitions(repetitions);
BENCHMARK(import_by_gdal)->Iterations(1)->Repetitions(repetitions);

}  // namespace

int main(int argc, char** argv) {
  return bench::run(argc, argv,
                    {{"look_up_hit", "compare_all", "at most 0.005"},
                     {"look_up_miss", "compare_all", "at most 0.005"},
                     {"export_esri", "export_by_gdal", "at most 1.1"},
                     {"import_codes", "import_by_gdal", "at most 1.1"}});
}
