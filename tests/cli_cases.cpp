// What the files of cases of the command-line program do with their texts.

#include <sstream>

#include "case_file.h"

namespace {

// What the program writes, its lines of errors behind "! ", and its status behind "? "
// where it is not 0.
OPERATION(zu_pj4) {
  auto const result = core_test::run({ZU_PJ4, a, in.input});
  std::string text = result.out;
  std::istringstream errors(result.err);
  for (std::string line; std::getline(errors, line);) text.append("! ").append(line).append("\n");
  return result.status == 0 ? text : text + "? " + std::to_string(result.status) + "\n";
}

// Status and error of a program that tells one, in one line, and writes nothing.
OPERATION(zu_pj4_tells) {
  auto const result = core_test::run({ZU_PJ4, a, in.input.empty() ? "39 0\n" : in.input});
  bool const is_one = result.out.empty() && result.err.size() > 12 &&
                      result.err.find('\n') == result.err.size() - 1;
  return std::to_string(result.status) + " " +
         (is_one ? result.err.substr(0, result.err.size() - 1) : result.out + result.err);
}

}  // namespace
