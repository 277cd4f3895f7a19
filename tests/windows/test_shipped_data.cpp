// The command-line program and PROJ's database beside it, in folders of any name.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "core_support.h"

namespace {

namespace fs = std::filesystem;
using core_test::outcome;

constexpr char const* known_zone_7 =
    "+proj=tmerc +lon_0=39 +lat_0=0 +x_0=7500000 +y_0=0 +k_0=1 "
    "+towgs84=23.57,-140.95,-79.8,0,0.35,0.79,-0.22 +ellps=krass +units=m +lon_wrap=45 +no_defs";
fs::path const program = ZU_PJ4;
fs::path const shipped_database = program.parent_path() / "proj.db";

// The program in a folder of this name, without a database.
class Tcopy {
 public:
  explicit Tcopy(std::string const& name)
      : path_(folder_.file(name)), native_(core_test::shell_path(path_)) {
    fs::create_directory(native_);
    fs::copy(program, native_ / program.filename());
  }

  fs::path database() const { return native_ / "proj.db"; }

  outcome run(std::vector<std::string> arguments, std::string input = "") const {
    return core_test::run(
        {path_ + "/" + program.filename().string(), std::move(arguments), std::move(input)});
  }

 private:
  core_test::Ttemp_folder const folder_;
  std::string path_;
  fs::path native_;
  // Nothing else tells where the database is.
  core_test::Tenvironment const environment_{{"PROJ_DATA", nullptr}, {"PROJ_LIB", nullptr}};
};

// What GDAL and PROJ would do in part has to fail, too: the datum is lost then.
void expect_quiet_failures(Tcopy const& copy, std::string const& what) {
  SCOPED_TRACE(what);
  // Another database is no help.
  fs::current_path(shipped_database.parent_path());
  std::string const known = copy.run({"to-esri", known_zone_7}).out;
  EXPECT_TRUE(known.starts_with("PROJCS[\"Pulkovo_1942_GK_Zone_7\"")) << known;
  std::vector<outcome> const failed{copy.run({"import", "EPSG:28407"}),
                                    copy.run({"import", "ESRI:102025"}),
                                    copy.run({"import", "Pulkovo 1942"}),
                                    copy.run({"to-esri", "+proj=utm +zone=37 +datum=WGS84"}),
                                    copy.run({"from-esri", "-"}, known)};
  for (outcome const& result : failed) {
    EXPECT_NE(result.status, 0);
    EXPECT_TRUE(result.out == "\n" || result.out.empty()) << result.out;
    // One message, and nothing that GDAL and PROJ say by themselves.
    EXPECT_TRUE(result.err.starts_with("Error: ")) << result.err;
    EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
  }
}

TEST(Shipped_database, may_be_missing_or_damaged) {
  Tcopy const copy("copy");
  expect_quiet_failures(copy, "missing");
  for (char const* content : {"", "text", "SQLite format 3"}) {
    core_test::put_file(copy.database().string(), content);
    expect_quiet_failures(copy, content);
  }
  fs::copy(shipped_database, copy.database(), fs::copy_options::overwrite_existing);
  fs::resize_file(copy.database(), fs::file_size(copy.database()) / 3);
  expect_quiet_failures(copy, "cut");
  fs::remove(copy.database());
  fs::create_directory(copy.database());
  expect_quiet_failures(copy, "a folder");
}

}  // namespace
