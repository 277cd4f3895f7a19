// Converts some systems of the EPSG data, and compares with GDAL and PROJ. The program
// epsg_survey does it for all of them.

#include <gtest/gtest.h>

#include <iostream>

#include "conversion_survey.h"
#include "core_support.h"

namespace {

constexpr std::size_t step = 29;

void expect_no_mistakes(epsg_survey::conversion_report const& report) {
  for (auto const& [what, count] : report.counts) std::cout << what << ": " << count << '\n';
  for (auto const& mistake : report.mistakes) ADD_FAILURE() << mistake;
  for (auto const& text : report.texts) core_test::recorded(text);
}

TEST(Epsg_conversions, import_as_gdal_or_else_as_proj) {
  auto report = epsg_survey::survey_import(step);
  expect_no_mistakes(report);
  EXPECT_GT(report.counts["as GDAL"], 200U);
}

TEST(Epsg_conversions, keep_by_way_of_esri_what_gdal_alone_keeps) {
  auto report = epsg_survey::survey_esri(step);
  expect_no_mistakes(report);
  EXPECT_GT(report.counts["kept by both"], 100U);
}

}  // namespace
