#include "transformations.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <future>
#include <iostream>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "basic/file.h"
#include "basic/number.h"
#include "basic/str.h"
#include "error.h"
#include "interchange/zu_pj4.h"
#include "proj4/proj4_str.h"
#include "proj4/short_text.h"
#include "reproj/reproj_d2.h"
#include "terminal.h"
#include "text/strconv.h"
#include "text/string_adapter.h"

namespace transformations {
namespace {

bool is_code(std::string_view text) {
  constexpr std::string_view prefix = "EPSG:";
  return zu::str::equal_no_case(zu::str::trim(text).substr(0, prefix.size()), prefix);
}

bool is_geographic(std::string const& definition) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  return set.get_is_long_lat();
}

// The two definitions of a request in the library's encoding, and how many
// digits its results have: those of a tenth of a millimetre, or finer.
struct prepared {
  std::string from;
  std::string to;
  int digits;

  explicit prepared(request const& wanted)
      : from(terminal::to_library(definition_of(wanted.from))),
        to(terminal::to_library(definition_of(wanted.to))),
        digits(wanted.digits.value_or(is_geographic(wanted.inverse ? from : to) ? 9 : 4)) {}

  [[noreturn]] void complain(request const& wanted) const {
    for (auto const& [text, definition] : {std::pair(wanted.from, from), {wanted.to, to}})
      if (!Tzu_reproj_xy_exec::verify_pj4str(definition.c_str()))
        throw Terror("PROJ cannot transform coordinates of " + text);
    throw Terror("no transformation from " + wanted.from + " to " + wanted.to);
  }
};

// One line of points: where its two numbers stand.
struct line_view {
  std::string_view text;
  std::size_t x_begin = 0;
  std::size_t x_end = 0;
  std::size_t y_begin = 0;
  std::size_t y_end = 0;
  double x = 0;
  double y = 0;
  enum { point, no_point, passes } kind = no_point;
};

constexpr bool is_separator(char c) { return c == ' ' || c == ',' || c == ';' || c == '\t'; }
constexpr bool ends_line(char c) { return c == '\r' || c == '\n'; }
// Degrees with minutes would read as degrees alone.
constexpr bool is_of_number(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
}

// Reads the number at `at`, and moves behind it.
std::optional<double> take_number(std::string_view text, std::size_t& begin, std::size_t& at) {
  while (at < text.size() && is_separator(text[at])) ++at;
  begin = at;
  while (at < text.size() && is_of_number(text[at])) ++at;
  if (at < text.size() && !is_separator(text[at]) && !ends_line(text[at])) return std::nullopt;
  return zu::number::scan_double(text.substr(begin, at - begin));
}

line_view parse(std::string_view text) {
  line_view line;
  line.text = text;
  if (zu::str::trim(text).empty() || text.front() == '#') {
    line.kind = line_view::passes;
    return line;
  }
  std::size_t at = 0;
  auto const x = take_number(text, line.x_begin, at);
  if (!x) return line;
  line.x_end = at;
  auto const y = take_number(text, line.y_begin, at);
  if (!y) return line;
  line.y_end = at;
  line.x = *x;
  line.y = *y;
  line.kind = line_view::point;
  return line;
}

// Lines to lines, on one thread.
class Tworker {
 public:
  bool init(prepared const& texts, reproj_direction direction) {
    digits_ = texts.digits;
    direction_ = direction;
    return exec_.init(texts.from.c_str(), texts.to.c_str());
  }

  void transform(std::string_view block) {
    lines_.clear();
    while (!block.empty()) {
      auto const end = std::min(block.find('\n'), block.size() - 1) + 1;
      lines_.push_back(parse(block.substr(0, end)));
      block.remove_prefix(end);
    }
    transform_points();
    output_.clear();
    std::size_t at = 0;
    for (line_view const& line : lines_) put(line, at);
  }

  std::string const& output() const { return output_; }
  std::uint64_t count() const { return count_; }
  std::uint64_t failed() const { return failed_; }

 private:
  void transform_points() {
    points_.set_size(
        static_cast<std::size_t>(std::ranges::count(lines_, line_view::point, &line_view::kind)));
    std::size_t at = 0;
    for (line_view const& line : lines_)
      if (line.kind == line_view::point) points_.set_xy(at++, line.x, line.y);
    // Shorter than what is shared among threads: the lines are already.
    std::size_t const part = Tzu_reproj_xy_exec::get_parallel_size() - 1;
    for (at = 0; at < points_.get_size(); at += part)
      exec_.apply(std::min(part, points_.get_size() - at), points_.get_x_ptr() + at,
                  points_.get_y_ptr() + at, direction_);
  }

  void put(line_view const& line, std::size_t& at) {
    if (line.kind == line_view::passes) {
      output_.append(line.text);
      return;
    }
    ++count_;
    if (line.kind == line_view::no_point) {
      ++failed_;
      output_.append("* * ").append(line.text);
      return;
    }
    double const x = points_.get_x(at);
    double const y = points_.get_y(at);
    ++at;
    bool const done = std::isfinite(x) && std::isfinite(y);
    if (!done) ++failed_;
    output_.append(line.text, 0, line.x_begin);
    put_number(done, x);
    output_.append(line.text, line.x_end, line.y_begin - line.x_end);
    put_number(done, y);
    output_.append(line.text, line.y_end);
  }

  void put_number(bool done, double value) {
    if (done)
      zu::number::append_fixed(output_, value, digits_);
    else
      output_.push_back('*');
  }

