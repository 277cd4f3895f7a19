#include "line_worker.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "basic/number.h"
#include "basic/str.h"

namespace transformations {
namespace {

// Few enough for the fast memory of a processor. Fewer than the size of array that the
// transformer shares among threads: the workers are threads already.
constexpr std::size_t batch_size = 1024;

constexpr bool is_blank(char c) { return c == ' ' || c == '\t'; }
constexpr bool is_mark(char c) { return c == ',' || c == ';'; }
constexpr bool ends_number(char c) { return is_blank(c) || is_mark(c) || c == '\r' || c == '\n'; }

std::size_t skip_blanks(std::string_view text, std::size_t at) {
  while (at < text.size() && is_blank(text[at])) ++at;
  return at;
}

// Skips one mark only: two marks have an empty column between them, which is no number.
std::size_t skip_separator(std::string_view text, std::size_t at) {
  at = skip_blanks(text, at);
  return at < text.size() && is_mark(text[at]) ? skip_blanks(text, at + 1) : at;
}

// Reads the column that begins at `begin`, and returns its text; that is empty where it is
// no number. The whole column must be a number: from degrees with minutes, the degrees
// alone would be another point.
std::string_view take_number(std::string_view text, std::size_t begin, double& value) {
  text.remove_prefix(begin);
  std::size_t size = zu::number::scan_plain(text, value);
  if (size > 0 && (size == text.size() || ends_number(text[size]))) return text.substr(0, size);
  while (size < text.size() && !ends_number(text[size])) ++size;
  std::string_view const column = text.substr(0, size);
  auto const number = zu::number::read_double(column);
  value = number.value_or(0);
  return number ? column : std::string_view();
}

// The place behind a part of the text.
std::size_t end_of(std::string_view part, std::string_view text) {
  return static_cast<std::size_t>(part.data() - text.data()) + part.size();
}

// The beginning of the next line.
std::size_t skip_line(std::string_view text, std::size_t at) {
  if (at < text.size() && text[at] == '\n') return at + 1;
  return std::min(text.find('\n', at), text.size() - 1) + 1;
}

// Most texts between two numbers are one character.
char* put(char* to, char const* from, std::size_t size) noexcept {
  if (size == 1)
    *to = *from;
  else if (size > 0)
    std::memcpy(to, from, size);
  return to + size;
}

}  // namespace

bool Tline_worker::init(Tzu_reproj_xy_exec const& operation, reproj_direction direction,
                        int digits) {
  direction_ = direction;
  digits_ = digits;
  return exec_.has_operation() || exec_.init_as(operation);
}

void Tline_worker::start(Tbyte_buffer& text, std::size_t skipped) {
  std::swap(text_, text);
  text.clear();
  copied_ = text_.text().data();
  rest_ = text_.text().substr(skipped);
  output_.clear();
  is_told_ = false;
  if (!thread_.start(&run_worker, this)) run();
}

void Tline_worker::run_worker(void* context) { static_cast<Tline_worker*>(context)->run(); }

void Tline_worker::run() noexcept try {
  output_.room(text_.size() + text_.size() / 4);
  points_.set_size(batch_size);
  while (!rest_.empty()) {
    std::size_t const size = scan_lines();
    exec_.apply(size, points_.get_x_ptr(), points_.get_y_ptr(), direction_);
    print_lines();
  }
  copy_to(text_.text().data() + text_.size(), 0);
} catch (...) {
  failure_ = std::current_exception();
}

std::string_view Tline_worker::finish() {
  thread_.join();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  return std::exchange(is_told_, true) ? std::string_view() : output_.text();
}

// Returns the number of points.
std::size_t Tline_worker::scan_lines() {
  places_.clear();
  std::size_t size = 0;
  while (!rest_.empty() && places_.size() < batch_size) {
    double x = 0;
    double y = 0;
    Tplace place;
    place.x = take_number(rest_, skip_blanks(rest_, 0), x);
    if (!place.x.empty())
      place.y = take_number(rest_, skip_separator(rest_, end_of(place.x, rest_)), y);
    if (place.y.empty()) {
      std::size_t const end = skip_line(rest_, 0);
      std::string_view const content = zu::str::trim(rest_.substr(0, end));
      if (!content.empty() && content.front() != '#') places_.push_back({rest_.substr(0, 0), {}});
      rest_.remove_prefix(end);
      continue;
    }
    places_.push_back(place);
    points_.set_xy(size++, x, y);
    rest_.remove_prefix(skip_line(rest_, end_of(place.y, rest_)));
  }
  return size;
}

void Tline_worker::print_lines() {
  std::size_t at = 0;
  for (Tplace const& place : places_) {
    ++count_;
    constexpr std::string_view no_point = "* * ";
    if (place.y.empty()) {
      ++failed_;
      copy_to(place.x.data(), no_point.size());
      output_.append(no_point);
      continue;
    }
    double const x = points_.get_x(at);
    double const y = points_.get_y(at);
    ++at;
    bool const done = std::isfinite(x) && std::isfinite(y);
    if (!done) ++failed_;
    auto const between = static_cast<std::size_t>(place.y.data() - place.x.data()) - place.x.size();
    char* const first = copy_to(place.x.data(), 2 * zu::number::fixed_size + between);
    char* to = put_number(first, done, x);
    to = put(to, place.x.data() + place.x.size(), between);
    to = put_number(to, done, y);
    output_.add(static_cast<std::size_t>(to - first));
    copied_ = place.y.data() + place.y.size();
  }
}

// Copies the text before `end` that is not in the output yet. Returns a place for `more`
// characters behind it.
char* Tline_worker::copy_to(char const* end, std::size_t more) {
  auto const size = static_cast<std::size_t>(end - copied_);
  char* const to = output_.room(size + more).data();
  put(to, copied_, size);
  output_.add(size);
  copied_ = end;
  return to + size;
}

char* Tline_worker::put_number(char* to, bool done, double value) const noexcept {
  if (done) return zu::number::write_fixed(to, value, digits_);
  *to = '*';
  return to + 1;
}

}  // namespace transformations
