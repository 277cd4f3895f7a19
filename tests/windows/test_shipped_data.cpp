// The command-line program and PROJ's database beside it, in folders of any name.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "core_support.h"

namespace {

namespace fs = std::filesystem;
using core_test::outcome;

constexpr char const* zone_7 =
    "+proj=tmerc +lat_0=0 +lon_0=39 +k=1 +x_0=7500000 +y_0=0 +ellps=krass +units=m +no_defs";

// The program in a folder of this name, without a database.
class Tcopy {
 public:
  explicit Tcopy(std::string const& name)
      : path_(folder_.file(name)), native_(core_test::shell_path(path_)) {
    fs::create_directory(native_);
    fs::copy(program_, native_ / program_.filename());
  }

  fs::path database() const { return native_ / "proj.db"; }
  static fs::path shipped_database() { return program_.parent_path() / "proj.db"; }

  outcome run(std::vector<std::string> arguments) const {
    return core_test::run({path_ + "/" + program_.filename().string(), std::move(arguments), ""});
  }

 private:
  inline static fs::path const program_ = ZU_PJ4;
  core_test::Ttemp_folder const folder_;
  std::string path_;
  fs::path native_;
  // Nothing else tells where the database is.
  core_test::Tenvironment const environment_{{"PROJ_DATA", nullptr}, {"PROJ_LIB", nullptr}};
};

TEST(Shipped_database, is_found_beside_the_program) {
  for (char const* name : {"plain", "with blanks", "\u041A\u0430\u0440\u0442\u0430 1",
                           "\u00FC \u03B1 \u4E2D", "\U0001F600"}) {
    Tcopy const copy(name);
    fs::copy(Tcopy::shipped_database(), copy.database());
    outcome const imported = copy.run({"import", "EPSG:28407"});
    EXPECT_EQ(imported.out, std::string(zone_7) + "\n") << name;
    EXPECT_EQ(imported.err, "") << name;
    EXPECT_EQ(copy.run({"import", "Pulkovo 1942"}).out,
              "+proj=longlat +ellps=krass +no_defs +type=crs\n");
  }
}

void expect_quiet_failures(Tcopy const& copy, std::string const& what) {
  SCOPED_TRACE(what);
  // By GDAL, by PROJ, and with a look at the authorities of the database.
  for (std::string const text : {"EPSG:28407", "Pulkovo 1942", "ESRI:102025"}) {
    outcome const imported = copy.run({"import", text});
    EXPECT_EQ(imported.status, 1);
    EXPECT_EQ(imported.out, "\n");
    // One message, and nothing that GDAL and PROJ say by themselves.
    EXPECT_NE(imported.err.find("cannot import \"" + text + "\""), std::string::npos);
    EXPECT_EQ(imported.err.find('\n'), imported.err.size() - 1) << imported.err;
  }
}

TEST(Shipped_database, may_be_missing_or_damaged) {
  Tcopy const copy("copy");
  expect_quiet_failures(copy, "missing");
  for (char const* content : {"", "text", "SQLite format 3"}) {
    core_test::put_file(copy.database().string(), content);
    expect_quiet_failures(copy, content);
  }
  fs::copy(Tcopy::shipped_database(), copy.database(), fs::copy_options::overwrite_existing);
  fs::resize_file(copy.database(), fs::file_size(copy.database()) / 3);
  expect_quiet_failures(copy, "cut");
  fs::remove(copy.database());
  fs::create_directory(copy.database());
  expect_quiet_failures(copy, "a folder");
}

}  // namespace