  int digits_ = 0;
  reproj_direction direction_ = reproj_direction::forward;
  Tzu_reproj_xy_exec exec_;
  std::vector<line_view> lines_;
  Tzu_xy_array points_;
  std::string output_;
  std::uint64_t count_ = 0;
  std::uint64_t failed_ = 0;
};

// A block of lines at a time, so that input of any length takes little memory,
// shared among the processors.
class Ttransformer {
 public:
  explicit Ttransformer(request const& wanted)
      : workers_(std::max(1U, std::thread::hardware_concurrency())) {
    prepared const texts(wanted);
    auto const direction = wanted.inverse ? reproj_direction::backward : reproj_direction::forward;
    for (Tworker& worker : workers_)
      if (!worker.init(texts, direction)) texts.complain(wanted);
  }

  void transform(std::string_view block) {
    std::vector<std::future<void>> done;
    for (std::size_t i = 0; i < workers_.size(); ++i) {
      std::string_view const piece = take_piece(block, workers_.size() - i);
      auto const run = [piece, &worker = workers_[i]] { worker.transform(piece); };
      done.push_back(std::async(i == 0 ? std::launch::deferred : std::launch::async, run));
    }
    for (std::size_t i = 0; i < workers_.size(); ++i) {
      done[i].get();
      std::string const& output = workers_[i].output();
      std::cout.write(output.data(), static_cast<std::streamsize>(output.size()));
    }
  }

  std::uint64_t count() const { return sum(&Tworker::count); }
  std::uint64_t failed() const { return sum(&Tworker::failed); }

 private:
  // Whole lines, one of `pieces` parts of about the same size.
  static std::string_view take_piece(std::string_view& block, std::size_t pieces) {
    auto const last = block.find('\n', block.size() / pieces);
    std::string_view const piece =
        pieces == 1 || last == std::string_view::npos ? block : block.substr(0, last + 1);
    block.remove_prefix(piece.size());
    return piece;
  }

  std::uint64_t sum(std::uint64_t (Tworker::*get)() const) const {
    std::uint64_t total = 0;
    for (Tworker const& worker : workers_) total += (worker.*get)();
    return total;
  }

  std::vector<Tworker> workers_;
};

}  // namespace

std::string definition_of(std::string const& text) {
  if (!is_code(text)) return text;
  std::wstring definition;
  Tzu_std_wstring_adapter target(&definition);
  zu::string_adp const adapter(target);
  if (!zu_pj4_import_crs(terminal::to_wide(zu::str::trim(text)).c_str(), adapter.get()))
    throw Terror("no coordinate system " + text);
  return terminal::from_wide(definition);
}

std::string describe(std::string const& text, bool is_short) {
  std::string const definition = terminal::to_library(definition_of(text));
  if (is_short) {
    std::wstring summary;
    Tzu_std_wstring_adapter target(&summary);
    zu::string_adp const adapter(target);
    if (!Tzu_short_text_helper::get_short_text(definition.c_str(), adapter.get()))
      throw Terror("no projection in " + text);
    return terminal::from_wide(summary) + '\n';
  }
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  std::string lines = terminal::from_wide(zu::strconv::from_interface(set.get_text()));
  std::erase(lines, '\r');
  return lines;
}

int transform(request const& wanted, std::string const& file, Tzu_env& env) {
  Ttransformer transformer(wanted);
  zu::file::stream const owned =
      file.empty() ? nullptr : zu::file::open(terminal::to_wide(file), "rb");
  if (!owned && !file.empty()) throw Terror("cannot read " + file);
  std::FILE* const input = owned ? owned.get() : stdin;
  std::uint64_t const total = owned ? zu::file::size(input) : 0;

  constexpr std::size_t block_size = std::size_t{4} << 20U;
  std::string block;
  std::uint64_t done = 0;
  for (bool at_end = false; !at_end;) {
    std::size_t const kept = block.size();
    block.resize(kept + block_size);
    std::size_t const got = std::fread(block.data() + kept, 1, block_size, input);
    block.resize(kept + got);
    at_end = got == 0;
    if (at_end && std::ferror(input) != 0) throw Terror("cannot read all of " + file);
    // The last line may be there in part only.
    std::size_t const whole = at_end ? block.size() : block.rfind('\n') + 1;
    transformer.transform(std::string_view(block).substr(0, whole));
    block.erase(0, whole);
    done += got;
    env.wait(done, total, "transforming");
  }
  env.finished(std::to_string(transformer.count()) + " points");
  if (transformer.failed() == 0) return 0;
  env.error(std::to_string(transformer.failed()) + " of " + std::to_string(transformer.count()) +
            " points not transformed");
  return exit_some_failed;
}

std::string box(request const& wanted, std::array<double, 4> const& corners) {
  prepared const texts(wanted);
  Tzu_reproj_fb_d2 reproj;
  if (!reproj.init_ex(texts.from.c_str(), texts.to.c_str())) texts.complain(wanted);
  Tzu_box_d2 box{};
  zu_box_d2_init_xy(&box, corners[0], corners[1], corners[2], corners[3]);
  if (!reproj.apply_box_approx(&box, !wanted.inverse))
    throw Terror("no point of the box can be transformed");
  std::string line;
  for (double const value : {box.min_x, box.min_y, box.max_x, box.max_y}) {
    if (!line.empty()) line.push_back(' ');
    zu::number::append_fixed(line, value, texts.digits);
  }
  return line + '\n';
}

}  // namespace transformations
