// What a program tells its user while it works: messages, errors and the progress of
// long work. Each text is one line, in the encoding of the receiver, without a prefix
// such as "Error: ".
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

class Tzu_env {
 public:
  Tzu_env() = default;
  virtual ~Tzu_env() = default;
  Tzu_env(Tzu_env const&) = delete;
  Tzu_env& operator=(Tzu_env const&) = delete;

  virtual void message(std::string_view text) = 0;
  virtual void warning(std::string_view text) = 0;
  virtual void error(std::string_view text) = 0;
  virtual void debug(std::string_view text) = 0;

  // Tells that `done` of `total` parts of the work `text` are done; 0 is an unknown
  // total. May be called for each part: only the first call and each new whole percent
  // are shown.
  void wait(std::uint64_t done, std::uint64_t total, std::string_view text);
  // Ends the work, also where wait was not called.
  void finished(std::string_view text);

 protected:
  // 0 to 100, or nothing where the total is not known.
  using percentage = std::optional<int>;
  virtual void show_wait(percentage done, std::string_view text) = 0;
  virtual void show_finished(std::string_view text) = 0;

 private:
  bool waits_ = false;
  percentage shown_;
};

// Writes lines: "Message: ", "Warning: ", "Error: ", "Debug: ", "Wait: 37% " and "Finished: "
// with the text. Each is flushed.
class Tzu_env_out : public Tzu_env {
 public:
  // The stream must outlive the environment.
  explicit Tzu_env_out(std::ostream& out) : out_(&out) {}

  void message(std::string_view text) override { put_line("Message: ", text); }
  void warning(std::string_view text) override { put_line("Warning: ", text); }
  void error(std::string_view text) override { put_line("Error: ", text); }
  void debug(std::string_view text) override { put_line("Debug: ", text); }

 protected:
  void show_wait(percentage done, std::string_view text) override;
  void show_finished(std::string_view text) override { put_line("Finished: ", text); }
  virtual void put_line(std::string_view prefix, std::string_view text);
  std::ostream& out() const noexcept { return *out_; }

 private:
  std::ostream* out_;
};

// The same for a user at a terminal: "Wait: " is a bar that grows in its line. Where
// the stream is no terminal, the progress and the end of work are not written. The
// default is standard error, because results go to standard output.
class Tzu_env_console final : public Tzu_env_out {
 public:
  // Standard error.
  Tzu_env_console();
  Tzu_env_console(std::ostream& out, bool is_terminal) : Tzu_env_out(out), terminal_(is_terminal) {}
  ~Tzu_env_console() override { leave_bar(); }
  Tzu_env_console(Tzu_env_console const&) = delete;
  Tzu_env_console& operator=(Tzu_env_console const&) = delete;

 protected:
  void show_wait(percentage done, std::string_view text) override;
  void show_finished(std::string_view text) override;
  void put_line(std::string_view prefix, std::string_view text) override;

 private:
  // Begins a new line, so that the next text does not follow the bar.
  void leave_bar();

  bool terminal_;
  std::optional<std::string> bar_text_;  // the text of the bar in the present line
};
