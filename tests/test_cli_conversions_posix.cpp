// Conversions before a terminal, and what they ask of the system.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli_support.h"
#include "terminal_support_posix.h"

namespace {

using core_test::put_file;

class Cli_conversions_posix : public cli_test::Cli {};

TEST_F(Cli_conversions_posix, ProgressIsForWhoSitsBeforeATerminal) {
  put_file(path("a.pj4"), "+proj=longlat +ellps=krass");
  put_file(path("b.pj4"), "text");
  auto const result = core_test::run_before_terminal(
      std::string(ZU_PJ4) + " convert " + path("a.pj4") + " " + path("b.pj4") + " --to prj");
  if (!result) GTEST_SKIP() << "no terminals here";
  EXPECT_EQ(result->status, 1);
  EXPECT_EQ(result->out, "");
  EXPECT_EQ(result->err, "Wait: [##########..........]  50% converting\nError: " + path("b.pj4") +
                             ": no PROJ.4 definition\n"
                             "Wait: [####################] 100% converting\n"
                             "Finished: 1 of 2 files converted\n"
                             "Error: 1 of 2 files not converted\n");
}

// Texts that would have GDAL or PROJ open a file or a connection, alone, as what
// "+init=" names in a parameter file, or as an ESRI file.
std::vector<std::string> reaching_texts() {
  std::string const degree = R"(PRIMEM["Greenwich",0],UNIT["degree",0.0174532925199433])";
  std::string const rest = R"(CS[ellipsoidal,2],AXIS["lat",north],AXIS["lon",east],)"
                           R"(UNIT["degree",0.0174532925199433]])";
  std::string const plane = R"(PROJCS["x",GEOGCS["x",DATUM["x",SPHEROID["x",6378245,298.3]],)" +
                            degree + R"(],PROJECTION["custom_proj4"],UNIT["metre",1],)";
  std::vector<std::string> texts{
      R"(<?xml version="1.0"?><!DOCTYPE a [<!ENTITY e SYSTEM "file:///etc/passwd">]><a>&e;</a>)",
      R"(<gml:GeographicCRS xmlns:xlink="x"><a xlink:href="http://localhost:1/a"/></a>)",
      R"({"type":"GeographicCRS","$schema":"http://localhost:1/a.json","name":"/etc/passwd"})",
      R"(GEOGCS["x",DATUM["x",SPHEROID["x",6378245,298.3],EXTENSION["PROJ4_GRIDS","/etc/passwd"]],)" +
          degree + "]",
      R"(BOUNDCRS[SOURCECRS[GEOGCRS["x",DATUM["x",ELLIPSOID["x",6378245,298.3]],)" + rest +
          R"(],TARGETCRS[GEOGCRS["WGS 84",DATUM["World Geodetic System 1984",)"
          R"(ELLIPSOID["WGS 84",6378137,298.257223563]],)" +
          rest +
          R"(],ABRIDGEDTRANSFORMATION["x",METHOD["NTv2",ID["EPSG",9615]],)"
          R"(PARAMETERFILE["Latitude and longitude difference file","/etc/passwd",)"
          R"(ID["EPSG",8656]]]])",
      plane + R"(EXTENSION["PROJ4","file=/etc/passwd +proj=tinshift"]])",
      plane + R"(EXTENSION["PROJ4","+proj=merc +a=1 +nadgrids =""/etc/passwd"" +wktext"]])"};
  std::istringstream lines(R"(/etc/passwd
file:///etc/passwd
\\server\share\x.prj
//server/share/x.prj
http://localhost:1/a.prj
https://localhost:1/a.prj
ftp://localhost:1/a.prj
/vsicurl/http://localhost:1/a.prj
/vsigzip//etc/passwd
ESRI::/etc/passwd
ESRI::http://localhost:1/a.prj
DICT:/etc/passwd,root
EPSG:/etc/passwd
IGNF:/etc/passwd
urn:ogc:def:crs:EPSG::/etc/passwd
urn:ogc:def:crs:/etc/passwd::1
http://www.opengis.net/def/crs/EPSG/0/passwd
http://opengis.net/def/crs?1=http://localhost:1/a&2=/etc/passwd
https://spatialreference.org/ref/epsg/28407/
+init=/etc/passwd:1
+init=file:code
+init = passwd:1
+init=C:\passwd:1
init=passwd:1
+proj=longlat +init=/etc/passwd:1
+proj=longlat +ellps=krass +nadgrids=/etc/passwd
+proj=longlat +ellps=krass +nadgrids= /etc/passwd
+proj=longlat +ellps=krass +nadgrids=@null, /etc/passwd
+proj=longlat +ellps=krass +nadgrids=https://localhost:1/a.tif
+proj=longlat +ellps=krass +geoidgrids="/etc/passwd"
proj=longlat ellps=krass nadgrids=a.gsb
+proj = pipeline +step +proj=longlat +geoidgrids=a.gtx +ellps=krass
+proj=hgridshift +grids=us_noaa_conus.tif
+proj=deformation +xy_grids=a +z_grids=a +dt=1 +ellps=WGS84
+proj=defmodel +model=a.json
+proj=tinshift +file =/etc/passwd
)");
  for (std::string line; std::getline(lines, line);) texts.push_back(line);
  return texts;
}

class Cli_reach_posix : public cli_test::Cli {
 protected:
  void SetUp() override {
    // A system without the tracer is one that was not made ready for these tests.
    auto const can_trace = core_test::run({"/usr/bin/strace", {"-qq", "/bin/true"}, ""});
    if (can_trace.status != 0) GTEST_SKIP() << "may not trace here: " << can_trace.err;
  }

