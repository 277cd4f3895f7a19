// Commands that turn each of some texts into one line of output.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/env.h"

namespace text_lines {

// What begins many a text in UTF-8; no part of its first line.
inline constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

// A text as a message quotes it: in one line, a long one clipped.
std::string in_one_line(std::string_view text);
std::string in_quotes(std::string_view text);

// All of standard input but a byte-order mark.
std::string read_all();
// An argument, or for "-" standard input without the white space at its ends.
std::string text_of(std::string const& argument);

// Makes a line of a text. `where` begins what is told of the text: "line 7: " of a
// stream, nothing of an argument. Throws Terror for a text that gives no line.
using converter = std::function<std::string(std::string const& text, std::string const& where)>;

// Calls with each line of standard input that is not blank, and "line 7: ".
void for_each_line(
    std::function<void(std::string const& text, std::string const& where)> const& act);

enum class on_failure { stop, go_on };

// Prints the line of each text; "-" stands for the lines of standard input. A line of
// a stream that fails gives an empty one, so that lines stay beside those they were
// made of, and so does an argument where the failures of arguments stop nothing; each
// is told. The result is the exit status.
int print_each(std::vector<std::string> const& texts, Tzu_env& env, on_failure of_arguments,
               converter const& convert);

}  // namespace text_lines
