#include "text_lines.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <iterator>

#include "basic/str.h"
#include "error.h"
#include "losses.h"
#include "terminal.h"

namespace text_lines {
namespace {

int print_line(std::string const& text, std::string const& where, Tzu_env& env,
               converter const& convert) {
  int status = 0;
  std::string line;
  try {
    line = convert(text, where);
  } catch (Tloss_error const& error) {
    env.error(error.what());
    status = exit_error;
  } catch (std::runtime_error const& error) {
    env.error(where + error.what());
    status = exit_some_failed;
  }
  std::cout << line << '\n';
  return status;
}

void check_input() {
  if (std::cin.bad() || std::ferror(stdin) != 0) throw Terror("cannot read all of standard input");
}

// Calls `act` for blank lines, too.
template <class Act>
void read_lines(Act act) {
  std::size_t number = 0;
  for (std::string line; std::getline(std::cin, line);) {
    ++number;
    if (number == 1 && line.starts_with(utf8_mark)) line.erase(0, utf8_mark.size());
    act(line, number);
  }
  check_input();
}

std::string place_of(std::size_t line) { return "line " + std::to_string(line) + ": "; }

int print_stream(Tzu_env& env, converter const& convert) {
  int status = 0;
  read_lines([&](std::string const& line, std::size_t number) {
    if (zu::str::trim(line).empty())
      std::cout << '\n';
    else
      status = std::max(status, print_line(line, place_of(number), env, convert));
  });
  return status;
}

}  // namespace

std::string in_one_line(std::string_view text) {
  constexpr std::size_t longest = 200;
  std::string line(zu::str::trim(text));
  std::ranges::replace_if(
      line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
  if (line.size() <= longest) return line;
  // Counts letters, not bytes, so that no letter is cut.
  std::wstring const wide = terminal::to_wide(line);
  return terminal::from_wide(wide.substr(0, longest)) + (wide.size() > longest ? "..." : "");
}

std::string in_quotes(std::string_view text) { return '"' + in_one_line(text) + '"'; }

std::string read_all() {
  std::string text((std::istreambuf_iterator<char>(std::cin)), {});
  check_input();
  if (text.starts_with(utf8_mark)) text.erase(0, utf8_mark.size());
  return text;
}

std::string text_of(std::string const& argument) {
  return argument == "-" ? std::string(zu::str::trim(read_all())) : argument;
}

void for_each_line(
    std::function<void(std::string const& text, std::string const& where)> const& act) {
  read_lines([&act](std::string const& line, std::size_t number) {
    if (!zu::str::trim(line).empty()) act(std::string(zu::str::trim(line)), place_of(number));
  });
}

int print_each(std::vector<std::string> const& texts, Tzu_env& env, on_failure of_arguments,
               converter const& convert) {
  int status = 0;
  for (std::string const& text : texts) {
    if (text == "-")
      status = std::max(status, print_stream(env, convert));
    else if (of_arguments == on_failure::stop)
      std::cout << convert(text, {}) << '\n';
    else
      status = std::max(status, print_line(text, {}, env, convert));
  }
  return status;
}

}  // namespace text_lines
