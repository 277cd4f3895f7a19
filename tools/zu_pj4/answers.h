// Answers many texts on several threads at the same time, and hands the answers over in
// the order of the texts.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "basic/thread.h"
#include "proj4/proj_library.h"

namespace answers {

enum class note_kind { warning, error, finding };

struct note {
  note_kind kind;
  std::string text;
};

// What a command tells about one text.
struct answer {
  std::vector<note> notes;  // one line each, before the output
  std::string output;       // for standard output
  int status = 0;
};

// Only one thread uses it.
using answerer = std::function<answer(std::string const& text)>;

// Remembers answers, so that equal texts are answered once. PROJ takes a tenth of a second
// to find out that it does not know a name. The memory is bounded.
answerer remembering(answerer wanted);

// The number of processors.
unsigned default_jobs() noexcept;

class Tqueue {
 public:
  // `where` is what was given with the text.
  using receiver = std::function<void(answer const& given, std::string const& where)>;

  // `make` makes the answerer of each thread, on that thread. `receive` is called on the
  // thread that adds the texts. With one job that thread also answers them.
  Tqueue(unsigned jobs, std::function<answerer()> make, receiver receive);
  ~Tqueue();
  Tqueue(Tqueue const&) = delete;
  Tqueue& operator=(Tqueue const&) = delete;

  // Throws what an answerer threw for an earlier text. While the queue is full, this waits
  // and hands answers over.
  void add(std::string text, std::string where);
  // Hands all answers over.
  void finish();

 private:
  struct Titem {
    std::string text;
    std::string where;
    answer given;
    std::exception_ptr failure;
    bool is_done = false;
  };

  static void run_worker(void* context);
  void run();
  void work(std::unique_lock<std::mutex>& lock, answerer const& by, bool& is_slow);
  bool has_thread();
  bool is_full() const noexcept;
  void hand_over(std::size_t rest);
  std::deque<Titem> take_done();

  std::function<answerer()> make_;
  receiver receive_;
  answerer own_;
  // Of the thread that adds the texts, where others answer them.
  std::optional<zu::proj_library::Tthread_context> context_;
  std::size_t bytes_ = 0;  // of the texts in the queue

  std::mutex mutex_;
  std::condition_variable added_;
  std::condition_variable answered_;
  // The mutex protects these.
  std::deque<Titem> items_;
  std::size_t next_ = 0;               // the place of the first item that no thread has taken
  std::size_t done_ = 0;               // the number of answered items
  std::optional<std::size_t> wanted_;  // so many answers are waited for
  std::size_t idle_ = 0;               // the number of threads that wait for a text
  std::exception_ptr failure_;         // of a thread that could not begin
  bool stops_ = false;

  std::size_t started_ = 0;
  std::vector<zu::Tthread> threads_;
};

}  // namespace answers
