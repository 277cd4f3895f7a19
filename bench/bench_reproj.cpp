// Compares transforming points between a zone of Pulkovo 1942 and WGS 84 with the same
// operation called in PROJ directly. Each round transforms there and back.

#include <benchmark/benchmark.h>
#include <proj.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <vector>

#include "ratio.h"
#include "reproj/reproj_d2.h"
#include "reproj/reproj_xy_exec.h"

namespace {

constexpr char const* zone =
    "+proj=tmerc +lon_0=39 +x_0=7500000 +k_0=1 +towgs84=23.57,-140.95,-79.8,0,-0.35,-0.79,-0.22 "
    "+ellps=krass +units=m +lon_wrap=45 +no_defs";
constexpr char const* wgs84 = "+proj=longlat +datum=WGS84 +lon_wrap=45 +no_defs";
constexpr std::size_t million = 1000000;
constexpr std::size_t few = 5;

// Points in all parts of the zone. Every `bad`-th point is not valid; 0 means that all are
// valid.
Tzu_xy_array make_points(std::size_t size, std::size_t bad = 0) {
  Tzu_xy_array points;
  points.set_size(size);
  for (std::size_t i = 0; i < size; ++i) {
    std::size_t const row = i / 1000;
    points.set_xy(i, 7400000 + 200.0 * static_cast<double>(i % 1000),
                  5000000 + 2000.0 * static_cast<double>(row));
    if (bad != 0 && i % bad == 0) points.set_x(i, std::numeric_limits<double>::quiet_NaN());
  }
  return points;
}

class Tbare {
 public:
  Tbare() : context_(zu::proj_library::make_context()) {
    zu::proj_library::object const found(
        proj_create_crs_to_crs(context_.get(), zone, wgs84, nullptr));
    operation_.reset(proj_normalize_for_visualization(context_.get(), found.get()));
  }
  void apply(std::size_t count, double* x, double* y, PJ_DIRECTION direction) {
    proj_trans_generic(operation_.get(), direction, x, sizeof(double), count, y, sizeof(double),
                       count, nullptr, 0, 0, nullptr, 0, 0);
  }

 private:
  zu::proj_library::context context_;
  zu::proj_library::object operation_;
};

// Runs rounds and also measures the elapsed time, which includes the work of all threads.
template <class Round>
void run_rounds(benchmark::State& state, Round round) {
  for ([[maybe_unused]] auto _ : state) {
    auto const start = std::chrono::steady_clock::now();
    round();
    std::chrono::duration<double> const taken = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(taken.count());
  }
}

void check(benchmark::State& state, Tzu_xy_array const& points) {
  auto const wanted = make_points(points.get_size());
  std::size_t const last = points.get_size() - 1;
  // A round loses the heights. That moves a point by less than this.
  if (!(std::abs(points.get_x(last) - wanted.get_x(last)) < 1))
    state.SkipWithError("the round has not led back");
}

template <class Transformer, class Direction>
void run_pieces(benchmark::State& state, Transformer& transformer, std::size_t piece,
                Direction there, Direction back) {
  auto points = make_points(million);
  run_rounds(state, [&] {
    for (Direction const direction : {there, back})
      for (std::size_t i = 0; i < million; i += piece)
        transformer.apply(std::min(piece, million - i), points.get_x_ptr() + i,
                          points.get_y_ptr() + i, direction);
  });
  check(state, points);
}

void run_own(benchmark::State& state, std::size_t piece) {
  Tzu_reproj_xy_exec exec;
  exec.init(zone, wgs84);
  run_pieces(state, exec, piece, reproj_direction::forward, reproj_direction::backward);
}

void run_bare(benchmark::State& state, std::size_t piece) {
  Tbare operation;
  run_pieces(state, operation, piece, PJ_FWD, PJ_INV);
}

void bare_array(benchmark::State& state) { run_bare(state, million); }
void bare_array_on_one_processor(benchmark::State& state) { run_bare(state, million); }
void array(benchmark::State& state) { run_own(state, million); }
// Pieces that are too short to be divided stay on one processor.
void array_on_one_processor(benchmark::State& state) {
  run_own(state, Tzu_reproj_xy_exec::get_parallel_size() - 1);
}
void bare_shortest_shared(benchmark::State& state) {
  run_bare(state, Tzu_reproj_xy_exec::get_parallel_size());
}
void shortest_shared(benchmark::State& state) {
  run_own(state, Tzu_reproj_xy_exec::get_parallel_size());
}

void polyline(benchmark::State& state) {
  Tzu_reproj_fb_d2 d2;
  d2.init_ex(zone, wgs84);
  auto points = make_points(million);
  zu::prg::pv_d2 const sequence(zu_pv_d2_create(million));
  Tzu_vtx_d2 vertex{};
  for (std::size_t i = 0; i < million; ++i) {
    zu_vtx_d2_init_xy(&vertex, points.get_x(i), points.get_y(i));
    zu_pv_d2_set_vtx(sequence.get(), i, &vertex);
  }
  run_rounds(state, [&] {
    d2.apply_pv(sequence.get(), true);
    d2.apply_pv(sequence.get(), false);
  });
  zu_pv_d2_get_vtx(sequence.get(), million - 1, &vertex);
  points.set_xy(million - 1, vertex.x, vertex.y);
  check(state, points);
}

// A hundred thousand small sequences, as in a host.
class Tshort_sequences {
 public:
  static constexpr std::size_t count = 100000;

