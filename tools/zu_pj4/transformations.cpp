#include "transformations.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <new>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "answers.h"
#include "basic/file.h"
#include "basic/number.h"
#include "basic/str.h"
#include "byte_buffer.h"
#include "error.h"
#include "finder/system_names.h"
#include "line_worker.h"
#include "proj4/proj4_str.h"
#include "reproj/reproj_d2.h"
#include "systems.h"
#include "terminal.h"
#include "text/own_texts.h"
#include "text/strconv.h"
#include "text/string_adapter.h"
#include "text_lines.h"
#include "zu_pj_edit/zu_pj4_layer.h"

namespace transformations {
namespace {

bool is_geographic(std::string const& definition) {
  Tzu_proj4_str set;
  set.set(definition.c_str());
  set.decompose();
  return set.get_is_long_lat();
}

// The two systems of a request in the form for the transformer, and the number of digits
// of the results: a tenth of a millimetre or finer.
class Tsystems {
 public:
  Tsystems(request const& wanted, Tlosses const& losses) : wanted_(&wanted) {
    from_ = prepare(wanted.from, losses);
    to_ = prepare(wanted.to, losses);
    std::string const& result = wanted.inverse ? from_ : to_;
    bool const has_degrees = wanted.by_library
                                 ? is_geographic(result)
                                 : Tzu_reproj_xy_exec::is_geographic_as_written(result);
    digits_ = wanted.digits.value_or(has_degrees ? 9 : 4);
  }

  // `reproj` is a PROJ step or a chain with one.
  template <class Reproj>
  bool init(Reproj& reproj) const {
    return wanted_->by_library ? reproj.init(from_.c_str(), to_.c_str())
                               : reproj.init_as_written(from_, to_);
  }
  int digits() const noexcept { return digits_; }

  [[noreturn]] void complain() const {
    for (auto const& [text, system] : {std::pair(wanted_->from, from_), {wanted_->to, to_}}) {
      bool const is_known = wanted_->by_library ? Tzu_reproj_xy_exec::verify_pj4str(system.c_str())
                                                : Tzu_reproj_xy_exec::verify_as_written(system);
      if (!is_known)
        throw Terror("PROJ cannot transform coordinates of " + text_lines::in_quotes(text));
    }
    throw Terror("no transformation from " + text_lines::in_quotes(wanted_->from) + " to " +
                 text_lines::in_quotes(wanted_->to));
  }

  void tell_missing_grids(Tlosses const& losses) const {
    for (std::string const& name :
         Tzu_reproj_xy_exec::find_missing_grids(as_written(from_), as_written(to_)))
      losses.tell_one("PROJ would use the grid " + name + ", which is not there");
  }

 private:
  std::string prepare(std::string const& text, Tlosses const& losses) const {
    if (!wanted_->by_library) {
      std::string system = zu::strconv::to_utf8(terminal::to_wide(systems::known_to_proj(text)));
      losses.tell_name_taken(Tzu_reproj_xy_exec::find_name_taken(system), "");
      return system;
    }
    std::string definition = terminal::to_library(systems::definition_of(text));
    losses.tell(definition);
    return definition;
  }
  std::string as_written(std::string const& system) const {
    if (!wanted_->by_library) return system;
    Tzu_proj4_str set;
    set.set(system.c_str());
    set.decompose();
    set.compose_for_proj4();
    return set.get();
  }

  request const* wanted_;
  std::string from_;
  std::string to_;
  int digits_ = 0;
};

// Takes the text in pieces, so that input of any length needs little memory, and
// transforms each piece on its own thread: while the program reads one piece and writes
// another, the processors transform others.
class Ttransformer {
 public:
  Ttransformer(request const& wanted, Tlosses const& losses)
      : systems_(wanted, losses),
        direction_(wanted.inverse ? reproj_direction::backward : reproj_direction::forward),
        workers_(wanted.jobs > 0 ? wanted.jobs : answers::default_jobs() + 1) {
    if (!systems_.init(operation_)) systems_.complain();
    systems_.tell_missing_grids(losses);
  }

  // Takes a piece of whole lines behind `skipped` bytes, which do not change, and gives the
  // memory of an earlier piece back.
  void transform(Tbyte_buffer& piece, std::size_t skipped) {
    Tline_worker& worker = workers_[next_];
    next_ = (next_ + 1) % workers_.size();
    write(worker);
    if (!worker.init(operation_, direction_, systems_.digits())) throw std::bad_alloc();
    worker.start(piece, skipped);
  }

  // Waits for the earliest piece and writes it; false when there is none.
  bool write_next() {
    for (std::size_t i = 0; i < workers_.size(); ++i) {
      Tline_worker& worker = workers_[(next_ + i) % workers_.size()];
      if (!worker.is_busy()) continue;
      write(worker);
      return true;
    }
    return false;
  }

  std::uint64_t count() const { return sum(&Tline_worker::count); }
  std::uint64_t failed() const { return sum(&Tline_worker::failed); }

 private:
  static void write(Tline_worker& worker) {
    std::string_view const output = worker.finish();
    if (!std::cout.write(output.data(), static_cast<std::streamsize>(output.size())))
      throw Terror("cannot write to standard output");
  }

  std::uint64_t sum(std::uint64_t (Tline_worker::*get)() const) const {
    std::uint64_t total = 0;
    for (Tline_worker const& worker : workers_) total += (worker.*get)();
    return total;
  }

