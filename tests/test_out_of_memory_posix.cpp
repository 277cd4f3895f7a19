// Memory that runs out in calls of GDAL and PROJ. They may end the program when they get
// no memory; so these tests deny it to them in child processes.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>
#include <vector>

#include "esri_text.h"
#include "failing_allocator.h"
#include "reproj/reproj_d2.h"
#include "reproj/reproj_xy_exec.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace {

using failing_allocator::deny_each;
using failing_allocator::lack;
using failing_allocator::made_by;

constexpr wchar_t const* wgs_84 = L"+proj=longlat +datum=WGS84 +no_defs";
constexpr wchar_t const* zone_7 =
    L"+proj=tmerc +lon_0=39 +x_0=7500000 +towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 "
    L"+ellps=krass +units=m +no_defs";

// A point of Moscow in zone 7, some thousand times over.
std::string transform(std::size_t count) {
  Tzu_reproj_fb_d2 reproj;
  if (!reproj.init_crs(wgs_84, zone_7)) return "failed";
  std::vector<double> x(count, 37.6);
  std::vector<double> y(count, 55.7);
  if (!reproj.apply_xy(count, x.data(), y.data(), true)) return "failed";
  for (std::size_t i = 1; i < count; ++i)
    if (x[i] != x[0] || y[i] != y[0]) return "points differ";
  return std::to_string(x[0]) + " " + std::to_string(y[0]);
}

struct road {
  std::string (*go)();
  char const* right;  // as cs2cs, gdalsrsinfo and the dialog's users have it
};

constexpr char const* moscow = "7412094.002925 6176150.953160";
constexpr char const* zone_7_out =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +units=m +no_defs";
constexpr char const* code_out =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs";
constexpr char const* conic_out =
    R"(PROJCS["unknown",GEOGCS["GCS_unknown",DATUM["D_Unknown_based_on_Krassovsky_1942_ellipsoid",)"
    R"(SPHEROID["Krassovsky_1942",6378245.0,298.3]],PRIMEM["Paris",2.33722917],)"
    R"(UNIT["Degree",0.0174532925199433]],PROJECTION["Lambert_Conformal_Conic"],)"
    R"(PARAMETER["False_Easting",0.0],PARAMETER["False_Northing",0.0],)"
    R"(PARAMETER["Central_Meridian",10.0],PARAMETER["Standard_Parallel_1",52.0],)"
    R"(PARAMETER["Standard_Parallel_2",52.0],PARAMETER["Latitude_Of_Origin",52.0],)"
    R"(UNIT["Meter",1.0]])";
std::string import_wkt() {
  std::string const text = core_test::zone_7_wkt;
  std::wstring const wkt(text.begin(), text.end());
  return made_by([&](auto* to) { return zu_pj4_import_esri_prj(wkt.c_str(), to); });
}
std::string import_code() {
  return made_by([](auto* to) { return zu_pj4_import_crs(L"EPSG:28407", to); });
}
std::string export_by_gdal() {
  auto const* const conic = L"+proj=lcc +lat_1=52 +lon_0=10 +pm=paris +ellps=krass";
  return made_by([conic](auto* to) { return zu_pj4_export_esri(conic, to); });
}
std::string transform_one() { return transform(1); }
std::string transform_many() { return transform(Tzu_reproj_xy_exec::get_parallel_size() * 2); }

constexpr std::array roads{road{&import_wkt, zone_7_out}, road{&import_code, code_out},
                           road{&export_by_gdal, conic_out}, road{&transform_one, moscow},
                           road{&transform_many, moscow}};

TEST(OutOfMemory_posix, denied_to_the_library) {
  for (road const& wanted : roads)
    deny_each(wanted.go, wanted.right, {.gives_back = false, .counts = failing_allocator::own});
}

// How a child ends when its n-th allocation fails.
enum ending { right, wrong, needs_no_more };

TEST(OutOfMemory_posix, denied_to_the_libraries_below) {
  for (road const& wanted : roads) {
    ASSERT_EQ(wanted.go(), wanted.right);
    constexpr std::size_t step = 101;
    std::size_t gone = 0;
    std::size_t ended_below = 0;
    for (std::size_t nth = 1;; nth += step, ++gone) {
      pid_t const child = fork();
      ASSERT_GE(child, 0);
      if (child == 0) {
        close(STDERR_FILENO);
        failing_allocator::arm(nth, lack::once);
        std::string const got = failing_allocator::outcome(wanted.go);
        if (!failing_allocator::disarm()) _exit(needs_no_more);
        bool const may_be = got == wanted.right || got == "failed";
        _exit(may_be && wanted.go() == wanted.right ? right : wrong);
      }
      int status = 0;
      ASSERT_EQ(waitpid(child, &status, 0), child);
      if (WIFSIGNALED(status)) ++ended_below;
      if (!WIFEXITED(status)) continue;
      if (WEXITSTATUS(status) == needs_no_more) break;
      EXPECT_EQ(WEXITSTATUS(status), right) << wanted.right << ", denied " << nth;
    }
    EXPECT_LE(ended_below * 10, gone) << wanted.right << ", of " << gone;
  }
}

}  // namespace