  Tshort_sequences() : set_(zu_ov_d2_create(count)) {
    for (std::size_t i = 0; i < count; ++i) zu_pv_d2_set_size(get(i), few);
    for (std::size_t i = 0; i < count * few; ++i) {
      Tzu_vtx_d2 const vertex{points_.get_x(i), points_.get_y(i)};
      zu_pv_d2_set_vtx(get(i / few), i % few, &vertex);
    }
  }
  Tzu_pp2d* get(std::size_t index) { return zu_ov_d2_get_pv_ptr(set_.get(), index); }
  void check(benchmark::State& state) {
    Tzu_vtx_d2 vertex{};
    zu_pv_d2_get_vtx(get(count - 1), few - 1, &vertex);
    points_.set_xy(count * few - 1, vertex.x, vertex.y);
    ::check(state, points_);
  }

 private:
  Tzu_xy_array points_ = make_points(count * few);
  zu::prg::ov_d2 set_;
};

void short_sequences(benchmark::State& state) {
  Tzu_reproj_fb_d2 d2;
  d2.init_ex(zone, wgs84);
  Tshort_sequences sequences;
  run_rounds(state, [&] {
    for (bool const forward : {true, false})
      for (std::size_t i = 0; i < Tshort_sequences::count; ++i)
        d2.apply_pv(sequences.get(i), forward);
  });
  sequences.check(state);
}

void bare_short_sequences(benchmark::State& state) {
  Tbare operation;
  Tshort_sequences sequences;
  run_rounds(state, [&] {
    for (PJ_DIRECTION const direction : {PJ_FWD, PJ_INV})
      for (std::size_t i = 0; i < Tshort_sequences::count; ++i)
        for (std::size_t k = 0; k < few; ++k) {
          Tzu_vtx_d2 vertex{};
          zu_pv_d2_get_vtx(sequences.get(i), k, &vertex);
          operation.apply(1, &vertex.x, &vertex.y, direction);
          zu_pv_d2_set_vtx(sequences.get(i), k, &vertex);
        }
  });
  sequences.check(state);
}

// Without copying into the geometry and out of it.
void bare_short_arrays(benchmark::State& state) {
  Tbare operation;
  auto points = make_points(Tshort_sequences::count * few);
  run_rounds(state, [&] {
    for (PJ_DIRECTION const direction : {PJ_FWD, PJ_INV})
      for (std::size_t i = 0; i < points.get_size(); i += few)
        operation.apply(few, points.get_x_ptr() + i, points.get_y_ptr() + i, direction);
  });
  check(state, points);
}

void run_with_bad(benchmark::State& state, std::size_t bad) {
  Tzu_reproj_xy_exec exec;
  exec.init(zone, wgs84);
  auto points = make_points(million, bad);
  run_rounds(state, [&] {
    exec.apply(points, reproj_direction::forward);
    exec.apply(points, reproj_direction::backward);
  });
}
void all_bad(benchmark::State& state) { run_with_bad(state, 1); }
void half_bad(benchmark::State& state) { run_with_bad(state, 2); }
void one_bad(benchmark::State& state) { run_with_bad(state, million); }

constexpr int repetitions = 9;
// Elapsed time for benchmarks that use several processors, else processor time.
BENCHMARK(bare_array)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(array)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(polyline)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(all_bad)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(half_bad)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(one_bad)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(bare_shortest_shared)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(shortest_shared)->Repetitions(repetitions)->UseManualTime();
BENCHMARK(bare_array_on_one_processor)->Repetitions(repetitions);
BENCHMARK(array_on_one_processor)->Repetitions(repetitions);
BENCHMARK(bare_short_arrays)->Repetitions(repetitions);
BENCHMARK(bare_short_sequences)->Repetitions(repetitions);
BENCHMARK(short_sequences)->Repetitions(repetitions);

}  // namespace

int main(int argc, char** argv) {
  return bench::run(argc, argv,
                    {{"array_on_one_processor", "bare_array_on_one_processor", "at most 1.02"},
                     {"array", "bare_array", "at most 0.526 on two processors"},
                     {"polyline", "bare_array", "at most 0.526 on two processors"},
                     {"shortest_shared", "bare_shortest_shared", "below 1 on two processors"},
                     {"short_sequences", "bare_short_sequences", "at most 1"},
                     {"short_sequences", "bare_short_arrays", "for information"},
                     {"all_bad", "array", "at most 1"},
                     {"half_bad", "array", "at most 1"},
                     {"one_bad", "array", "at most 1"}});
}
