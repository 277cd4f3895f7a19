#include "line_worker.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "basic/number.h"
#include "basic/str.h"

namespace transformations {

// A line, and the places of the two numbers of its point.
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

namespace {

constexpr bool is_blank(char c) { return c == ' ' || c == '\t'; }
constexpr bool is_mark(char c) { return c == ',' || c == ';'; }
constexpr bool ends_number(char c) { return is_blank(c) || is_mark(c) || c == '\r' || c == '\n'; }

std::size_t skip_blanks(std::string_view text, std::size_t at) {
  while (at < text.size() && is_blank(text[at])) ++at;
  return at;
}

// Reads the column that begins at `begin`. The whole column must be a number: from
// degrees with minutes, the degrees alone would be another point.
std::optional<double> take_number(std::string_view text, std::size_t begin, std::size_t& end) {
  end = begin;
  while (end < text.size() && !ends_number(text[end])) ++end;
  return zu::number::read_double(text.substr(begin, end - begin));
}

line_view parse(std::string_view text) {
  line_view line;
  line.text = text;
  std::string_view const content = zu::str::trim(text);
  if (content.empty() || content.front() == '#') {
    line.kind = line_view::passes;
    return line;
  }
  line.x_begin = skip_blanks(text, 0);
  auto const x = take_number(text, line.x_begin, line.x_end);
  if (!x) return line;
  // Skips one mark only: two marks have an empty column between them, which is no number.
  line.y_begin = skip_blanks(text, line.x_end);
  if (line.y_begin < text.size() && is_mark(text[line.y_begin]))
    line.y_begin = skip_blanks(text, line.y_begin + 1);
  auto const y = take_number(text, line.y_begin, line.y_end);
  if (!y) return line;
  line.x = *x;
  line.y = *y;
  line.kind = line_view::point;
  return line;
}

}  // namespace

Tline_worker::Tline_worker() = default;
Tline_worker::~Tline_worker() = default;

void Tline_worker::start(std::string& text) {
  text_.swap(text);
  output_.clear();
  if (!thread_.start(&run_worker, this)) run();
}

void Tline_worker::run_worker(void* context) { static_cast<Tline_worker*>(context)->run(); }

void Tline_worker::run() noexcept try {
  output_.reserve(text_.size());
  rest_ = text_;
  while (!rest_.empty()) transform_lines();
  untold_ = output_;
} catch (...) {
  failure_ = std::current_exception();
}

std::string_view Tline_worker::finish() {
  thread_.join();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  return std::exchange(untold_, {});
}

// Takes fewer lines at a time than the size of array that the transformer shares among
// threads: the workers are threads already.
void Tline_worker::transform_lines() {
  std::size_t const limit = Tzu_reproj_xy_exec::get_parallel_size() - 1;
  lines_.clear();
  points_.set_size(limit);
  std::size_t size = 0;
  while (!rest_.empty() && lines_.size() < limit) {
    auto const end = std::min(rest_.find('\n'), rest_.size() - 1) + 1;
    line_view const line = parse(rest_.substr(0, end));
    rest_.remove_prefix(end);
    if (line.kind == line_view::point) points_.set_xy(size++, line.x, line.y);
    lines_.push_back(line);
  }
  exec_.apply(size, points_.get_x_ptr(), points_.get_y_ptr(), direction_);
  std::size_t at = 0;
  for (line_view const& line : lines_) put(line, at);
}

void Tline_worker::put(line_view const& line, std::size_t& at) {
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

void Tline_worker::put_number(bool done, double value) {
  if (done)
    zu::number::append_fixed(output_, value, digits_);
  else
    output_.push_back('*');
}

}  // namespace transformations
