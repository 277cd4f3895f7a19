// Compares loading the catalogue into records with reading every field of the same tables as
// text.

#include <benchmark/benchmark.h>
#include <shapefil.h>

#include <array>
#include <string>

#include "catalogue/pj_dbf.h"
#include "ratio.h"

namespace {

std::array<std::string, 4> table_names() {
  return {Tzu_pj_dbf::get_proj_db_path(), Tzu_pj_dbf::get_zone_db_path(),
          Tzu_pj_dbf::get_datum_db_path(), Tzu_pj_dbf::get_ellipse_db_path()};
}

void load_into_records(benchmark::State& state) {
  auto const [usual_name, zonal_name, datum_name, ellipse_name] = table_names();
  for ([[maybe_unused]] auto _ : state) {
    Tzu_pj_proj_defs usual;
    Tzu_pj_proj_defs zonal;
    Tzu_pj_datum_defs datums;
    Tzu_pj_ellipse_defs ellipses;
    if (Tzu_pj_dbf::load_pj_proj(usual_name, usual) != Tzu_pj_dbf::loaded ||
        Tzu_pj_dbf::load_pj_proj(zonal_name, zonal) != Tzu_pj_dbf::loaded ||
        Tzu_pj_dbf::load_pj_datum(datum_name, datums) != Tzu_pj_dbf::loaded ||
        Tzu_pj_dbf::load_pj_ellipse(ellipse_name, ellipses) != Tzu_pj_dbf::loaded) {
      state.SkipWithError("the catalogue does not load");
      break;
    }
    benchmark::DoNotOptimize(usual.get_size() + zonal.get_size() + datums.get_size() +
                             ellipses.get_size());
  }
}

void read_fields_as_text(benchmark::State& state) {
  auto const names = table_names();
  for ([[maybe_unused]] auto _ : state) {
    for (std::string const& name : names) {
      DBFInfo* const table = DBFOpen(name.c_str(), "rb");
      if (table == nullptr) {
        state.SkipWithError("shapelib does not open a table");
        break;
      }
      int const records = DBFGetRecordCount(table);
      int const fields = DBFGetFieldCount(table);
      for (int record = 0; record < records; ++record)
        for (int field = 0; field < fields; ++field)
          benchmark::DoNotOptimize(DBFReadStringAttribute(table, record, field));
      DBFClose(table);
    }
  }
}

constexpr int repetitions = 9;
BENCHMARK(load_into_records)->Repetitions(repetitions)->Unit(benchmark::kMicrosecond);
BENCHMARK(read_fields_as_text)->Repetitions(repetitions)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  return bench::run(argc, argv, "load_into_records", {{"read_fields_as_text", "at most 1"}});
}
