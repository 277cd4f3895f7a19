// Prints what Apply in the dialog makes of each projected and geographic system of the
// EPSG data. With --list it also prints every system that becomes another one or unknown:
// code, definition before, after. With --conversions it prints the results of the import
// by code and of the conversion to ESRI WKT and back instead.

#include <exception>
#include <iostream>
#include <string_view>

#include "epsg_survey.h"

namespace {

bool print(char const* title, epsg_survey::conversion_report const& report) {
  std::cout << title << '\n';
  for (auto const& [what, count] : report.counts)
    std::cout << "  " << what << ": " << count << '\n';
  for (auto const& mistake : report.mistakes) std::cout << mistake << '\n';
  return report.mistakes.empty();
}

}  // namespace

int main(int argc, char** argv) try {
  std::string_view const option = argc > 1 ? argv[1] : "";
  if (option == "--conversions") {
    bool const imported = print("Import by code", epsg_survey::survey_import(1));
    return print("By way of ESRI WKT", epsg_survey::survey_esri(1)) && imported ? 0 : 1;
  }
  zu::Tzu_pj_editor editor(zu::catalogue_lists::shipped());
  auto const survey = epsg_survey::run(editor);
  std::cout << epsg_survey::table(survey);
  for (auto const& found : survey.verdicts)
    if (option == "--list" && found.result != epsg_survey::outcome::same)
      std::cout << "EPSG:" << found.code << '\t' << found.source << '\t' << found.written << '\n';
  return 0;
} catch (std::exception const& error) {
  std::cerr << "epsg_survey: " << error.what() << '\n';
  return 2;
}
