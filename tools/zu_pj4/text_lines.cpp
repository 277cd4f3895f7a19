#include "text_lines.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <memory>
#include <span>
#include <stdexcept>
#include <utility>

#include "basic/str.h"
#include "error.h"
#include "terminal.h"

namespace text_lines {
namespace {

// The lines of standard input. Uses no stream's buffer, so that it knows whether a line is
// ready.
class Tline_reader {
 public:
  // Reads what is there. False when the next line, or the end, is not there yet.
  bool is_ready() {
    while (!has_next() && terminal::is_ready(stdin)) read();
    return has_next();
  }
  // Waits for a line. False at the end.
  bool next(std::string& line) {
    while (!has_next()) read();
    if (end_ == std::string::npos) end_ = buffer_.size();
    if (begin_ == buffer_.size()) return false;
    line.assign(buffer_, begin_, end_ - begin_);
    begin_ = std::min(end_ + 1, buffer_.size());
    end_ = buffer_.find('\n', begin_);
    return true;
  }
  bool has_failed() const noexcept { return has_failed_; }

 private:
  bool has_next() const noexcept { return end_ != std::string::npos || at_end_; }

  void read() {
    constexpr std::size_t block = std::size_t{64} << 10U;
    buffer_.erase(0, std::exchange(begin_, 0));
    std::size_t const size = buffer_.size();
    buffer_.resize(size + block);
    std::size_t got = 0;
    try {
      got = terminal::read_some(stdin, std::span(buffer_).subspan(size));
    } catch (std::runtime_error const&) {
      has_failed_ = true;
    }
    buffer_.resize(size + got);
    at_end_ = got == 0;
    end_ = buffer_.find('\n', size);
  }

  std::string buffer_;
  std::size_t begin_ = 0;                // of the next line
  std::size_t end_ = std::string::npos;  // of the next line, when it is whole
  bool at_end_ = false;
  bool has_failed_ = false;
};

constexpr char const* unreadable = "cannot read all of standard input";

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
  if (std::cin.bad() || std::ferror(stdin) != 0) throw Terror(unreadable);
  if (text.starts_with(utf8_mark)) text.erase(0, utf8_mark.size());
  return text;
}

std::string text_of(std::string const& argument) {
  return argument == "-" ? std::string(zu::str::trim(read_all())) : argument;
}

void print(answers::answer const& given, std::string const& where, Tzu_env& env) {
  for (auto const& [kind, text] : given.notes) {
    if (kind == answers::note_kind::finding)
      std::cout << where << text << '\n';
    else if (kind == answers::note_kind::warning)
      env.warning(where + text);
    else
      env.error(where + text);
  }
  std::cout << given.output;
}

answers::answerer make_answerer(Tlosses const& losses, converter_maker const& make) {
  auto const current = std::make_shared<answers::answer>();
  auto const warn = [current](std::string const& sentence) {
    current->notes.push_back({answers::note_kind::warning, sentence});
  };
  return [current, convert = make(losses.told_to(warn))](std::string const& text) {
    *current = {};
    auto const fail = [&current](std::exception const& error, int status) {
      current->notes.push_back({answers::note_kind::error, error.what()});
      current->status = status;
    };
    try {
      current->output = convert(text);
    } catch (Tloss_error const& error) {
      fail(error, exit_error);
    } catch (std::runtime_error const& error) {
      fail(error, exit_some_failed);
    }
    return std::move(*current);
  };
}

void add_lines(answers::Tqueue& queue) {
  Tline_reader reader;
  std::string line;
  for (std::size_t number = 1;; ++number) {
    if (!reader.is_ready()) queue.finish();
    if (!reader.next(line)) break;
    if (number == 1 && line.starts_with(utf8_mark)) line.erase(0, utf8_mark.size());
    queue.add(line, "line " + std::to_string(number) + ": ");
  }
  queue.finish();
  if (reader.has_failed()) throw Terror(unreadable);
}

int print_each(std::vector<std::string> const& texts, Tsetting const& setting,
               on_failure of_arguments, equal_texts of_stream, converter_maker const& make) {
  int status = 0;
  auto const print_one = [&](answers::answer const& given, std::string const& where) {
    print(given, where, *setting.env);
    status = std::max(status, given.status);
  };
  auto const make_one = [&]() -> answers::answerer {
    auto const of_line = [answer = make_answerer(*setting.losses, make)](std::string const& text) {
      auto given = zu::str::trim(text).empty() ? answers::answer() : answer(text);
      given.output += '\n';
      return given;
    };
    if (of_stream == equal_texts::remember) return answers::remembering(of_line);
    return of_line;
  };
  answers::Tqueue queue(setting.jobs, make_one, print_one);
  auto const convert = make(*setting.losses);
  auto const answer = make_answerer(*setting.losses, make);
  for (std::string const& text : texts) {
    if (text == "-") {
      add_lines(queue);
    } else if (of_arguments == on_failure::stop) {
      std::cout << convert(text) << '\n';
    } else {
      print_one(answer(text), {});
      std::cout << '\n';
    }
  }
  return status;
}

}  // namespace text_lines
