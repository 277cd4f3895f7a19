// Prints what opening each projected and geographic system of the EPSG data in
// the dialog and pressing Apply does to it. With --list, every system that
// comes back changed or unknown follows: code, definition before, after.

#include <exception>
#include <iostream>
#include <string_view>

#include "epsg_survey.h"

int main(int argc, char** argv) try {
  bool const list = argc > 1 && std::string_view(argv[1]) == "--list";
  zu::Tzu_pj_editor editor(zu::catalogue_lists::shipped());
  auto const survey = epsg_survey::run(editor);
  std::cout << epsg_survey::table(survey);
  for (auto const& found : survey.verdicts)
    if (list && found.result != epsg_survey::outcome::same)
      std::cout << "EPSG:" << found.code << '\t' << found.source << '\t' << found.written << '\n';
  return 0;
} catch (std::exception const& error) {
  std::cerr << "epsg_survey: " << error.what() << '\n';
  return 2;
}
