// For commands that print one line for each of several texts.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "answers.h"
#include "basic/env.h"
#include "losses.h"

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

// What the commands for several texts share.
struct Tsetting {
  Tzu_env* env;
  Tlosses const* losses;
  unsigned jobs;  // so many texts at the same time
};

// Prints an answer. `where` stands before each note: "line 7: " for a line of a stream,
// nothing for an argument.
void print(answers::answer const& given, std::string const& where, Tzu_env& env);

// Adds each line of standard input, with "line 7: " and so on, and finishes. While no line
// is ready, all answers so far are handed over.
void add_lines(answers::Tqueue& queue);

// Makes a line from a text. Throws Terror when it fails.
using converter = std::function<std::string(std::string const& text)>;
// Makes a converter for one thread; it reports losses to what it gets.
using converter_maker = std::function<converter(Tlosses const& losses)>;

// An answer with the text that the converter makes, or with its error.
answers::answerer make_answerer(Tlosses const& losses, converter_maker const& make);

enum class on_failure { stop, go_on };
enum class equal_texts { convert_again, remember };

// Prints the line of each text; "-" stands for the lines of standard input. A text that
// fails is reported. A line of a stream that fails gives an empty line, so that line
// numbers stay the same. An argument that fails ends the command with `stop`, and gives
// an empty line with `go_on`. The result is the exit status.
int print_each(std::vector<std::string> const& texts, Tsetting const& setting,
               on_failure of_arguments, equal_texts of_stream, converter_maker const& make);

}  // namespace text_lines
