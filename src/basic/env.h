// What a program tells its user while it works: messages, errors and how far
// long work has come. Texts are one line each, in the encoding of the receiver,
// without the prefix that says what they are.
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

  // `done` of `total` parts of the work `text` are done; a total of 0 is one
  // that is not known. May be called for each part: it is shown at first and
  // then once for each whole percent that differs from the one before.
  void wait(std::uint64_t done, std::uint64_t total, std::string_view text);
  // Ends the work, whether or not it waited.
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

// The same for who sits before a terminal: "Wait: " is a bar that grows in its
// line. Where nobody does, work and its end are not told: the receiver is a
// file or another program. Standard output is left to the results.
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
  // What comes next must not stand behind the bar.
  void leave_bar();

  bool terminal_;
  std::optional<std::string> bar_text_;  // of the bar that the cursor stands behind
};
