// Reads all values of a dBase table, and loads it as each table of the catalogue.
#include "catalogue/catalogue.h"
#include "catalogue/dbf.h"
#include "catalogue/pj_dbf.h"
#include "fuzz.h"

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static std::string const name = fuzz::folder().file("t.dbf");
  core_test::put_file(name, fuzz::text_of(data, size));
  Tzu_file_dbf table;
  if (table.open(name.c_str(), true) != 0) return 0;
  // The header may promise more records than there is time for.
  for (std::uint32_t record = 0; record < std::min(table.get_nr(), 100U); ++record) {
    table.set_rec(record);
    for (std::uint32_t field = 0; field < table.get_np(); ++field) {
      static_cast<void>(table.get_str(field));
      static_cast<void>(table.get_int(field));
      static_cast<void>(table.get_dbl(field));
      static_cast<void>(table.get_bool(field));
    }
  }
  Tzu_pj_ellipse_defs ellipses;
  Tzu_pj_datum_defs datums;
  Tzu_pj_proj_defs projections;
  Tzu_pj_dbf::load_pj_ellipse(name, ellipses);
  Tzu_pj_dbf::load_pj_datum(name, datums);
  Tzu_pj_dbf::load_pj_proj(name, projections);
  return 0;
}