  // The files outside the test's folder that the program looks for, and the calls
  // by which it turns to the network.
  std::set<std::string> touched(std::vector<std::string> arguments, std::string const& input = "") {
    std::string const trace = path("trace");
    arguments.insert(arguments.begin(), {"-f", "--seccomp-bpf", "-qq", "-e", "trace=%file,%network",
                                         "-o", trace, "-s", "1000", ZU_PJ4});
    result = core_test::run({"/usr/bin/strace", arguments, input});
    std::set<std::string> names;
    std::istringstream lines(core_test::read_file(trace));
    for (std::string line; std::getline(lines, line);) {
      auto const name = line.find('"') + 1;
      std::string const call = line.substr(line.find_first_not_of("0123456789 "));
      if (call.starts_with("execve") || call.starts_with("+++")) continue;
      bool const is_file = call.find("AT_") != std::string::npos || call[call.find('(') + 1] == '"';
      names.insert(is_file ? line.substr(name, line.find('"', name) - name)
                           : call.substr(0, call.find('(')));
    }
    std::erase_if(names, [&](auto const& one) { return one.starts_with(path("")); });
    return names;
  }

  static std::vector<std::string> beyond(std::set<std::string> const& some,
                                         std::set<std::string> const& usual) {
    std::vector<std::string> names;
    std::ranges::set_difference(some, usual, std::back_inserter(names));
    return names;
  }

  core_test::outcome result;

 private:
  // The sanitizer cannot look for leaks under a tracer.
  core_test::Tenvironment const environment_{{"PROJ_NETWORK", "ON"},
                                             {"ASAN_OPTIONS", "detect_leaks=0"}};
};

TEST_F(Cli_reach_posix, ImportsOpenNothingThatATextNames) {
  std::string const codes = "EPSG:28407\n+init=epsg:28407\nno such system\nPROJCS[\"x\"\n";
  auto const usual = touched({"import", "-"}, codes);
  ASSERT_TRUE(
      std::ranges::any_of(usual, [](auto const& name) { return name.ends_with("proj.db"); }));
  EXPECT_FALSE(usual.contains("socket"));
  auto const texts = reaching_texts();
  std::string input;
  for (auto const& text : texts) input.append(text).append("\n");
  EXPECT_EQ(beyond(touched({"import", "-"}, input), usual), std::vector<std::string>());
  EXPECT_EQ(result.out, std::string(texts.size(), '\n')) << "nothing is made of any";

  std::vector<std::string> arguments{"convert",   "--to",      "prj",
                                     "--out-dir", path("out"), path("p.pj4")};
  put_file(path("p.pj4"), "[projection]\npj4=+init=epsg:28407\n");
  auto const usual_of_files = touched(arguments);
  arguments.pop_back();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (bool const is_esri : {false, true}) {
      arguments.push_back(path(std::to_string(i) + (is_esri ? ".prj" : ".pj4")));
      put_file(arguments.back(), (is_esri ? "" : "[projection]\npj4=+init=") + texts[i]);
    }
  }
  EXPECT_EQ(beyond(touched(arguments), usual_of_files), std::vector<std::string>());
  EXPECT_EQ(std::ranges::count(result.err, '\n'), 2 * texts.size() + 1) << "each fails";
}

// A definition may name the grids of its datum shift, which PROJ then opens; but no
// other file, and nothing that is elsewhere.
TEST_F(Cli_reach_posix, TransformationsOpenGridsAndAskNobody) {
  std::string const geographic = "+proj=longlat +datum=WGS84";
  put_file(path("points"), "37 55");
  auto const of = [&](std::string const& from) {
    return touched({"transform", "--from", from, "--to", geographic, path("points")});
  };
  auto const usual = of("+proj=longlat +ellps=krass +towgs84=1,2,3");
  for (std::string const from :
       {"+proj=longlat +ellps=krass +nadgrids=http://localhost:1/a.tif",
        "+proj=longlat init=/etc/passwd:1 +ellps=krass", "+proj=tinshift file =/etc/passwd",
        "+proj=longlat +ellps=krass geoidgrids=/etc/passwd"}) {
    EXPECT_EQ(beyond(of(from), usual), std::vector<std::string>()) << from;
    EXPECT_NE(result.status, 0) << from;
  }
  for (std::string const from :
       {"+proj=longlat +ellps=clrk66 +nadgrids=us_noaa_conus.tif", "+proj=longlat +datum=NAD27",
        "+proj=longlat +nadgrids=/a/b +a=1"}) {
    auto const names = of(from);
    EXPECT_FALSE(beyond(names, usual).empty()) << from;
    for (char const* call : {"socket", "connect", "sendto", "socketpair"})
      EXPECT_FALSE(names.contains(call)) << from;
  }
}

}  // namespace
