#include "basic/env.h"

#include <cstdio>
#include <iostream>

#include "basic/number.h"
#include "basic/session.h"

void Tzu_env::wait(std::uint64_t done, std::uint64_t total, std::string_view text) {
  percentage now;
  if (total != 0)
    now = done >= total
              ? 100
              : static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(total));
  if (waits_ && now == shown_) return;
  waits_ = true;
  shown_ = now;
  show_wait(now, text);
}

void Tzu_env::finished(std::string_view text) {
  waits_ = false;
  show_finished(text);
}

void Tzu_env_out::show_wait(percentage done, std::string_view text) {
  put_line("Wait: " + (done ? zu::number::format_int(*done) + "% " : ""), text);
}

void Tzu_env_out::put_line(std::string_view prefix, std::string_view text) {
  out() << prefix << text << '\n' << std::flush;
}

Tzu_env_console::Tzu_env_console() : Tzu_env_console(std::cerr, zu::session::is_terminal(stderr)) {}

void Tzu_env_console::show_wait(percentage done, std::string_view text) {
  if (!terminal_) return;
  // A shorter text would leave the end of the old one in the line.
  if (bar_text_ != text) leave_bar();
  constexpr std::size_t width = 20;
  std::string const number = done ? zu::number::format_int(*done) + "%" : "";
  std::string bar(done ? width * static_cast<std::size_t>(*done) / 100 : 0, '#');
  bar.resize(width, '.');
  out() << "\rWait: [" << bar << "] " << std::string(4 - number.size(), ' ') << number << ' '
        << text << std::flush;
  bar_text_ = text;
}

void Tzu_env_console::show_finished(std::string_view text) {
  if (terminal_) Tzu_env_out::show_finished(text);
}

void Tzu_env_console::put_line(std::string_view prefix, std::string_view text) {
  leave_bar();
  Tzu_env_out::put_line(prefix, text);
}

void Tzu_env_console::leave_bar() {
  if (bar_text_) out() << '\n' << std::flush;
  bar_text_.reset();
}
