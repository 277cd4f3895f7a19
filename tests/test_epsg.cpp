// Compares the editor and the conversions with PROJ and GDAL, by the systems of the EPSG
// data.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <iostream>
#include <set>

#include "core_support.h"
#include "epsg_survey.h"

namespace {

// Projections that no row of the catalogue can stand for. Each has a key that no control
// holds: one the height of its plane, the other its azimuth.
std::set<std::string> const unavoidable_unknowns{"col_urban", "labrd"};

TEST(Epsg, DefinitionsKeepTheirMeaningOrLoseItForAKnownCause) {
  zu::Tzu_pj_editor editor(zu::catalogue_lists::shipped());
  auto const survey = epsg_survey::run(editor);
  std::cout << core_test::recorded(epsg_survey::table(survey));
  // Without a database there would be no verdict at all.
  EXPECT_GT(survey.verdicts.size(), 5000U);
  for (auto const& found : survey.verdicts) {
    core_test::recorded("EPSG:" + found.code + "\n" + found.source + "\n" + found.written + "\n" +
                        found.written_again);
    EXPECT_TRUE(found.result != epsg_survey::outcome::unknown ||
                unavoidable_unknowns.contains(found.causes.front()))
        << "EPSG:" << found.code << " " << found.source << " comes back as unknown";
    EXPECT_FALSE(found.unexplained)
        << "EPSG:" << found.code << " " << found.source << "\n  -> " << found.written;
  }
}

constexpr std::size_t numbers = proj_numbers_count;
using number_texts = std::array<char const*, numbers>;

// lon_0, lonc, lat_0, lat_1, lat_ts, lat_2, alpha, k_0, x_0, y_0: values that a
// default cannot be mistaken for.
constexpr std::array<number_texts, 3> number_sets{
    {{"15", "14", "30", "40", "35", "55", "40", "0.99", "1000", "2000"},
     {"15", "14", "90", "40", "70", "55", "40", "0.99", "1000", "2000"},
     {"15", "14", "-90", "-40", "-70", "-55", "40", "0.99", "1000", "2000"}}};

// "+proj=... " with the row's parameters, those left out whose bit is set.
std::string definition_of(Tzu_pj_proj_def const& row, number_texts const& values,
                          std::bitset<numbers> absent) {
  std::string text = "+proj=" + row.get_prj4_name();
  if (row.is_south()) text += " +south";
  for (std::size_t i = 0; i < numbers; ++i) {
    auto const which = static_cast<proj_number>(i);
    if (row.get_number(which).get_show() && !absent[i])
      text.append(" +").append(proj_number_key(which)).append("=").append(values[i]);
  }
  return text;
}

// For a parameter that is not given the dialog shows the value that PROJ assumes. So it may
// be written without moving a point.
TEST(Epsg, AbsentParametersMeanWhatProjTakesThemFor) {
  libproj::Tcontext const context;
  std::vector<libproj::point> const points{{16, 50}, {9, 31}, {24, 72}, {20, -41}, {11, -68}};
  zu::Tzu_pj_editor editor(zu::catalogue_lists::shipped());
  std::size_t compared = 0;
  for (Tzu_pj_proj_def const& row : editor.lists().usual) {
    std::set<std::string> done;
    for (auto const& values : number_sets) {
      for (unsigned absent = 0; absent < 1U << numbers; ++absent) {
        // Without an azimuth this one runs through two points, which have keys of
        // their own that no control holds.
        bool const no_azimuth = (absent >> static_cast<unsigned>(proj_number::alpha) & 1U) != 0;
        if (no_azimuth && row.get_prj4_name() == "ocea") continue;
        std::string const source = definition_of(row, values, absent);
        if (!done.insert(source).second) continue;
        editor.set_proj4_string(source.c_str());
        std::string const whole = core_test::recorded(std::string(editor.get_proj4_string()));
        std::string const written =
            libproj::join(libproj::keys_of(whole), libproj::is_of_projection);
        for (std::string const body : {" +ellps=GRS80", " +R=6371000"}) {
          auto const expected = libproj::project(context, source + body, points);
          // A definition that PROJ refuses has no meaning to keep.
          if (std::ranges::none_of(expected, [](auto const& to) { return to.has_value(); }))
            continue;
          ++compared;
          auto const now = libproj::project(context, written + body, points);
          EXPECT_LT(libproj::distance(expected, now), 1e-3)
              << source << body << "\n  -> " << written;
        }
      }
    }
  }
  EXPECT_GT(compared, 1000U);
}

// The program epsg_survey converts all systems, not one in 29.
constexpr std::size_t step = 29;

void expect_no_mistakes(epsg_survey::conversion_report const& report) {
  for (auto const& [what, count] : report.counts) std::cout << what << ": " << count << '\n';
  for (auto const& mistake : report.mistakes) ADD_FAILURE() << mistake;
  for (auto const& text : report.texts) core_test::recorded(text);
}

TEST(Epsg, ImportIsThatOfGdalOrElseOfProj) {
  auto report = epsg_survey::survey_import(step);
  expect_no_mistakes(report);
  EXPECT_GT(report.counts["as GDAL"], 200U);
}

TEST(Epsg, EsriWktKeepsWhatGdalKeeps) {
  auto report = epsg_survey::survey_esri(step);
  expect_no_mistakes(report);
  EXPECT_GT(report.counts["kept by both"], 100U);
}

}  // namespace
