// For commands that print one line for each of several texts.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/env.h"

namespace text_lines {

// Many texts in UTF-8 begin with this mark; it is no part of the first line.
inline constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

// A text for a message: in one line, and a long text cut.
std::string in_one_line(std::string_view text);
std::string in_quotes(std::string_view text);

// The whole of standard input without a byte-order mark.
std::string read_all();
// The argument, or for "-" standard input without the white space at its ends.
std::string text_of(std::string const& argument);

// Makes a line from a text. `where` stands before messages about the text: "line 7: "
// for a line of a stream, nothing for an argument. Throws Terror when it fails.
using converter = std::function<std::string(std::string const& text, std::string const& where)>;

// Calls `act` for each line of standard input that is not blank, with "line 7: " and so
// on.
void for_each_line(
    std::function<void(std::string const& text, std::string const& where)> const& act);

enum class on_failure { stop, go_on };

// Prints the line of each text; "-" stands for the lines of standard input. A text that
// fails is reported. A line of a stream that fails gives an empty line, so that line
// numbers stay the same. An argument that fails ends the command with `stop`, and gives
// an empty line with `go_on`. The result is the exit status.
int print_each(std::vector<std::string> const& texts, Tzu_env& env, on_failure of_arguments,
               converter const& convert);

}  // namespace text_lines