  Tsystems systems_;
  reproj_direction direction_;
  // Each worker has a copy.
  Tzu_reproj_xy_exec operation_;
  std::vector<Tline_worker> workers_;
  std::size_t next_ = 0;
};

// Reads until the piece has enough bytes more, or until the program would have to wait
// for input; the result is false then.
bool fill(std::FILE* input, Tbyte_buffer& piece, std::size_t enough, bool& at_end,
          std::string const& name) {
  std::size_t const wanted = piece.size() + enough;
  bool is_ready = true;
  while (piece.size() < wanted && is_ready && !at_end) {
    try {
      std::size_t const more = wanted - piece.size();
      std::size_t const got = terminal::read_some(input, piece.room(more).first(more));
      piece.add(got);
      at_end = got == 0;
    } catch (std::runtime_error const&) {
      throw Terror("cannot read all of " + name);
    }
    is_ready = terminal::is_ready(input);
  }
  return is_ready || at_end;
}

// Moves the beginning of the last line to `rest`: its end is not read yet. Returns the size of
// the whole lines.
std::size_t keep_whole_lines(Tbyte_buffer& piece, Tbyte_buffer& rest, bool at_end) {
  std::string_view const text = piece.text();
  std::size_t const whole = at_end ? text.size() : text.rfind('\n') + 1;
  rest.clear();
  rest.append(text.substr(whole));
  if (rest.size() > zu::file::size_limit)
    throw Terror("this is no text of points: it has a line of more than " +
                 std::to_string(zu::file::size_limit >> 20U) + " MB");
  piece.cut(whole);
  return whole;
}

double read_number(std::string const& text) {
  auto const value = zu::number::read_double(text);
  if (!value) throw Terror("no number: " + text);
  return *value;
}

}  // namespace

std::string describe(std::string const& text, bool is_short, Tlosses const& losses,
                     std::string const& where) {
  std::string const definition = terminal::to_library(systems::definition_of(text));
  losses.tell(definition, where);
  std::wstring told;
  Tzu_std_wstring_adapter target(&told);
  zu::string_adp const adapter(target);
  auto const tell = is_short ? &zu_pj4_get_short_text : &zu_pj4_get_text;
  if (tell(definition.c_str(), adapter.get()) == 0)
    throw Terror("no projection in " + text_lines::in_one_line(text));
  if (is_short) return terminal::from_wide(told + L'\n');
  std::erase(told, L'\r');
  for (auto const& [id, name, confidence] : zu::find_system_names(definition)) {
    bool const is_known = id == name;
    std::wstring wide = zu::strconv::from_utf8(id);
    if (!is_known) wide.append(L", ").append(zu::strconv::from_utf8(name));
    told += zu::fill_own_text(is_known ? zu::own_text::known_as : zu::own_text::likely_code, wide,
                              std::to_wstring(confidence));
    told += L'\n';
  }
  return terminal::from_wide(told);
}

int transform(request const& wanted, std::string const& file, Tzu_env& env, Tlosses const& losses) {
  Ttransformer transformer(wanted, losses);
  bool const is_stream = file.empty() || file == "-";
  zu::file::stream const owned =
      is_stream ? nullptr : zu::file::open(terminal::to_wide(file), "rb");
  if (!owned && !is_stream) throw Terror("cannot read " + file);
  std::FILE* const input = owned ? owned.get() : stdin;
  std::uint64_t const total = owned ? zu::file::size(input) : 0;

  constexpr std::size_t piece_size = std::size_t{512} << 10U;
  // A shorter text is done before the user could read the progress.
  constexpr std::uint64_t long_size = std::uint64_t{4} << 20U;
  std::uint64_t done = 0;
  Tbyte_buffer piece;
  Tbyte_buffer rest;
  for (bool at_end = false; !at_end;) {
    std::swap(piece, rest);
    bool const waits = !fill(input, piece, piece_size, at_end, owned ? file : "standard input");
    bool const has_mark = done == 0 && piece.text().starts_with(text_lines::utf8_mark);
    std::size_t const skipped = has_mark ? text_lines::utf8_mark.size() : 0;
    std::size_t const whole = keep_whole_lines(piece, rest, at_end);
    done += whole;
    if (whole > 0) transformer.transform(piece, skipped);
    // A program that asks point by point gets each answer before its next question.
    if (waits) {
      while (!terminal::is_ready(input) && transformer.write_next()) continue;
      std::cout.flush();
    }
    if (done >= long_size) env.wait(done, total, "transforming");
  }
  while (transformer.write_next()) continue;
  if (done >= long_size) env.finished(std::to_string(transformer.count()) + " points");
  if (transformer.failed() == 0) return 0;
  env.error(std::to_string(transformer.failed()) + " of " + std::to_string(transformer.count()) +
            " points not transformed");
  return exit_some_failed;
}

std::string box(request const& wanted, std::vector<std::string> const& corners,
                Tlosses const& losses) {
  Tsystems const systems(wanted, losses);
  Tzu_reproj_fb_d2 reproj;
  if (!systems.init(reproj.get_reproj())) systems.complain();
  systems.tell_missing_grids(losses);
  Tzu_box_d2 box{};
  zu_box_d2_init_xy(&box, read_number(corners.at(0)), read_number(corners.at(1)),
                    read_number(corners.at(2)), read_number(corners.at(3)));
  if (!reproj.apply_box_approx(&box, !wanted.inverse))
    throw Terror("no point of the box can be transformed");
  std::string line;
  for (double const value : {box.min_x, box.min_y, box.max_x, box.max_y}) {
    if (!line.empty()) line.push_back(' ');
    zu::number::append_fixed(line, value, systems.digits());
  }
  return line + '\n';
}

}  // namespace transformations
